// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "support/TestFileTexts.h"
#include "widgets/LinkButton.h"
#include "widgets/ReadablePalette.h"

namespace {

/// What reports a failure of a search, by the number of its option.
const QStringList procedures{u"showSearchResults"_s, u"showDocuments"_s, u"showEvents"_s,
                             u"showOrganizations"_s};

class KeywordSearchJourney : public testing::Test
{
protected:
    KeywordSearchJourney()
    {
        journey.database.runFile("journeys/rows/KeywordSearch.sql");
        journey.start();
    }

    QDialog& dialog() { return journey.find<QDialog>("frmSearch"); }
    QRadioButton& option(int index)
    {
        return journey.find<QRadioButton>(("optSearch(" + std::to_string(index) + ")").c_str());
    }
    QLineEdit& keywords() { return journey.find<QLineEdit>("txtKeywords"); }
    QCheckBox& files() { return journey.find<QCheckBox>("chkFiles"); }
    LinkButton& link(const char* name) { return journey.find<LinkButton>(name); }

    void searchFor(const QString& text, int scope, bool inFiles = false)
    {
        QTest::keyClick(journey.program->window(), Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(dialog().isVisible());
        option(scope).setChecked(true);
        keywords().setText(text);
        files().setChecked(inFiles);
        QTest::keyClick(&keywords(), Qt::Key_Return);
        EXPECT_FALSE(dialog().isVisible());
    }

    /// Gives the document `Map` a file, as if its text had been read.
    void addFile()
    {
        journey.database.run("UPDATE Document SET FileLocation = 'map.pdf' WHERE DocumentID = 4");
        writeFile(journey.dataFolder() + u"documents/map.pdf"_s);
        writeFileTexts(journey.dataFolder() + u"test.sqlite"_s,
                       {{"map.pdf", "The county shall plan for fires."}});
    }

    void deleteIndex() { QFile::remove(FileTextIndex::pathOf(journey.dataFolder() + u"test.sqlite"_s)); }

    QString summary() { return journey.find<QLabel>("lblSummary").text(); }

    /// The three links of the results page, those that lead nowhere in brackets.
    std::string kinds()
    {
        QStringList labels;
        for (int i = 0; i < 3; ++i) {
            const LinkButton& kind = link(("lblResult(" + std::to_string(i) + ")").c_str());
            labels << (kind.isEnabled() ? kind.text() : u'[' + kind.text() + u']');
        }
        return labels.join(u'|').toStdString();
    }

    bool showsMarks() { return journey.showsMarks(); }

    Journey journey;
};

TEST_F(KeywordSearchJourney, FindsRecordsOfOneKindAndMarksTheWords)
{
    searchFor(u"fire PLAN"_s, 1);
    EXPECT_EQ(journey.column(0), "Fire plan|Report");
    EXPECT_EQ(journey.viewPanel(), u"Document Search for \"fire PLAN\""_s);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 2 Documents"_s);
    EXPECT_TRUE(showsMarks());

    searchFor(u"fire"_s, 2);
    EXPECT_EQ(journey.column(0), "Fire & flood");
    EXPECT_EQ(journey.viewPanel(), u"Event Search for \"fire\""_s);
    searchFor(u"agency"_s, 3);
    EXPECT_EQ(journey.column(0), "Agency");
    EXPECT_EQ(
        journey.historyMenu(),
        "Home Page|Document Search for \"fire PLAN\"|Event Search for \"fire\"|[Organization Search for "
        "\"agency\"]");

    journey.trigger("mnuViewDocuments");
    EXPECT_FALSE(showsMarks());
    journey.find<QAction>("mnuHistoryList(1)").trigger();
    EXPECT_EQ(journey.column(0), "Fire plan|Report");
    EXPECT_TRUE(showsMarks());
}

TEST_F(KeywordSearchJourney, FindsDocumentsByTheirFilesAndShowsThePlace)
{
    addFile();
    searchFor(u"fire plan"_s, 1);
    EXPECT_EQ(journey.column(0), "Fire plan|Report");
    const int oneLine = journey.list().visualRect(journey.list().model()->index(0, 0)).height();
    searchFor(u"fire plan"_s, 1, true);
    EXPECT_EQ(journey.viewPanel(), u"Document Search for \"fire plan\""_s);
    EXPECT_EQ(journey.column(0), "Fire plan|Report|Map");
    const QModelIndex map = journey.list().model()->index(2, 0);
    EXPECT_EQ(map.data(Qt::AccessibleTextRole).toString(), u"Map\nThe county shall plan for fires."_s);
    EXPECT_EQ(map.siblingAtRow(0).data(Qt::AccessibleTextRole).toString(), u"Fire plan"_s);
    for (int row = 0; row < 3; ++row)
        EXPECT_GE(journey.list().visualRect(map.siblingAtRow(row)).height(), oneLine * 3 / 2);

    searchFor(u"COUNT"_s, 1, true);
    EXPECT_EQ(journey.column(0), "Map");
    EXPECT_TRUE(showsMarks()) << "its name has no word to mark";
    const QImage unselected = journey.list().grab().toImage();
    journey.select("Map");
    EXPECT_TRUE(showsMarks());
    EXPECT_NE(journey.list().grab().toImage(), unselected);
    journey.trigger("mnuViewDocuments");
    EXPECT_FALSE(showsMarks());
    EXPECT_EQ(journey.list().visualRect(journey.list().model()->index(0, 0)).height(), oneLine);

    // shown again, it searches again
    deleteIndex();
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.column(0), "");
    EXPECT_EQ(journey.find<QLabel>("lblEmptyResult").text(),
              u"Nothing was found for \"COUNT\".\nThe files have not been read yet."_s);
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.column(0), "Fire plan|Report");
    EXPECT_EQ(journey.find<QLabel>("pnlNotice").text(), u"The files have not been read yet."_s);
}

