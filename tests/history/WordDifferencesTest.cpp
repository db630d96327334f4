// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/WordDifferences.h"

#include "support/Testing.h"

#include <QRandomGenerator>

using Kind = DifferenceRun::Kind;

namespace {

/// Removed pieces in brackets, added ones in braces.
std::string marked(const QString& older, const QString& newer)
{
    QString text;
    for (const DifferenceRun& run : WordDifferences::between(older, newer)) {
        if (run.kind == Kind::Equal) text += run.text;
        if (run.kind == Kind::Removed) text += u'[' + run.text + u']';
        if (run.kind == Kind::Added) text += u'{' + run.text + u'}';
    }
    return text.toStdString();
}

/// What one of the two texts was, by the runs.
QString side(const std::vector<DifferenceRun>& runs, Kind own)
{
    QString text;
    for (const DifferenceRun& run : runs)
        if (run.kind == Kind::Equal || run.kind == own) text += run.text;
    return text;
}

QString randomText(QRandomGenerator& random, int words, int vocabulary)
{
    QString text;
    for (int i = 0; i < words; ++i)
        text += u"w%1"_s.arg(random.bounded(vocabulary)) + (random.bounded(12) == 0 ? u"\n"_s : u" "_s);
    return text;
}

TEST(WordDifferences, MarksTheWordsThatDiffer)
{
    const struct
    {
        QString older;
        QString newer;
        const char* runs;
    } cases[] = {
        {u"The water was short"_s, u"The water was short"_s, "The water was short"},
        {QString(), QString(), ""},
        {QString(), u"New"_s, "{New}"},
        {u"Old"_s, QString(), "[Old]"},
        {u"The water was short."_s, u"The water was very short."_s, "The water was {very }short."},
        {u"one two three four"_s, u"one 2 3 four"_s, "one [two three]{2 3} four"},
        {u"Fire"_s, u"fire"_s, "[Fire]{fire}"},
        {u"High water"_s, u"Very high water"_s, "[High]{Very high} water"},
        {u"a\nb\nc"_s, u"a\nc"_s, "a\n[b\n]c"},
        {u"first second"_s, u"second first"_s, "[first ]second{ first}"},
        {u"Порт горит ночью"_s, u"Порт горит днём"_s, "Порт горит [ночью]{днём}"},
        {u"港で火災が発生"_s, u"港で洪水が発生"_s, "港で[火災]{洪水}が発生"},
        {u"café noir"_s, u"cafe\u0301 noir"_s, "[café]{cafe\u0301} noir"},
        {u"a 🙂 b"_s, u"a 🙃 b"_s, "a [🙂]{🙃} b"},
    };
    for (const auto& [older, newer, runs] : cases)
        EXPECT_EQ(marked(older, newer), runs);
}

TEST(WordDifferences, TellBothTextsWhole)
{
    QRandomGenerator random(20010911);
    for (int i = 0; i < 3000; ++i) {
        const int vocabulary = random.bounded(1, 8);
        const QString older = randomText(random, random.bounded(20), vocabulary);
        const QString newer = randomText(random, random.bounded(20), vocabulary);
        const auto runs = WordDifferences::between(older, newer);
        ASSERT_EQ(side(runs, Kind::Removed).toStdString(), older.toStdString());
        ASSERT_EQ(side(runs, Kind::Added).toStdString(), newer.toStdString());
        for (std::size_t run = 1; run < runs.size(); ++run)
            ASSERT_NE(runs[run].kind, runs[run - 1].kind);
    }
}

/// Long texts that have nothing in common would take minutes and gigabytes if they were compared by words.
TEST(WordDifferences, OfLongTextsAreFoundBySizeOfTheChange)
{
    QRandomGenerator random(7);
    const QString memo = randomText(random, 16000, 5000); // more than 64 KB
    ASSERT_GT(memo.size(), 65536);
    QString few = memo;
    few.insert(memo.indexOf(u' ', memo.size() / 2) + 1, u"flood "_s).prepend(u"Begin "_s).append(u"end"_s);
    EXPECT_EQ(WordDifferences::between(memo, few).size(), 5U);

    QStringList lines = memo.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); i += 8)
        lines[i] = randomText(random, 10, 5000).simplified();
    const auto byLine = WordDifferences::between(memo, lines.join(u'\n'));
    EXPECT_GT(byLine.size(), 100U);
    EXPECT_EQ(side(byLine, Kind::Removed), memo);
    EXPECT_EQ(side(byLine, Kind::Added), lines.join(u'\n'));

    const QString other = randomText(random, 16000, 5000).toUpper();
    const auto wholes = WordDifferences::between(memo, other);
    ASSERT_EQ(wholes.size(), 2U);
    EXPECT_EQ(wholes[0].text, memo);
    EXPECT_EQ(wholes[1].text, other);
}

} // namespace
