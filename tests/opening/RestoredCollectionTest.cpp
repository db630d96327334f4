// SPDX-License-Identifier: GPL-3.0-or-later

#include "opening/RestoredCollection.h"

#include "backup/CollectionBackup.h"
#include "backup/KeptBackups.h"
#include "support/ScriptedPlatform.h"
#include "support/TestDatabase.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RestoredCollectionTest : public testing::Test
{
protected:
    RestoredCollectionTest()
    {
        m_database.run("INSERT INTO Document (DocumentID, DocumentName) VALUES (2, 'Levees')");
        QDir().mkpath(path(u"place/Rivers/data"_s));
        QFile::copy(m_database.fileName(), database());
        writeFile(path(u"place/Rivers/data/documents/2.pdf"_s), "a report");
        writeFile(path(u"place/Rivers/data/maps/states.shp"_s), "outlines");
        CollectionBackup whole(database(), m_folder, path(u"whole.zip"_s), QDateTime::currentDateTime());
        while (whole.step()) {
        }
        KeptBackups(m_folder).add(database(), m_folder, QDateTime::currentDateTime());
        m_kept = KeptBackups(m_folder).list().front().file;
    }

    [[nodiscard]] QString path(const QString& name) const { return m_database.folder() + u'/' + name; }
    [[nodiscard]] QString database() const { return path(u"place/Rivers/data/Rivers.sqlite"_s); }
    [[nodiscard]] QStringList places() const
    {
        return QDir(path(u"place"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    TestDatabase m_database;
    ProgramFolder m_folder{path(u"place/Rivers"_s)};
    ScriptedWorks m_works;
    QString m_kept;
};

TEST_F(RestoredCollectionTest, HasTheNameAndTheFiles)
{
    const struct
    {
        QString archive;
        RestoredCollection::Options options;
        const char* name;
        bool hasFiles;
    } cases[] = {
        {path(u"whole.zip"_s), {}, "Rivers 2", true},
        {path(u"whole.zip"_s), {u"Lakes"_s, m_folder}, "Lakes", true},
        {m_kept, {}, "Rivers 3", false},
        {m_kept, {{}, RestoredCollection::filesFor(m_kept)}, "Rivers 4", true},
    };
    for (const auto& [archive, options, name, hasFiles] : cases) {
        SCOPED_TRACE(name);
        const auto made = RestoredCollection::make(m_works, archive, path(u"place"_s), options);
        ASSERT_TRUE(made);
        const QString folder = path(u"place/"_s + QString::fromUtf8(name));
        EXPECT_EQ(made->database, folder + u"/data/Rivers.sqlite"_s);
        EXPECT_EQ(TestDatabase::answer(made->database, u"SELECT DocumentName FROM Document"_s), u"Levees"_s);
        EXPECT_EQ(contentOf(folder + u"/data/documents/2.pdf"_s), hasFiles ? "a report" : "(no file)");
        EXPECT_EQ(contentOf(folder + u"/data/maps/states.shp"_s), hasFiles ? "outlines" : "(no file)");
        EXPECT_EQ(made->manifest.rows.value(u"Document"_s), 1);
    }
    EXPECT_FALSE(RestoredCollection::filesFor(path(u"whole.zip"_s)));
}

TEST_F(RestoredCollectionTest, LeavesNothingUnlessItIsWhole)
{
    for (int steps = 0; steps < 12; ++steps) {
        m_works.cancelAfter = steps;
        EXPECT_FALSE(RestoredCollection::make(m_works, path(u"whole.zip"_s), path(u"place"_s)));
        EXPECT_EQ(places(), QStringList{u"Rivers"_s}) << steps;
    }
    m_works.cancelAfter.reset();
    writeFile(path(u"whole.zip"_s), contentOf(path(u"whole.zip"_s)).chopped(2000));
    EXPECT_THROW(static_cast<void>(RestoredCollection::make(m_works, path(u"whole.zip"_s), path(u"place"_s))),
                 Error);
    EXPECT_EQ(places(), QStringList{u"Rivers"_s});
}

} // namespace
