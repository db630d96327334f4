// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/FoundWords.h"

#include "support/TextPrinting.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Returns the text with its marked places in brackets.
QString marked(const QStringList& words, QString text)
{
    const auto places = FoundWords(words).in(text);
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        text.insert(place->end, u']').insert(place->begin, u'[');
    return text;
}

TEST(FoundWords, MarksEveryPlaceWithoutRegardToCase)
{
    const struct
    {
        QStringList words;
        QString text;
        QString expected;
    } cases[] = {
        {{u"fire"_s}, u"Fire of the firemen"_s, u"[Fire] of the [fire]men"_s},
        {{u"fire"_s, u"plan"_s}, u"Fireplan, plan"_s, u"[Fireplan], [plan]"_s},
        {{u"ire"_s, u"fir"_s}, u"fire"_s, u"[fire]"_s},
        {{u"école"_s}, u"l'ÉCOLE, ecole"_s, u"l'[ÉCOLE], ecole"_s},
        {{u"пожар"_s}, u"Большой ПОЖАР"_s, u"Большой [ПОЖАР]"_s},
        {{u"(a"_s, u"[x]"_s, u"50%"_s}, u"f(A) [x] 50%"_s, u"f[(A]) [[x]] [50]%"_s},
        {{u"f%r"_s}, u"of forests for"_s, u"o[f for]ests [for]"_s},
        {{u"f_r"_s}, u"for fair fur"_s, u"[for] fair [fur]"_s},
        {{u"%"_s, u"__"_s}, u"anything"_s, u"anything"_s},
        {{u"\U0001F525"_s}, u"a \U0001F525 b"_s, u"a [\U0001F525] b"_s},
        {{QString(QChar(0xD800))}, u"anything"_s, u"anything"_s},
        {{}, u"fire"_s, u"fire"_s},
    };
    for (const auto& [words, text, expected] : cases)
        EXPECT_EQ(marked(words, text), expected);
}

} // namespace
