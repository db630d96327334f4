// SPDX-License-Identifier: GPL-3.0-or-later

#include "journal/FormerFiles.h"

#include "editors/EditorTest.h"
#include "journal/UndoSteps.h"
#include "records/OrganizationStore.h"

#include <QCryptographicHash>

namespace {

QString hashOf(const QByteArray& content)
{
    return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

class FormerFilesTest : public EditorTest
{
protected:
    [[nodiscard]] QString charts() const { return m_database.folder() + u"/data/orgcharts/"_s; }
    [[nodiscard]] QString former(const QString& name) const { return charts() + u"former/"_s + name; }

    /// Saves organization 3 with a chart of that content and tells of it in the notes.
    void save(const QString& name, const QByteArray& content)
    {
        OrganizationStore store(m_state.session, m_state.folder, m_clock);
        OrganizationRecord record = store.load(3).record;
        record.profile.organizationChart = userFile(name, content);
        record.notes = QString::fromUtf8(content);
        (void)store.updateOrganization(record);
    }

    /// What lies in the folder of former charts, without their names.
    [[nodiscard]] QStringList formerContents() const
    {
        QStringList contents;
        for (const QString& name : QDir(former({})).entryList(QDir::Files | QDir::Hidden))
            contents << QString::fromUtf8(contentOf(former(name)));
        contents.sort();
        return contents;
    }

    /// Name and content of the charts that the last row of the journal tells of, before and after.
    [[nodiscard]] QString lastNoted() const
    {
        return ask("SELECT group_concat(value ->> 'Name' || ' ' || ifnull(value ->> 'Hash', '')) FROM "
                   "Journal, "
                   "json_each(Before, '$.Files') WHERE Number = (SELECT max(Number) FROM Journal)") +
               u" > "_s +
               ask("SELECT group_concat(value ->> 'Name' || ' ' || ifnull(value ->> 'Hash', '')) FROM "
                   "Journal, "
                   "json_each(After, '$.Files') WHERE Number = (SELECT max(Number) FROM Journal)");
    }

    UndoSteps m_steps{m_state.session, m_clock, m_state.folder};
};

TEST_F(FormerFilesTest, WhatASaveReplacesIsKeptAndComesBack)
{
    save(u"c.png"_s, "first");
    EXPECT_EQ(lastNoted(), u"3.png  > 3.png "_s + hashOf("first"));
    save(u"c.png"_s, "first");
    EXPECT_EQ(ask("SELECT count(*) FROM Journal"), u"1"_s) << "nothing has changed";
    EXPECT_EQ(formerContents(), QStringList());
    save(u"c.png"_s, "second");
    EXPECT_EQ(lastNoted(), u"3.png "_s + hashOf("first") + u" > 3.png "_s + hashOf("second"));
    EXPECT_EQ(contentOf(former(u"3-%1.png"_s.arg(hashOf("first")))), "first");
    save(u"c.pdf"_s, "other extension");
    EXPECT_EQ(lastNoted(), u"3.pdf  > 3.pdf "_s + hashOf("other extension"));
    EXPECT_EQ(formerContents(), QStringList(u"first"_s));

    const QStringList both{u"first"_s, u"other extension"_s};
    const QStringList all{u"first"_s, u"other extension"_s, u"second"_s};
    const struct
    {
        char command; // u is Undo, r Redo, a row of the journal with each
        const char* png;
        const char* pdf;
        QStringList kept;
    } steps[] = {
        {'u', "second", "(no file)", both},   {'u', "first", "(no file)", all},
        {'u', "(no file)", "(no file)", all}, {'r', "first", "(no file)", all},
        {'r', "second", "(no file)", all},    {'u', "first", "(no file)", all},
        {'r', "second", "(no file)", all},    {'r', "second", "other extension", all},
    };
    int number = 3;
    for (const auto& step : steps) {
        SCOPED_TRACE(++number);
        m_state.session.open(m_database.fileName());
        FormerFiles::settle(m_state.session, m_state.folder);
        const UndoOutcome outcome = step.command == 'u' ? m_steps.undo() : m_steps.redo();
        EXPECT_TRUE(outcome.isDone());
        EXPECT_EQ(outcome.messages, QStringList());
        EXPECT_EQ(contentOf(charts() + u"3.png"_s), step.png);
        EXPECT_EQ(contentOf(charts() + u"3.pdf"_s), step.pdf);
        EXPECT_EQ(formerContents(), step.kept);
    }
    EXPECT_EQ(ask("SELECT max(Number) FROM Journal"), QString::number(number));
    const auto version = FormerFiles::ofVersion(m_state.session, 3, 1);
    ASSERT_EQ(version.size(), 2);
    EXPECT_EQ(std::get<QString>(valueOf(version[0], u"Hash")), hashOf("first"));
    EXPECT_TRUE(isNull(valueOf(version[1], u"Hash"))) << "there was no 3.pdf";
}

TEST_F(FormerFilesTest, WhatIsGoneOrLeadsElsewhereChangesNothing)
{
    save(u"c.png"_s, "first");
    save(u"c.png"_s, "second");
    writeFile(former(u"3-%1.png"_s.arg(hashOf("first"))), "somebody changed it");
    const UndoOutcome outcome = m_steps.undo();
    EXPECT_TRUE(outcome.isDone());
    EXPECT_EQ(outcome.messages,
              QStringList(u"The chart 3.png stays as it is: its former file is gone from the "
                          "folder orgcharts/former."_s));
    EXPECT_EQ(ask("SELECT Notes FROM Organization WHERE OrganizationID = 3"), u"first"_s);
    EXPECT_EQ(contentOf(charts() + u"3.png"_s), "second");

    // what an earlier kill left of a chart that was replaced again since
    writeFile(former(u".replaced-3-%1.png"_s.arg(hashOf("first"))), "first");
    FormerFiles::settle(m_state.session, m_state.folder);
    EXPECT_EQ(contentOf(charts() + u"3.png"_s), "second");
    EXPECT_EQ(contentOf(former(u"3-%1.png"_s.arg(hashOf("first")))), "first");

    writeFile(charts() + u"4.png"_s, "of another organization");
    const auto row = [](const QString& folder, const QString& name, const QString& hash) {
        return HeldRow{{u"Folder"_s, folder}, {u"Name"_s, name}, {u"Hash"_s, hash}};
    };
    FormerFiles files(m_state.folder);
    for (const HeldRow& each :
         {row(u"orgcharts"_s, u"4.png"_s, {}), row(u"orgcharts"_s, u"3./../4.png"_s, {}),
          row(u"documents"_s, u"3.png"_s, {}), row(u"orgcharts"_s, u"3.png"_s, u"../4.png"_s)})
        EXPECT_EQ(files.bringBack({each}, 3), QStringList());
    EXPECT_FALSE(files.hasReplaced());
    EXPECT_EQ(stored(u"orgcharts/4.png"_s), "of another organization");
}

TEST_F(FormerFilesTest, ASaveThatFailsLeavesTheChart)
{
    save(u"c.png"_s, "first");
    const QByteArray before = m_database.bytes();
    writeFile(former({}).chopped(1), "a file stands in the way");
    EXPECT_NE(errorNumberOf([&] { save(u"c.png"_s, "second"); }), 0);
    EXPECT_EQ(m_database.bytes(), before);
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "first");

    QFile::remove(former({}).chopped(1));
    refuseRows(u"Journal"_s, u"Number"_s, 2);
    EXPECT_NE(errorNumberOf([&] { save(u"c.png"_s, "third"); }), 0);
    EXPECT_EQ(stored(u"orgcharts/3.png"_s), "first");
    EXPECT_NE(errorNumberOf([&] { save(u"c.pdf"_s, "third"); }), 0);
    EXPECT_EQ(stored(u"orgcharts/3.pdf"_s), "(no file)");
    EXPECT_EQ(formerContents(), QStringList());
}

} // namespace