TEST_F(KeywordSearchJourney, OnlyDocumentsHaveFilesAndTheBoxIsRemembered)
{
    addFile();
    searchFor(u"county"_s, 0, true);
    EXPECT_EQ(kinds(), "[0 Documents]|[0 Events]|[0 Organizations]");
    EXPECT_EQ(link("lblFiles").text(), u"1 Document with the words in its file"_s);
    EXPECT_TRUE(link("lblFiles").hasFocus());
    EXPECT_FALSE(journey.find<QLabel>("lblFilesNote").isVisible());
    QTest::mouseClick(&link("lblFiles"), Qt::LeftButton);
    EXPECT_EQ(journey.viewPanel(), u"File Search Results for \"county\""_s);
    EXPECT_EQ(journey.column(0), "Map");
    EXPECT_TRUE(showsMarks());

    journey.trigger("mnuSearchKeyword");
    EXPECT_TRUE(files().isChecked() && files().isEnabled());
    option(2).setChecked(true);
    EXPECT_FALSE(files().isEnabled());
    EXPECT_EQ(files().toolTip(), u"Only documents have files that are searched."_s);
    dialog().close();
    searchFor(u"fire"_s, 2, true);
    EXPECT_EQ(journey.column(0), "Fire & flood");

    EXPECT_EQ(journey.historyMenu(), "Home Page|Search Results for \"county\"|File Search Results for "
                                     "\"county\"|[Event Search for \"fire\"]");
    deleteIndex();
    journey.find<QAction>("mnuHistoryList(1)").trigger();
    EXPECT_FALSE(link("lblFiles").isEnabled());
    EXPECT_EQ(journey.find<QLabel>("lblFilesNote").text(), u"The files have not been read yet."_s);
    searchFor(u"county"_s, 0);
    EXPECT_FALSE(link("lblFiles").isVisible());
    journey.trigger("mnuSearchKeyword");
    EXPECT_FALSE(files().isChecked());
    // what is chosen without a search is forgotten
    files().setChecked(true);
    dialog().close();
    journey.trigger("mnuSearchKeyword");
    EXPECT_FALSE(files().isChecked());
}

TEST_F(KeywordSearchJourney, OpensAsTheViewSuggestsWithTheLastTextSelected)
{
    const std::tuple<const char*, int, bool> cases[] = {{"mnuNavigateHome", 0, false},
                                                        {"mnuViewDocuments", 1, true},
                                                        {"mnuViewEvents", 2, true},
                                                        {"mnuViewOrganizations", 3, true}};
    for (const auto& [command, scope, live] : cases) {
        journey.trigger(command);
        journey.trigger("mnuSearchKeyword");
        EXPECT_TRUE(option(scope).isChecked()) << command;
        EXPECT_EQ(link("lblAdvancedSearch").colour() == QColor(0, 0, 255), live) << command;
        EXPECT_EQ(keywords().text(), QString());
        QTest::keyClick(&dialog(), Qt::Key_Escape);
        EXPECT_FALSE(dialog().isVisible());
    }

    searchFor(u" fire "_s, 1);
    EXPECT_EQ(journey.viewPanel(), u"Document Search for \" fire \""_s);
    EXPECT_EQ(journey.column(0), "Report") << "the blank before it belongs to the word";
    journey.trigger("mnuNavigateHome");
    QTest::mouseClick(&journey.find<QAbstractButton>("Image1(3)"), Qt::LeftButton);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_EQ(keywords().text(), u" fire "_s);
    EXPECT_EQ(keywords().selectedText(), u" fire "_s);
    // what is typed without a search is forgotten
    keywords().setText(u"other"_s);
    dialog().close();
    journey.trigger("mnuSearchKeyword");
    EXPECT_EQ(keywords().text(), u" fire "_s);
}

