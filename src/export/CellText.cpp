// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/CellText.h"

#include <QString>

#include <algorithm>

namespace {

constexpr qsizetype escapedLength = 7; ///< of `_xHHHH_`

/// Whether the text needs no change, which is true of nearly all.
bool needsNoChange(std::string_view utf8)
{
    return std::all_of(utf8.begin(), utf8.end(), [](char each) {
        const auto byte = static_cast<unsigned char>(each);
        return (byte >= ' ' && byte < 0x80 && byte != '_') || byte == '\n' || byte == '\t';
    });
}

bool isHexadecimal(QChar each)
{
    return (each >= u'0' && each <= u'9') || (each >= u'a' && each <= u'f') || (each >= u'A' && each <= u'F');
}

bool isOfXml(QChar each)
{
    constexpr char16_t firstNoCharacter = 0xFFFE;
    return (each >= u' ' && each < firstNoCharacter) || each == u'\n' || each == u'\t';
}

/// Also if that comes about by what follows, which begins with `_` once it is escaped.
bool looksEscaped(QStringView text)
{
    if (text.size() < escapedLength || !text.startsWith(u"_x")) return false;
    const QChar last = text[escapedLength - 1];
    return (last == u'_' || !isOfXml(last)) &&
           std::all_of(text.begin() + 2, text.begin() + escapedLength - 1, isHexadecimal);
}

QString escaped(QChar each)
{
    return QStringLiteral("_x%1_").arg(each.unicode(), 4, 16, QLatin1Char('0')).toUpper().replace(u'X', u'x');
}

/// What the first characters of a text become that cannot be parted; `taken` is how many they are.
QString firstUnits(QStringView text, qsizetype& taken)
{
    taken = 1;
    if (text.startsWith(u"\r\n")) taken = 2;
    if (text[0] == u'\r') return QStringLiteral("\n");
    if (!isOfXml(text[0]) || looksEscaped(text)) return escaped(text[0]);
    if (text[0].isHighSurrogate() && text.size() > 1) taken = 2;
    return text.first(taken).toString();
}

} // namespace

std::vector<std::string> CellText::parts(std::string_view utf8, std::size_t units)
{
    if (utf8.size() <= units && needsNoChange(utf8)) return {std::string(utf8)};
    const QString all = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    std::vector<std::string> parts;
    QString part;
    qsizetype taken = 0;
    for (QStringView rest(all); !rest.isEmpty(); rest = rest.sliced(taken)) {
        const QString next = firstUnits(rest, taken);
        if (static_cast<std::size_t>(part.size() + next.size()) > units) {
            parts.push_back(part.toStdString());
            part.clear();
        }
        part += next;
    }
    parts.push_back(part.toStdString());
    return parts;
}
