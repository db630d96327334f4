// SPDX-License-Identifier: GPL-3.0-or-later

#include "EditorJourney.h"

namespace {

class OrganizationEditor : public EditorJourney
{
protected:
    OrganizationEditor() : EditorJourney("frmOrganization", "journeys/rows/OrganizationEditor.sql")
    {
        writeFile(storedChart, "old chart");
        start("mnuViewOrganizations");
    }

    QString storedChart = journey.dataFolder() + u"orgcharts/2.pdf"_s;
};

TEST_F(OrganizationEditor, AddsARecordWithItsProfile)
{
    const QString chart = journey.database.folder() + u"/chart.png"_s;
    writeFile(chart, "chart");
    messages().expectMessage(u"Organization name is required."_s);
    messages().expectMessage(
        u"Organization with identical name already exists. Please choose a different name."_s);
    journey.desktop.fileDialogs.files = {chart};
    inEditor("mnuRecordAddNewOrganization", [&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.title(), "Add a New Organization");
        EXPECT_EQ(dialog.text("cmbOrgTypes") + dialog.text("cmbState") + dialog.text("cmbFunctions"),
                  "NoneNoneNone");
        dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.find<QTabWidget>("tabOrganization").currentIndex(), 0) << "where the name is";
        EXPECT_EQ(dialog.focus(), "txtOrganizationName");
        dialog.type("txtOrganizationName", u"ferry service"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtOrganizationName");
        dialog.type("txtOrganizationName", u"Bridge Office"_s);
        dialog.choose("cmbOrgTypes", u"State"_s);
        EXPECT_EQ(dialog.find<QComboBox>("cmbOrgSubTypes").itemText(1), u"Zoo"_s)
            << "by identifier, not by name";
        dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
        dialog.click("cmdUploadOrgChart");
        EXPECT_EQ(journey.desktop.fileDialogs.filters.join(u';').toStdString(), "All Files (*.*)| *.*");
        EXPECT_FALSE(dialog.find<QWidget>("fraChartWarning").isVisible());
        dialog.click("cmdOK");
    });
    EXPECT_TRUE(QFile::exists(journey.dataFolder() + u"orgcharts/3.png"_s));
    EXPECT_EQ(journey.column(0), "Bridge Office|Ferry Service");
}

TEST_F(OrganizationEditor, RefillsTheSubTypesOfAnotherType)
{
    editFirst([&](OpenDialog& dialog) {
        auto& subTypes = dialog.find<QComboBox>("cmbOrgSubTypes");
        EXPECT_EQ(dialog.text("cmbOrgSubTypes"), "Police");
        dialog.choose("cmbOrgTypes", u"Private"_s);
        EXPECT_EQ(subTypes.count(), 1);
        EXPECT_EQ(dialog.text("cmbOrgSubTypes"), "None");
        dialog.choose("cmbOrgTypes", u"State"_s);
        EXPECT_EQ(subTypes.count(), 3);
        EXPECT_EQ(dialog.text("cmbOrgSubTypes"), "None");
        discard(dialog, messages());
    });
}

TEST_F(OrganizationEditor, WarnsOfAChartThatASaveWouldDropAndTakesTheStoredCopy)
{
    editFirst([&](OpenDialog& dialog) {
        dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
        EXPECT_EQ(dialog.text("txtOrganizationChart"), "C:\\charts\\ferry.pdf");
        EXPECT_FALSE(dialog.find<QWidget>("fraChartWarning").isVisible());
        dialog.type("txtOrganizationChart", u"C:\\charts\\fery.pdf"_s);
        EXPECT_EQ(dialog.find<QLabel>("lblChartWarning").text(),
                  u"There is no file at this path. The stored copy stays."_s);
        EXPECT_FALSE(dialog.find<QWidget>("cmdTakeStoredChart").isVisible());
        dialog.type("txtOrganizationChart", u"C:\\charts\\ferry.doc"_s);
        EXPECT_TRUE(dialog.find<QWidget>("fraChartWarning").isVisible());
        dialog.click("cmdTakeStoredChart");
        EXPECT_FALSE(dialog.find<QWidget>("fraChartWarning").isVisible());
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT ChartOption, SwornEmployees, MissionStatement FROM OrganizationProfile"),
              "1|12|To ferry");
    EXPECT_EQ(rows("SELECT State, City, Lat FROM Organization WHERE OrganizationID = 2"), "XX|Astoria|46.2")
        << "a state that no table knows stays";
    EXPECT_EQ(contentOf(storedChart), "old chart");
}

TEST_F(OrganizationEditor, RefusesWhatIsNoNumberAndGoesThere)
{
    messages().expectMessage(
        u"Volunteers \"about 30\" is not a number of people. Please type a whole number, such as 1,250."_s);
    messages().expectMessage(
        u"Annual budget \"a lot\" is not a number. Please type one such as 1,250,000.50."_s);
    editFirst([](OpenDialog& dialog) {
        auto& tabs = dialog.find<QTabWidget>("tabOrganization");
        tabs.setCurrentIndex(1);
        dialog.type("txtVolunteers", u"about 30"_s);
        dialog.type("txtAnnualBudget", u"a lot"_s);
        tabs.setCurrentIndex(0);
        dialog.click("cmdOK");
        EXPECT_EQ(tabs.currentIndex(), 1);
        EXPECT_EQ(dialog.focus(), "txtVolunteers");
        EXPECT_EQ(dialog.text("txtVolunteers"), "about 30");
        dialog.type("txtVolunteers", u"1,300"_s);
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), "txtAnnualBudget");
        dialog.type("txtAnnualBudget", u"$2,000.5"_s);
        dialog.click("cmdOK");
    });
    EXPECT_EQ(rows("SELECT SwornEmployees, Volunteers, AnnualBudget FROM OrganizationProfile"),
              "12|1300|2000.5");
    EXPECT_EQ(rows("SELECT count(*) FROM Organization_HIST"), "1");
}

TEST_F(OrganizationEditor, DoesNotTakeALookAtTheOtherTabForAChange)
{
    editFirst([&](OpenDialog& dialog) {
        dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
        dialog.press(Qt::Key_Escape);
    });
    editFirst([&](OpenDialog& dialog) {
        dialog.find<QTabWidget>("tabOrganization").setCurrentIndex(1);
        dialog.tick("lvPopulations", u"Adults"_s);
        messages().expectQuestion(u"Close without saving your changes?"_s, true, Question::Discard);
        dialog.press(Qt::Key_Escape);
    });
}

TEST_F(OrganizationEditor, ShowsARecordWithoutWarningsAndOpensItsSite)
{
    QTest::mouseClick(journey.list().viewport(), Qt::LeftButton, {},
                      journey.list().visualRect(journey.list().model()->index(0, 0)).center());
    inDialog(
        "frmOrganization", [&] { QTest::keyClick(&journey.list(), Qt::Key_Return); },
        [&](OpenDialog& dialog) {
            EXPECT_EQ(dialog.title(), "Viewing Organization 2 (Read-Only)");
            EXPECT_FALSE(dialog.find<QWidget>("fraChartWarning").isVisibleTo(&dialog.dialog()));
            dialog.click("cmdOpenFile");
            EXPECT_EQ(journey.desktop.shell.opened, QStringList{storedChart});
            journey.desktop.shell.hasProgram = false;
            messages().expectMessage(u"There is no program to open this address: http://ferry.example"_s);
            QTest::mouseClick(&dialog.find<QWidget>("txtWebsite"), Qt::LeftButton);
            dialog.press(Qt::Key_Escape);
        });
}

} // namespace
