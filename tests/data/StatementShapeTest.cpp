// SPDX-License-Identifier: GPL-3.0-or-later

#include "data/StatementShape.h"

#include "data/StatementTranslator.h"
#include "support/TestDatabase.h"

namespace {

TEST(StatementShapes, LeaveOutTheDatesAndNothingElse)
{
    const std::vector<std::tuple<const char*, const char*, const char*>> cases{
        {"A = #9/1/2001# AND B = #10:00# AND C = #09/01/2001#", "A = #0d# AND B = #1t# AND C = #0d#",
         "2001-09-01|10:00"},
        {"A = #9/1/2001 00:00# OR A = #9/1/2001#", "A = #0m# OR A = #0d#", "2001-09-01"},
        {"A = \"#1#\" AND B = 'it''s #2#' AND C = #1/2/1999#", "A = \"#1#\" AND B = 'it''s #2#' AND C = #0d#",
         "1999-01-02"},
    };
    for (const auto& [statement, text, dates] : cases) {
        const auto shape = shapeOf(QString::fromUtf8(statement));
        ASSERT_TRUE(shape) << statement;
        EXPECT_EQ(shape->text.toStdString(), text);
        EXPECT_EQ(shape->dates.join(u'|').toStdString(), dates);
    }
    for (const char* statement : {"A = #0d#", "A = #9/31/2001#", "A = #1/1/2001", "A = 'open #1/1/2001#"})
        EXPECT_FALSE(shapeOf(QString::fromUtf8(statement))) << statement;
}

/// Makes statements full of dates, in literals and in texts, names and comments where they are none.
class DatedStatements
{
public:
    QString make()
    {
        static const QStringList conditions{
            u"StartDate >= #1/1/2001#"_s,
            u"StartTime < #10:00# AND EndDate <> #1/1/2001 10:00#"_s,
            u"((StartDate > #1/1/2001#) OR (StartDate = #1/1/2001# AND StartTime >= #10:00#))"_s,
            u"EventName = 'it''s #1/1/2001#'"_s,
            u"EventName LIKE \"a 'b' #1/1/2001#\""_s,
            u"\"\"\"#1/1/2001#\" <> '\"#1/1/2001#'"_s,
            u"EventName = '' AND '#1/1/2001#' LIKE '%'"_s,
            u"EventID IN (SELECT EventID FROM Event WHERE EndDate = #1/1/2001# AND '#' <> \"#\")"_s,
            u"[#1/1/2001#] = 1"_s,
            u"EventID > 1 -- #1/1/2001#"_s,
            u"EventID > 1 /* #1/1/2001# */"_s};
        QString statement = u"SELECT EventID FROM Event WHERE "_s + anyOf(conditions);
        for (int more = below(3); more > 0; --more)
            statement += u" AND "_s + anyOf(conditions);
        static const QStringList signs{u"'"_s, u"\""_s, u"#"_s, u"''"_s, u"\"\""_s, u"##"_s, u"' '"_s};
        for (int inserted = below(2); inserted > 0; --inserted)
            statement.insert(below(statement.size()), anyOf(signs));
        return statement;
    }

    /// The statement with other dates, whether they count as such where they stand or not.
    QString redated(QString statement)
    {
        static const QStringList dates{u"1/1/2001"_s, u"2/2/2002"_s, u"3/3/2003 11:30"_s};
        static const QStringList times{u"10:00"_s, u"11:30"_s, u"00:00"_s};
        for (const QStringList& moments : {dates, times}) {
            const QString& common = anyOf(moments);
            const bool isCommon = below(2) == 0;
            for (qsizetype at = 0; (at = statement.indexOf(moments.front(), at)) >= 0; ++at) {
                const QString& moment = isCommon ? common : anyOf(moments);
                statement.replace(at, moments.front().size(), moment);
            }
        }
        return statement;
    }

private:
    int below(qsizetype limit) { return static_cast<int>(m_random() % static_cast<std::uint32_t>(limit)); }
    const QString& anyOf(const QStringList& texts) { return texts[below(texts.size())]; }

    std::mt19937 m_random{1};
};

QString translationOf(const Catalog& catalog, const QString& statement, const QStringList& dates = {})
{
    try {
        return StatementTranslator(catalog).select(statement, dates).sql;
    } catch (const Error& error) {
        return u"Error: "_s + error.description();
    }
}

/// A statement is kept prepared under its shape, so a shape that two different statements share would answer
/// one of them with the rows of the other.
TEST(StatementShapes, AreEqualOnlyOfStatementsThatDifferInTheirDatesAlone)
{
    TestDatabase database;
    const Catalog& catalog = database.session().catalog();
    DatedStatements statements;
    int alike = 0;
    int different = 0;
    for (int i = 0; i < 5000; ++i) {
        const QString one = statements.make();
        const QString other = statements.redated(one);
        const auto shape = shapeOf(one);
        const auto otherShape = shapeOf(other);
        ASSERT_TRUE(shape || translationOf(catalog, one).startsWith(u"Error: ")) << one.toStdString();
        if (!shape || !otherShape || one == other) continue;
        if (shape->text != otherShape->text) {
            ++different;
            continue;
        }
        ++alike;
        QString translation = translationOf(catalog, one, shape->dates);
        ASSERT_EQ(translation, translationOf(catalog, other, otherShape->dates)) << one.toStdString() << '\n'
                                                                                 << other.toStdString();
        for (qsizetype date = 0; date < shape->dates.size(); ++date)
            translation.replace(u"?%1"_s.arg(date + 1), u"'%1'"_s.arg(shape->dates[date]));
        ASSERT_EQ(translation, translationOf(catalog, one)) << one.toStdString();
    }
    EXPECT_GT(alike, 100);
    EXPECT_GT(different, 100);
}

} // namespace
