// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundWords.h"

#include <algorithm>

namespace {

/// Translates the wildcards of a word and escapes everything else.
QString expressionOf(const QString& word)
{
    QString expression;
    for (const QChar character : word) {
        if (character == u'%') {
            expression += QStringLiteral(".*?");
        } else if (character == u'_') {
            expression += u'.';
        } else if (character.isSurrogate()) {
            expression += character;
        } else {
            expression += QRegularExpression::escape(QString(character));
        }
    }
    return expression;
}

/// Without this, a wildcard at the end of a word would mark text that the user did not look for.
QString withoutOuterWildcards(const QString& word)
{
    const auto isWildcard = [](QChar character) { return character == u'%' || character == u'_'; };
    const auto first = std::find_if_not(word.begin(), word.end(), isWildcard);
    const auto last = std::find_if_not(word.rbegin(), word.rend(), isWildcard);
    return first == word.end() ? QString() : QString(first, last.base() - first);
}

} // namespace

FoundWords::FoundWords(const QStringList& words)
{
    for (const QString& word : words) {
        const QString core = withoutOuterWildcards(word);
        if (core.isEmpty()) continue;
        m_words.emplace_back(expressionOf(core), QRegularExpression::CaseInsensitiveOption |
                                                     QRegularExpression::UseUnicodePropertiesOption |
                                                     QRegularExpression::DotMatchesEverythingOption);
    }
}

std::vector<TextRange> FoundWords::in(const QString& text) const
{
    std::vector<TextRange> places;
    for (const QRegularExpression& word : m_words) {
        auto matches = word.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            places.push_back({match.capturedStart(), match.capturedEnd()});
        }
    }
    return merged(std::move(places));
}