TEST_F(KeywordSearchJourney, SaysWhatIsWrongWithTheWords)
{
    journey.trigger("mnuSearchKeyword");
    for (const QString& text : {u""_s, u"   "_s}) {
        keywords().setText(text);
        journey.desktop.messages.expectMessage(u"No keyword entered."_s);
        QTest::mouseClick(&journey.find<QPushButton>("cmdGO"), Qt::LeftButton);
        journey.desktop.messages.finish();
        EXPECT_TRUE(dialog().isVisible());
    }
    EXPECT_EQ(journey.program->state().history.count(), 1u);

    option(0).setChecked(true);
    journey.desktop.messages.expectMessage(u"Advanced Search not available when searching All"_s);
    QTest::mouseClick(&link("lblAdvancedSearch"), Qt::LeftButton);
    journey.desktop.messages.finish();
    EXPECT_TRUE(dialog().isVisible());
    dialog().close();

    searchFor(u"a b c d"_s, 1);
    EXPECT_EQ(journey.column(0), "");
    journey.desktop.messages.expectMessage(u"Search Limited to 4 Keywords. First 4 Keywords used."_s);
    searchFor(u"plan a for fires xylophone"_s, 0);
    journey.desktop.messages.finish();
    EXPECT_EQ(kinds(), "1 Document|[0 Events]|[0 Organizations]");
    // not said again when the search is shown again
    journey.trigger("mnuNavigateHome");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(kinds(), "1 Document|[0 Events]|[0 Organizations]");
}

TEST_F(KeywordSearchJourney, ShowsWhatItFoundOfEachKind)
{
    searchFor(u"fire"_s, 0);
    EXPECT_TRUE(journey.find<QWidget>("pnlSearchResults").isVisible());
    EXPECT_EQ(journey.viewPanel(), u"Search Results for \"fire\""_s);
    EXPECT_EQ(summary(),
              u"Your keyword search for \"fire\" found 3 items. Click on the results you would like "
              "to view or click the Search icon to try again."_s);
    EXPECT_EQ(kinds(), "2 Documents|1 Event|[0 Organizations]");
    EXPECT_FALSE(link("lblRecord").isVisible());
    EXPECT_TRUE(link("lblResult(0)").hasFocus());

    QTest::keyClick(&link("lblResult(0)"), Qt::Key_Return);
    EXPECT_EQ(journey.viewPanel(), u"Document Search Results for \"fire\""_s);
    EXPECT_EQ(journey.column(0), "Fire plan|Report");
    journey.trigger("mnuNavigateBack");
    QTest::mouseClick(&link("lblResult(1)"), Qt::LeftButton);
    EXPECT_EQ(journey.viewPanel(), u"Event Search Results for \"fire\""_s);
    EXPECT_EQ(journey.column(0), "Fire & flood");
    // the captions of the commands stay their own
    journey.trigger("mnuViewEvents");
    EXPECT_EQ(journey.viewPanel(), u"View ALL Events"_s);

    // reached by Back, a search shows its own records as they are now
    searchFor(u"fire"_s, 0);
    searchFor(u"quake"_s, 0);
    EXPECT_EQ(kinds(), "[0 Documents]|1 Event|[0 Organizations]");
    journey.database.run("UPDATE Document SET dStatus = 'DELETED' WHERE DocumentID = 3");
    journey.trigger("mnuNavigateBack");
    EXPECT_EQ(journey.viewPanel(), u"Search Results for \"fire\""_s);
    EXPECT_EQ(kinds(), "1 Document|1 Event|[0 Organizations]");
    QTest::mouseClick(&link("lblResult(0)"), Qt::LeftButton);
    EXPECT_EQ(journey.column(0), "Fire plan");
}

