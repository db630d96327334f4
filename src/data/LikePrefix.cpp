// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/LikePrefix.h"

#include "data/SqlTokenizer.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qsizetype longestPrefix = 3; ///< each letter doubles the number of ranges

/// Whether a character of a pattern stands for itself and only the spellings below fold to it.
bool isPlain(QChar character)
{
    const char16_t code = character.unicode();
    return code >= u' ' && code <= u'}' && code != u'%' && code != u'_';
}

/// All characters that match one of a pattern.
QString spellings(QChar character)
{
    QString spelled = character.toUpper();
    const QChar lower = character.toLower();
    if (lower != character.toUpper()) spelled += lower;
    if (lower == u'k') spelled += u'\u212A'; // the Kelvin sign
    if (lower == u's') spelled += u'\u017F'; // the long s
    return spelled;
}

QStringList spellings(QStringView prefix)
{
    QStringList spelled{QString()};
    for (const QChar character : prefix) {
        QStringList longer;
        for (const QString& begun : spelled) {
            for (const QChar spelling : spellings(character))
                longer << begun + spelling;
        }
        spelled = longer;
    }
    return spelled;
}

} // namespace

QString LikePrefix::ranges(const QString& column, const QString& pattern)
{
    qsizetype length = 0;
    while (length < std::min(longestPrefix, pattern.size()) && isPlain(pattern[length]))
        ++length;
    if (length == 0) return {};
    QStringList conditions;
    for (const QString& first : spellings(QStringView(pattern).first(length))) {
        QString beyond = first;
        beyond.back() = QChar(static_cast<char16_t>(first.back().unicode() + 1));
        conditions
            << QStringLiteral("%1 >= %2 AND %1 < %3").arg(column, quoteSqlText(first), quoteSqlText(beyond));
    }
    return conditions.join(QStringLiteral(" OR "));
}
