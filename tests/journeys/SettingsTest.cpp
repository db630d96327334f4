// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "platform/StdREG.h"

namespace {

class Settings : public testing::Test
{
protected:
    Settings() { journey.database.runFile("journeys/rows/Buttons.sql"); }

    /// Works in the window, which is closed by one of its buttons.
    void change(const std::function<void(OpenDialog&)>& work, const char* button = "cmdOK")
    {
        journey.inDialog("frmSettings", "mnuNavigateSettings", [&](OpenDialog& open) {
            work(open);
            open.click(button);
        });
    }

    QString setting(const char* name)
    {
        return StdREG(journey.desktop.settings).GetRegString(QString(), QString::fromUtf8(name));
    }

    void set(const char* name, const QString& value)
    {
        StdREG(journey.desktop.settings).WriteRegString(QString(), QString::fromUtf8(name), value);
    }

    [[nodiscard]] QString inTest(const char* path) const
    {
        return journey.database.folder() + u'/' + QString::fromUtf8(path);
    }

    Journey journey;
};

TEST_F(Settings, ListsFollowTheSizeOfTextAndTheYearsAtOnce)
{
    journey.start();
    journey.trigger("mnuViewEvents");
    const auto rowHeight = [this] {
        return journey.list().visualRect(journey.list().model()->index(0, 0)).height();
    };
    const auto width = [this](int column) { return journey.list().columnWidth(column); };
    const int height = rowHeight();
    const int icon = journey.list().iconSize().width();
    journey.list().header()->resizeSection(0, 333); // as by the mouse
    const int marker = width(1);
    journey.select("Flood");
    const std::string times = journey.column(2);

    change(
        [](OpenDialog& open) {
            open.find<QSpinBox>("spnListTextSize").setValue(150);
            open.find<QCheckBox>("chkFourDigitYears").click();
        },
        "cmdCancel");
    EXPECT_EQ(rowHeight(), height);
    EXPECT_EQ(journey.column(2), times);
    change([](OpenDialog& open) {
        open.find<QSpinBox>("spnListTextSize").setValue(200);
        open.find<QCheckBox>("chkFourDigitYears").click();
    });
    EXPECT_GT(rowHeight(), height * 3 / 2);
    EXPECT_EQ(journey.list().iconSize().width(),
              2 * QApplication::style()->pixelMetric(QStyle::PM_SmallIconSize));
    EXPECT_EQ(width(0), 333) << "the user's own";
    EXPECT_EQ(width(1), 2 * marker);
    EXPECT_EQ(times, "04/01/27 06:02 - 04/03/27 06:02");
    EXPECT_EQ(journey.column(2), "04/01/1927 06:02 - 04/03/1927 06:02");
    EXPECT_EQ(journey.selected(), "Flood");
    EXPECT_EQ(setting("ListTextSize"), u"200"_s);

    change([](OpenDialog& open) { open.find<QSpinBox>("spnListTextSize").setValue(100); });
    EXPECT_EQ(rowHeight(), height);
    EXPECT_EQ(journey.list().iconSize().width(), icon);
    EXPECT_EQ(width(1), marker);
}

TEST_F(Settings, TheWindowClosesUnaskedIfTheUserWantsThat)
{
    journey.start();
    change([](OpenDialog& open) { open.find<QCheckBox>("chkAskOnExit").click(); });
    journey.trigger("mnuNavigateExit");
    EXPECT_FALSE(journey.program->window()->isVisible());
}

TEST_F(Settings, TellOfTheBackupsThatAreKept)
{
    journey.start();
    change([&](OpenDialog& open) {
        EXPECT_EQ(open.text("txtBackups"), inTest("backups").toStdString());
        EXPECT_EQ(open.find<QLabel>("lblBackups").text(), u"There is no backup of the open database yet."_s);
        EXPECT_FALSE(open.find<QWidget>("cmdBackups").isEnabled());
    });
    for (const char* name : {"test 2005-06-14 120000.tar.zst", "test 2005-06-15 090500.tar.zst", "mine.zip"})
        writeFile(inTest("backups/") + QString::fromUtf8(name), QByteArray(600'000, 'x'));
    change([&](OpenDialog& open) {
        EXPECT_EQ(open.find<QLabel>("lblBackups").text(), u"2 backups of the open database, 1 MB"_s);
        open.click("cmdBackups");
        EXPECT_EQ(journey.desktop.shell.opened, QStringList(inTest("backups")));
        journey.desktop.shell.hasProgram = false;
        journey.desktop.messages.expectMessage(
            u"No program of the desktop opens folders. (%1)"_s.arg(inTest("backups")));
        open.click("cmdBackups");
    });
}

TEST_F(Settings, AFolderStandsForADiscAndMayBeMissing)
{
    writeFile(inTest("copy/OrvikDB/data/documents/3.pdf"));
    journey.database.run("UPDATE Document SET FileLocation = '3.pdf', ReleaseForm = 1 WHERE DocumentID = 3");
    journey.start();
    journey.trigger("mnuViewDocuments");
    change([&](OpenDialog& open) {
        auto& note = open.find<QWidget>("lblDataDisc");
        EXPECT_FALSE(note.isVisible());
        open.type("txtDataDisc", inTest("gone"));
        EXPECT_TRUE(note.isVisible());
        journey.desktop.fileDialogs.folders = {QString(), inTest("copy")};
        open.click("cmdDataDisc");
        EXPECT_EQ(open.text("txtDataDisc"), inTest("gone").toStdString()) << "nothing was chosen";
        open.click("cmdDataDisc");
        EXPECT_FALSE(note.isVisible());
        open.type("txtPhotosDisc", inTest("gone"));
    });
    EXPECT_EQ(setting("PhotosDiscFolder"), inTest("gone")) << "it may be there another time";
    journey.select("Brief");
    journey.trigger("mnuRecordOpen");
    EXPECT_EQ(journey.desktop.shell.opened, QStringList(inTest("copy/OrvikDB/data/documents/3.pdf")));
}

TEST_F(Settings, TheNextStartOpensTheChosenCollectionOnTheChosenPage)
{
    QDir().mkpath(inTest("other/data"));
    QFile::copy(journey.database.fileName(), inTest("other/data/other.sqlite"));
    journey.start();
    change([&](OpenDialog& open) {
        journey.desktop.fileDialogs.files = {inTest("other/data/other.sqlite")};
        open.click("cmdStartDatabase");
        EXPECT_EQ(open.text("cmbStartDatabase"), "other in " + inTest("other/data").toStdString());
        open.choose("cmbStartPage", u"Events"_s);
    });
    EXPECT_EQ(journey.viewPanel(), u"Home Page"_s) << "only at the next start";
    journey.start();
    EXPECT_EQ(journey.program->state().session.fileName(), inTest("other/data/other.sqlite"));
    EXPECT_EQ(setting("DBFile"), u"../other/data/other.sqlite"_s) << "what is open";
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);
    EXPECT_EQ(journey.historyMenu(), "Home Page|[View ALL Events]");

    QFile::remove(inTest("other/data/other.sqlite"));
    journey.desktop.messages.expectMessageBeginning(u"Form_Load Error (14): "_s);
    journey.start();
    EXPECT_EQ(journey.historyMenu(), "[Home Page]") << "no list without a database";
    change([&](OpenDialog& open) {
        EXPECT_TRUE(open.find<QWidget>("lblStartDatabase").isVisible());
        open.choose("cmbStartDatabase", u"The one that was open last"_s);
        EXPECT_FALSE(open.find<QWidget>("lblStartDatabase").isVisible());
    });
    journey.start();
    EXPECT_EQ(journey.program->state().session.fileName(), journey.dataFolder() + u"test.sqlite"_s);
}

} // namespace
