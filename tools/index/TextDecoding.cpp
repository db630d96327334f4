// SPDX-License-Identifier: GPL-3.0-or-later

#include "TextDecoding.h"

#include <QList>
#include <QStringConverter>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

using Encoding = QStringConverter::Encoding;

constexpr qsizetype beginningSize = 4096;

bool isPrintable(uchar byte)
{
    return (byte >= 0x20 && byte < 0x7f) || byte == '\t' || byte == '\n' || byte == '\r';
}

/// UTF-16 without a mark, of a text in Latin letters: of nearly every two bytes one is zero, always the same.
std::optional<Encoding> markless(QByteArrayView text)
{
    const QByteArrayView beginning = text.first(std::min(text.size(), beginningSize) & ~qsizetype(1));
    qsizetype little = 0;
    qsizetype big = 0;
    for (qsizetype index = 0; index < beginning.size(); index += 2) {
        const auto first = static_cast<uchar>(beginning.at(index));
        const auto second = static_cast<uchar>(beginning.at(index + 1));
        if (first == 0 && second == 0) return std::nullopt;
        if (second == 0 && isPrintable(first)) ++little;
        if (first == 0 && isPrintable(second)) ++big;
    }
    const qsizetype wanted = std::max<qsizetype>(2, beginning.size() / 2 * 7 / 10);
    if (little >= wanted) return Encoding::Utf16LE;
    if (big >= wanted) return Encoding::Utf16BE;
    return std::nullopt;
}

/// UTF-8 unless most of what is not ASCII is no UTF-8: one damaged letter does not make another encoding.
std::optional<QString> asUtf8(QByteArrayView text)
{
    QString result = QString::fromUtf8(text);
    qsizetype letters = 0;
    qsizetype errors = 0;
    for (const QChar letter : std::as_const(result)) {
        if (letter == QChar::ReplacementCharacter)
            ++errors;
        else if (letter.unicode() > 0x7f)
            ++letters;
    }
    if (errors > 0 && errors * 4 > letters) return std::nullopt;
    return result;
}

QString decodedBy(const char* encoding, QByteArrayView text)
{
    QStringDecoder decoder(encoding);
    if (!decoder.isValid()) decoder = QStringDecoder(Encoding::Latin1);
    return decoder(text);
}

/// Whether a declared encoding is worth more than a look at the text.
bool isTelling(const QByteArray& declared)
{
    static const QList<QByteArray> others{"iso-8859-1", "iso8859-1",    "latin1", "latin-1",
                                          "us-ascii",   "windows-1252", "cp1252", "ascii"};
    const QByteArray name = declared.toLower();
    return !name.isEmpty() && !name.startsWith("utf") && !others.contains(name) &&
           QStringDecoder(name.constData()).isValid();
}

} // namespace

bool TextDecoding::isText(QByteArrayView beginning)
{
    if (QStringConverter::encodingForData(beginning) || markless(beginning)) return true;
    if (beginning.startsWith("{\\rtf") || beginning.startsWith("%!PS")) return false;
    const auto isStrange = [](char byte) {
        return static_cast<uchar>(byte) < 0x20 && (byte < '\t' || byte > '\r') && byte != 0x1b;
    };
    const auto strange = std::count_if(beginning.begin(), beginning.end(), isStrange);
    return !beginning.contains('\0') && strange <= 2 + beginning.size() / 50;
}

QString TextDecoding::decoded(QByteArrayView text, const QByteArray& declared)
{
    const auto marked = QStringConverter::encodingForData(text);
    const auto encoding = marked ? marked : markless(text);
    if (encoding) {
        QStringDecoder decoder(*encoding);
        return decoder(text);
    }
    if (isTelling(declared)) return decodedBy(declared.constData(), text);
    if (auto result = asUtf8(text)) return *std::move(result);
    return decodedBy("windows-1252", text);
}
