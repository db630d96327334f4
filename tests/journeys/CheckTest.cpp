// SPDX-License-Identifier: GPL-3.0-or-later

#include "Dialogs.h"
#include "Journey.h"
#include "backup/KeptBackups.h"
#include "support/TestFiles.h"
#include "util/Sha256.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Check : public ::testing::Test
{
protected:
    Check() { QStandardPaths::setTestModeEnabled(true); }

    ScriptedMessages& messages() { return journey.desktop.messages; }
    QString data(const char* name) const { return journey.dataFolder() + QString::fromUtf8(name); }

    /// Adds a document with a file that the program took in with that content.
    void addFile(int identifier, const char* name, const char* content)
    {
        journey.database.run(
            u"INSERT INTO Document (DocumentID, DocumentName, FileLocation, FileTypeID, "
            "OrganizationID, dStatus) VALUES (%1, '%2', '%1.pdf', 1, 1, 'ACTIVE')"_s.arg(identifier)
                .arg(QString::fromUtf8(name)));
        const QString hash = QString::fromLatin1(hashOf(content).toHex());
        journey.database.run(
            u"INSERT INTO Journal (Step, Moment, What, Kind, Identifier, Title, After, UndoStep, RedoStep) "
            u"VALUES (%1, "
            "'2005-06-15 12:00:00', 'ADD', 'Document', %1, '%2', "
            "'{\"Uploads\":[{\"Folder\":\"documents\",\"Name\":\"%1.pdf\",\"Hash\":\"%3\"}]}', %1, 0)"_s
                .arg(identifier)
                .arg(QString::fromUtf8(name), hash));
    }

    static QByteArray hashOf(const char* content)
    {
        Sha256 hash;
        hash.add(content);
        return hash.result();
    }

    /// All that the window shows, as Copy has it.
    static std::string shown(OpenDialog& window)
    {
        auto& tree = window.find<QTreeView>("tvwChecks");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.find<QWidget>("cmdStop").isVisible(); }, 20000));
        tree.selectAll();
        QTest::keyClick(&tree, Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text().toStdString();
    }

    /// Selects the finding that begins so.
    static void select(OpenDialog& window, const char* text)
    {
        auto& tree = window.find<QTreeView>("tvwChecks");
        const QModelIndexList found =
            tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, QString::fromUtf8(text), 1,
                                Qt::MatchStartsWith | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << text;
        tree.setCurrentIndex(found.front());
    }

    /// Overwrites the pages of the database in which a text stands.
    void garble(const QByteArray& text) const
    {
        constexpr qsizetype page = 4096;
        QByteArray content = journey.database.bytes();
        for (qsizetype at = content.indexOf(text); at >= 0; at = content.indexOf(text))
            content.replace(at / page * page, page, QByteArray(page, 'x'));
        writeFile(journey.database.fileName(), content);
    }

    Journey journey;
};

constexpr auto nothing = "Structure of the database: Nothing found\n"
                         "References within the database: Nothing found\n";