TEST_F(KeywordSearchJourney, TheOnlyResultIsOneClickAway)
{
    searchFor(u"flood"_s, 0);
    EXPECT_EQ(summary(),
              u"Your keyword search for \"flood\" found 1 item. Click on the result to view this item "
              "or click the Search icon to try again."_s);
    EXPECT_EQ(kinds(), "[0 Documents]|1 Event|[0 Organizations]");
    const LinkButton& none = link("lblResult(0)");
    EXPECT_TRUE(ReadablePalette::canBeRead(none.colour(), none.palette().color(QPalette::Window)));
    EXPECT_EQ(link("lblRecord").text(), u"Fire & flood"_s);
    EXPECT_TRUE(link("lblRecord").hasFocus());
    inDialog(
        "frmEvent", [this] { QTest::mouseClick(&link("lblRecord"), Qt::LeftButton); },
        [](OpenDialog& dialog) {
            EXPECT_EQ(dialog.text("txtEventName"), "Fire & flood");
            dialog.click("cmdCancel");
        });
    EXPECT_EQ(kinds(), "[0 Documents]|1 Event|[0 Organizations]") << "the results are still there";
}

TEST_F(KeywordSearchJourney, AnEmptyResultLeadsBackToTheSearch)
{
    searchFor(u"xylophone"_s, 0);
    EXPECT_EQ(summary(),
              u"Your keyword search for \"xylophone\" found 0 items. Click on the Search icon to try "
              "again."_s);
    EXPECT_EQ(kinds(), "[0 Documents]|[0 Events]|[0 Organizations]");
    QTest::mouseClick(&journey.find<QToolButton>("imgSearch"), Qt::LeftButton);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(keywords().selectedText(), u"xylophone"_s);
    dialog().close();

    searchFor(u"xylophone"_s, 3);
    EXPECT_EQ(journey.statusPanel(), u"Displaying 0 Organizations"_s);
    EXPECT_EQ(journey.find<QLabel>("lblEmptyResult").text(), u"Nothing was found for \"xylophone\"."_s);
    EXPECT_TRUE(link("lblSearchAgain").isVisible());
    for (const int width : {120, 400, 2000}) {
        journey.find<QSplitter>("splitter").setSizes({2000 - width, width});
        QTest::qWait(0);
        const QRect room = journey.list().viewport()->geometry();
        const QRect notice = journey.find<QWidget>("EmptyResultNotice").geometry();
        EXPECT_TRUE(room.contains(notice)) << room.width();
        EXPECT_LE((notice.center() - room.center()).manhattanLength(), 2) << room.width();
    }
    QTest::mouseClick(&link("lblSearchAgain"), Qt::LeftButton);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_TRUE(option(3).isChecked());
    dialog().close();
    journey.trigger("mnuViewOrganizations");
    EXPECT_FALSE(link("lblSearchAgain").isVisible());
}

TEST_F(KeywordSearchJourney, AFailedSearchIsReportedOnceAndBackLeadsFromIt)
{
    const QByteArray rows = journey.database.bytes();
    for (const QString& text : {u"o'clock"_s, u"'"_s, u"%'; DELETE FROM Document"_s, u"%')) OR ((1=1"_s}) {
        for (int scope = 0; scope <= 3; ++scope) {
            journey.trigger("mnuViewDocuments");
            const QString before = journey.viewPanel();
            journey.desktop.messages.expectMessageBeginning(procedures[scope] + u" Error ("_s);
            searchFor(text, scope);
            journey.desktop.messages.finish();
            EXPECT_TRUE(journey.viewPanel().endsWith(u'"' + text + u'"'));
            journey.trigger("mnuSearchKeyword");
            EXPECT_EQ(keywords().text(), text);
            dialog().close();
            journey.trigger("mnuNavigateBack");
            EXPECT_EQ(journey.viewPanel(), before);
            EXPECT_EQ(journey.column(0), "Fire plan|Map|Report");
        }
    }
    EXPECT_TRUE(journey.database.bytes() == rows);
}

TEST_F(KeywordSearchJourney, ALongTextOrMarkupIsShownAsItIs)
{
    for (const QString& text : {u"&amp; <b>"_s, QString(30000, u'x')}) {
        for (int scope = 0; scope <= 3; ++scope)
            searchFor(text, scope);
        EXPECT_EQ(journey.list().model()->rowCount(), 0);
        EXPECT_TRUE(journey.viewPanel().startsWith(u"Organization Search for \"%1"_s.arg(text.left(9))));
    }
    EXPECT_LE(journey.program->window()->minimumSizeHint().width(), 1280) << "a long text must not widen it";
}

} // namespace
