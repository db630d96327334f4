// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/PlainText.h"

namespace {

bool isRefused(QChar character)
{
    constexpr char16_t firstPrintable = 0x20;
    constexpr char16_t deletion = 0x7F;
    constexpr char16_t firstNoCharacter = 0xFFFE;
    const char16_t code = character.unicode();
    return (code < firstPrintable && code != u'\t' && code != u'\n') || code == deletion ||
           code >= firstNoCharacter;
}

} // namespace

QString plainText(std::string_view utf8)
{
    QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    text.removeIf(isRefused);
    return text;
}