TEST_F(Check, ShowsWhatItFindsAndTakesTheStepOfEachFinding)
{
    addFile(2, "Atlas", "atlas");
    addFile(3, "Brief", "brief");
    writeFile(data("documents/3.pdf"), "changed");
    writeFile(data("documents/stray.txt"), "stray");
    const QTemporaryDir elsewhere;
    writeFile(elsewhere.filePath(u"old/a"_s), "atlas");
    journey.database.run("INSERT INTO DocumentTypes VALUES (2, 77)");
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.inDialog("frmCheck", "mnuCheckCollection", [&](OpenDialog& window) {
        auto& tree = window.find<QTreeView>("tvwChecks");
        const QAbstractItemModelTester tester(tree.model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        EXPECT_EQ(shown(window), nothing);
        auto& step = window.find<QPushButton>("cmdStep");
        EXPECT_FALSE(step.isEnabled());

        select(window, "Document \"Atlas\" is linked to");
        inDialog(
            "frmDocument", [&] { QTest::keyClick(&tree, Qt::Key_Return); },
            [](OpenDialog& record) {
                EXPECT_EQ(record.title(), "Viewing DocumentID 2 (Read-Only)");
                record.click("cmdCancel");
            });

        select(window, "Document \"Atlas\" names the file");
        EXPECT_EQ(step.text(), u"&Find File…"_s);
        journey.desktop.fileDialogs.folders = {QString(), data("orgcharts"), elsewhere.path(),
                                               elsewhere.path()};
        window.click("cmdStep");
        step.click();
        step.click();
        step.click();
        EXPECT_EQ(contentOf(data("documents/2.pdf")), "atlas");
        EXPECT_FALSE(step.isEnabled()) << "it is done";

        select(window, "The file documents/stray.txt");
        EXPECT_EQ(step.text(), u"&Put File Aside"_s);
        QTest::keyClick(&tree, Qt::Key_Return);
        EXPECT_FALSE(QFile::exists(data("documents/stray.txt")));
        EXPECT_EQ(contentOf(data("aside/documents/stray.txt")), "stray");

        window.click("cmdCheckFiles");
        EXPECT_EQ(shown(window), "");
        window.press(Qt::Key_Escape);
    });
}

/// A database of which a page with documents is overwritten.
class Damage : public Check
{
protected:
    Damage()
    {
        journey.database.run(
            "WITH RECURSIVE n(i) AS (VALUES (100) UNION ALL SELECT i + 1 FROM n WHERE i < 199) "
            "INSERT INTO Document (DocumentID, DocumentName, DocumentDescription, dStatus) "
            "SELECT i, 'Report ' || i, 'text ' || i || hex(zeroblob(600)), 'ACTIVE' FROM n");
        writeFile(data("documents/100.pdf"), "report");
    }

    /// Keeps a backup of the database and then damages it.
    void damage()
    {
        const ProgramFolder folder(journey.database.folder());
        KeptBackups(folder).add(journey.database.fileName(), folder, journey.desktop.clock.moment);
        garble("Report 150");
    }

    void expectQuestion(const QString& cause, const char* state, std::optional<int> answer,
                        bool hasBackup = true)
    {
        const QString both =
            u"Its newest backup was made on 06/15/2005 12:00. Do you want to restore that, or to "
            "rescue what can still be read? Either becomes a new collection; the damaged one "
            "stays as it is."_s;
        const QString rescue =
            u"Do you want to rescue what can still be read? It becomes a new collection; the "
            "damaged one stays as it is."_s;
        QStringList answers{u"&Rescue What Can Be Read"_s};
        if (hasBackup) answers.prepend(u"Restore the &Backup"_s);
        messages().expectChoice(u"The database is damaged%1\n\n%2\n\n%3"_s.arg(
                                    cause, QString::fromUtf8(state), hasBackup ? both : rescue),
                                answers, answer);
    }

    void expectReadFailure()
    {
        messages().expectMessage(u"showDocuments Error (11): database disk image is malformed"_s);
    }

    const char* open = "It is open for reading, as far as it can be read.";
    QString file = data("test.sqlite");
};

TEST_F(Damage, IsAskedAboutOnceWhenItIsMetAndLeavesTheDatabaseToBeRead)
{
    damage();
    const QByteArray before = journey.database.bytes();
    journey.start();
    expectReadFailure();
    expectQuestion(u". (%1)"_s.arg(file), open, std::nullopt);
    journey.trigger("mnuViewDocuments");
    Journey::idle();
    messages().finish();
    EXPECT_TRUE(journey.program->window()->windowTitle().endsWith(u"[read-only]"_s));
    EXPECT_FALSE(journey.find<QAction>("mnuRecordAddNewEvent").isEnabled());
    expectReadFailure();
    journey.trigger("mnuViewRefresh");
    Journey::idle();
    EXPECT_TRUE(journey.database.bytes() == before);
}

TEST_F(Damage, TheNewestBackupBecomesACollectionWithTheFiles)
{
    damage();
    const QByteArray before = journey.database.bytes();
    journey.start();
    expectReadFailure();
    expectQuestion(u". (%1)"_s.arg(file), open, 0);
    journey.trigger("mnuViewDocuments");
    Journey::idle();
    messages().finish();
    EXPECT_NE(journey.program->state().session.fileName(), file);
    EXPECT_FALSE(journey.program->state().session.isReadOnly());
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(journey.statusPanel(), u"Displaying 100 Documents"_s);
    const QString restored = QFileInfo(journey.program->state().session.fileName()).path();
    EXPECT_EQ(contentOf(restored + u"/documents/100.pdf"_s), "report");
    EXPECT_TRUE(journey.database.bytes() == before);
}

TEST_F(Damage, WhatCanBeReadIsRescued)
{
    damage();
    const QByteArray before = journey.database.bytes();
    journey.start();
    journey.inDialog("frmCheck", "mnuCheckCollection", [&](OpenDialog& window) {
        messages().heard.emplace();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !messages().heard->isEmpty(); }, 20000));
        EXPECT_EQ(messages().heard->join(u'|'), u""_s);
        window.click("cmdClose");
    });
    EXPECT_TRUE(journey.database.bytes() == before);
}

} // namespace
