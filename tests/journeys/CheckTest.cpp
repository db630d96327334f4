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
        journey.database.run(u"INSERT INTO Document (DocumentID, DocumentName, FileLocation, FileTypeID, "
                             "OrganizationID, dStatus) VALUES (%1, '%2', '%1.pdf', 1, 1, 'ACTIVE')"_s
                                 .arg(identifier)
                                 .arg(QString::fromUtf8(name)));
        const QString hash = QString::fromLatin1(hashOf(content).toHex());
        journey.database.run(
            u"INSERT INTO Journal (Step, Moment, What, Kind, Identifier, Title, After) VALUES (%1, "
            "'2005-06-15 12:00:00', 'ADD', 'Document', %1, '%2', "
            "'{\"Uploads\":[{\"Folder\":\"documents\",\"Name\":\"%1.pdf\",\"Hash\":\"%3\"}]}')"_s
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

    /// Overwrites the page of the file in which a text stands.
    void garble(const QByteArray& text) const
    {
        constexpr qsizetype page = 4096;
        QByteArray content = journey.database.bytes();
        const qsizetype place = content.indexOf(text) / page * page;
        ASSERT_GT(place, 0);
        writeFile(journey.database.fileName(), content.replace(place, page, QByteArray(page, 'x')));
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

} // namespace
