// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/StrTok.h"

#include "support/Testing.h"

namespace {

/// The tokens of a text joined by `|`, then `!` if the last ran to the end of the text.
QString tokens(const QString& text, const QStringList& delimiters)
{
    StrTok tokenizer;
    for (const QString& delimiter : delimiters)
        tokenizer.AddDelimiter(delimiter);
    tokenizer.setDataString(text);
    QStringList found;
    while (!tokenizer.atEnd()) {
        const QString token = tokenizer.NextToken();
        if (token.isEmpty()) break;
        found << token;
    }
    return found.join(u'|') + (tokenizer.atEnd() ? u'!' : u'.');
}

TEST(StrTok, SplitsAtTheNearestDelimiter)
{
    const struct
    {
        const char16_t* text;
        QStringList delimiters;
        const char16_t* expected;
    } cases[] = {
        {u"flood fire", {QStringLiteral(" ")}, u"flood|fire!"},
        {u"flood", {QStringLiteral(" ")}, u"flood!"},
        {u"", {QStringLiteral(" ")}, u"!"},
        {u"a,b c", {QStringLiteral(" "), QStringLiteral(",")}, u"a|b|c!"},
        // a delimiter at the start of a token belongs to it
        {u"a  b c", {QStringLiteral(" ")}, u"a| b|c!"},
        {u" a b", {QStringLiteral(" ")}, u" a|b!"},
        {u",", {QStringLiteral(",")}, u",!"},
        // the next token begins one character after a find, however long the delimiter is
        {u"a--b", {QStringLiteral("--")}, u"a|-b!"},
        {u"é,ü", {QStringLiteral(",")}, u"é|ü!"},
        // nothing is left behind a delimiter at the end, and no token ran to it
        {u"Austin,", {QStringLiteral(",")}, u"Austin."},
        {u"plain", {}, u"plain!"},
        {u"plain", {QString()}, u"plain!"},
    };
    for (const auto& [text, delimiters, expected] : cases)
        EXPECT_EQ(tokens(QString::fromUtf16(text), delimiters), QString::fromUtf16(expected));
}

TEST(StrTok, BeginsAnewWithEachText)
{
    StrTok tokenizer;
    EXPECT_EQ(tokenizer.NextToken(), QString()) << "there is no text yet";
    tokenizer.AddDelimiter(QStringLiteral(" "));
    tokenizer.setDataString(QStringLiteral("one two"));
    tokenizer.NextToken();
    tokenizer.NextToken();
    EXPECT_TRUE(tokenizer.atEnd());
    EXPECT_EQ(tokenizer.NextToken(), QStringLiteral("two")) << "the last token stays the last";
    tokenizer.setDataString(QStringLiteral("three four"));
    EXPECT_FALSE(tokenizer.atEnd());
    EXPECT_EQ(tokenizer.NextToken(), QStringLiteral("three"));
    EXPECT_EQ(tokenizer.DataString(), QStringLiteral("three four"));
}

} // namespace
