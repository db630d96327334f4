// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"

namespace {

class Help : public ::testing::Test
{
protected:
    Help()
    {
        for (const char* name : {"index.html", "subjects.html", "records.html", "search.html"})
            writeFile(guideFolder() + QString::fromUtf8(name));
        writeFile(journey.database.folder() + u"/Kelmsett.chm"_s);
    }

    QString guideFolder() const { return journey.database.folder() + u"/help/"_s; }

    /// What was opened since the last time, without the folder.
    std::string opened()
    {
        QStringList& files = journey.desktop.shell.opened;
        const QString texts = files.join(u'|').remove(journey.database.folder() + u'/');
        files.clear();
        return texts.toStdString();
    }

    Journey journey;
};

TEST_F(Help, EveryWayToTheGuideOpensIt)
{
    journey.start();
    journey.trigger("mnuHelpContents");
    EXPECT_EQ(opened(), "Kelmsett.chm");
    QTest::keyClick(journey.program->window(), Qt::Key_F1);
    EXPECT_EQ(opened(), "Kelmsett.chm");
    EXPECT_EQ(journey.viewPanel(), u"Home Page"_s);

    journey.desktop.shell.unknown = {u".chm"_s};
    journey.trigger("mnuSearchForHelpOn");
    EXPECT_EQ(opened(), "Kelmsett.chm|help/subjects.html");

    QDir(guideFolder()).removeRecursively();
    journey.desktop.messages.expectMessageBeginning(
        u"mnuHelpContents Error (8): No program of the desktop opens the user's guide. ("_s);
    journey.trigger("mnuHelpContents");
}

TEST_F(Help, TheKeyInADialogOpensItsChapter)
{
    journey.start();
    for (const auto& [window, page] :
         {std::pair("frmDocument", "help/records.html"), std::pair("frmSearch", "help/search.html"),
          std::pair("frmAbout", "Kelmsett.chm")}) {
        QDialog dialog(journey.program->window());
        dialog.setObjectName(QString::fromUtf8(window));
        auto* field = new QLineEdit(&dialog);
        QTimer::singleShot(0, &dialog, [&] {
            QTest::keyClick(field, Qt::Key_F1);
            dialog.reject();
        });
        dialog.exec();
        EXPECT_EQ(opened(), page) << window;
    }
}

TEST_F(Help, TheAboutBoxTellsOfTheProgramAndTheDatabase)
{
    journey.database.run(
        "INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'a', 'ACTIVE')");
    journey.start();
    QTimer::singleShot(0, [this] {
        EXPECT_TRUE(journey.find<QLabel>("lblVersion").text().contains(u"Version 1."_s));
        EXPECT_TRUE(
            journey.find<QLabel>("lblDatabase")
                .text()
                .contains(journey.dataFolder() + u"test.sqlite<br>1 document, 0 events, 0 organizations"_s));
        QTextBrowser& licences = journey.find<QTextBrowser>("txtLicences");
        for (const char* part : {"GPL-3.0-or-later", "Qt Charts", "SQLite", "Census Bureau", "CC BY 4.0"})
            EXPECT_TRUE(licences.toPlainText().contains(QString::fromUtf8(part))) << part;
        Q_EMIT licences.anchorClicked(QUrl(u"https://www.sqlite.org/"_s));
        EXPECT_EQ(opened(), "https://www.sqlite.org/");
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });
    journey.trigger("mnuHelpAbout");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
