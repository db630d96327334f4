// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/DocumentStore.h"

#include "editors/EditorTest.h"

namespace {

constexpr int overflow = 6;
constexpr int gone = 12;
constexpr int noSuchFile = 2;

class DocumentStoreTest : public EditorTest
{
protected:
    /// A new document with a file, that can be saved.
    DocumentRecord filled()
    {
        DocumentRecord record = m_store.blank(std::nullopt);
        record.documentName = u"Storm survey"_s;
        record.documentDescription = u"What the storm did"_s;
        record.originalFilename = userFile(u"survey.v2.PDF"_s, "%PDF survey");
        return record;
    }

    DocumentStore m_store{m_state.session, m_state.folder, m_clock};
};

TEST_F(DocumentStoreTest, TitlesThatAnActiveDocumentHasAreRefused)
{
    const struct
    {
        QString title;
        bool isRefused;
    } cases[] = {{u"Flood report"_s, true},    {u"FLOOD Report"_s, true},
                 {u"Flood report "_s, false},  {u"Lost map"_s, false}, // was deleted
                 {u"Flood%"_s, true},          {u"_lood report"_s, true},
                 {u"The \"A\" file"_s, true}, // differs from an active one at the quotes alone
                 {u"The \"B\" file"_s, false}, {u"O'Brien's 100% & more; -- #1# [a]?*"_s, false},
                 {u"Étude É é"_s, false},      {QString(254, u'x') + u"é"_s, false}};
    for (const auto& [title, isRefused] : cases) {
        DocumentRecord record = filled();
        record.documentName = title;
        const QString before = ask("SELECT max(DocumentID) FROM Document");
        const auto problem = m_store.saveDocument(record);
        EXPECT_EQ(problem.has_value(), isRefused) << qPrintable(title);
        if (isRefused) {
            EXPECT_EQ(problem->field, DocumentField::DocumentName);
            EXPECT_EQ(problem->message,
                      u"Document with identical title already exists. Please choose a different title."_s);
            EXPECT_EQ(ask("SELECT max(DocumentID) FROM Document"), before);
            continue;
        }
        EXPECT_EQ(m_store.load(record.id).record.documentName, title);
        record.id = -1;
        EXPECT_TRUE(m_store.saveDocument(record)) << qPrintable(title) << " was taken twice";
    }
}

TEST_F(DocumentStoreTest, LinksAreReadOnceAndWhatIsMissingAsNone)
{
    EXPECT_EQ(m_store.load(2).record.types.size(), 2u);
    EXPECT_EQ(m_store.load(3).record.fileTypeId, 1);
    EXPECT_EQ(keysOf(m_store.load(3).record.categories), u"1"_s);
    DocumentRecord record = m_store.load(2).record;
    record.documentName = u"The xAy file"_s; // no look for duplicates here
    EXPECT_FALSE(m_store.updateDocument(record));
}

TEST_F(DocumentStoreTest, AMissingRecordIsReadWithTheLinksOfItsNumber)
{
    const auto [record, isFound] = m_store.load(9);
    EXPECT_FALSE(isFound);
    EXPECT_EQ(record.documentName, QString());
    EXPECT_EQ(textsOf(record.types), u"étude"_s);
    EXPECT_EQ(DocumentStore::notFoundMessage(9), u"Document 9 not found"_s);
}

TEST_F(DocumentStoreTest, NumbersBeyondSixteenBitsAreRefusedBeforeAnythingIsWritten)
{
    const auto expectRefused = [this](auto&& call) {
        const QByteArray before = m_database.bytes();
        EXPECT_EQ(errorNumberOf(call), overflow);
        EXPECT_EQ(m_database.bytes(), before);
    };
    DocumentRecord record = m_store.load(2).record;
    expectRefused([this] { (void)m_store.load(32768); });
    expectRefused([this] { (void)m_store.deleteDocument(32768); });
    for (qint64 DocumentRecord::*key :
         {&DocumentRecord::id, &DocumentRecord::fileTypeId, &DocumentRecord::organizationId}) {
        DocumentRecord changed = record;
        changed.*key = 32768;
        expectRefused([&] { (void)m_store.updateDocument(changed); });
    }
    for (const auto list : {&DocumentRecord::types, &DocumentRecord::categories}) {
        DocumentRecord changed = record;
        (changed.*list).push_back({u"far"_s, 40000});
        expectRefused([&] { (void)m_store.updateDocument(changed); });
    }
    record.venues.push_back({{u"far"_s, 40000}, true});
    expectRefused([&] { (void)m_store.updateDocument(record); });

    m_database.run("INSERT INTO Document (DocumentID, DocumentName) VALUES (32767, 'last')");
    DocumentRecord added = filled();
    expectRefused([&] { (void)m_store.saveDocument(added); });
    EXPECT_TRUE(QDir(m_database.folder() + u"/data/documents"_s).isEmpty());
}

TEST_F(DocumentStoreTest, WithoutAFileToCopyNothingIsWritten)
{
    DocumentRecord added = filled();
    added.originalFilename = m_database.folder() + u"/user/missing.pdf"_s;
    DocumentRecord changed = m_store.load(2).record;
    changed.originalFilename = added.originalFilename;
    changed.takesFile = true;
    const QByteArray before = m_database.bytes();
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.saveDocument(added); }), noSuchFile);
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateDocument(changed); }), noSuchFile);
    EXPECT_EQ(m_database.bytes(), before);
}

TEST_F(DocumentStoreTest, ARecordThatIsGoneMeanwhileIsNotBroughtBack)
{
    DocumentRecord record = m_store.load(2).record;
    m_database.run("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 2");
    record.author = u"late"_s;
    auto conflict = m_store.updateDocument(record);
    ASSERT_TRUE(conflict);
    EXPECT_TRUE(conflict->isDeleted);
    record.stored->known = conflict->found; // who was told may save all the same
    m_database.run("UPDATE Document SET Volume = '4' WHERE DocumentID = 2");
    conflict = m_store.updateDocument(record);
    ASSERT_TRUE(conflict) << "of this the user was not told";
    EXPECT_EQ(conflict->fields, QStringList{u"Volume"_s});
    EXPECT_FALSE(conflict->isDeleted);
    record.stored->known = conflict->found;
    EXPECT_FALSE(m_store.updateDocument(record));
    EXPECT_EQ(ask("SELECT Author, Volume, dStatus FROM Document WHERE DocumentID = 2"),
              u"late|NULL|DELETED"_s);

    m_database.run("DELETE FROM Document WHERE DocumentID = 2");
    const QByteArray before = m_database.bytes();
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateDocument(record); }), gone);
    EXPECT_EQ(m_database.bytes(), before);
}

TEST_F(DocumentStoreTest, WhatAFailedSaveWroteItselfIsNoChangeOfSomebodyElse)
{
    DocumentRecord record = m_store.load(2).record;
    record.author = u"late"_s;
    record.volume = u"4"_s;
    record.categories = {{u"Response"_s, 2}};
    refuseRows(u"Document_HIST"_s, u"DocumentID"_s, 2);
    EXPECT_EQ(errorNumberOf([&] { (void)m_store.updateDocument(record); }), 1);
    EXPECT_EQ(ask("SELECT Author FROM Document WHERE DocumentID = 2"), u"late"_s);
    m_database.run("DROP INDEX refuse");
    record.author = u"The Board"_s; // as it was read
    EXPECT_FALSE(m_store.updateDocument(record));
    EXPECT_EQ(ask("SELECT Author, Volume FROM Document WHERE DocumentID = 2"), u"The Board|4"_s);
}

} // namespace
