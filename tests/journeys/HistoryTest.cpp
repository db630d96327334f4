// SPDX-License-Identifier: GPL-3.0-or-later

// What a user sees of a record's versions, and how one of them is brought back.

#include "EditorJourney.h"

namespace {

class RecordHistory : public EditorJourney
{
protected:
    RecordHistory() : EditorJourney("frmEvent", "journeys/rows/EventEditor.sql") { start("mnuViewEvents"); }

    /// Edits the first event, a minute later.
    void edit(const std::function<void(OpenDialog&)>& work)
    {
        journey.desktop.clock.moment = journey.desktop.clock.moment.addSecs(60);
        editFirst([&](OpenDialog& dialog) {
            work(dialog);
            dialog.click("cmdOK");
        });
    }

    void inHistory(const std::function<void(OpenDialog&)>& work)
    {
        journey.inDialog("frmHistory", "mnuRecordHistory", [&](OpenDialog& history) {
            work(history);
            if (history.dialog().isVisible()) history.click("cmdClose");
        });
    }

    static void select(OpenDialog& history, int row)
    {
        auto& list = history.find<QTreeView>("lvVersions");
        list.setCurrentIndex(list.model()->index(row, 0));
    }

    /// What and which fields, one version a line.
    static std::string versions(OpenDialog& history)
    {
        const QAbstractItemModel& model = *history.find<QTreeView>("lvVersions").model();
        QStringList lines;
        for (int row = 0; row < model.rowCount(); ++row)
            lines << model.index(row, 1).data().toString() + u": "_s + model.index(row, 2).data().toString();
        return lines.join(u'\n').toStdString();
    }

    /// What the comparison marks: what is struck out in brackets, what is underlined in braces.
    static std::string marked(OpenDialog& history)
    {
        const QTextDocument& document = *history.find<QTextEdit>("rtbComparison").document();
        QStringList marks;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QTextCharFormat format = part.fragment().charFormat();
                if (!format.hasProperty(QTextFormat::BackgroundBrush)) continue;
                const QString text = part.fragment().text();
                marks << (format.fontStrikeOut()   ? u'[' + text + u']'
                          : format.fontUnderline() ? u'{' + text + u'}'
                                                   : text);
            }
        }
        return marks.join(u'|').toStdString();
    }

    static std::string shown(OpenDialog& history)
    {
        return history.find<QTextEdit>("rtbComparison").toPlainText().toStdString();
    }

    static bool canRestore(OpenDialog& history)
    {
        return history.find<QPushButton>("cmdRestore").isEnabled();
    }
};

TEST_F(RecordHistory, ShowsWhatWasEditedWronglyAndBringsTheFirstVersionBack)
{
    edit([](OpenDialog& dialog) {
        dialog.type("rtbEventDescription", u"Very high water"_s);
        dialog.tick("lvVenues", u"Coast"_s);
    });
    edit([](OpenDialog& dialog) {
        dialog.type("txtEventName", u"Drought"_s);
        dialog.type("rtbEventDescription", u"Very low water"_s);
        dialog.type("dtpStartDate", QString());
    });
    EXPECT_EQ(journey.column(0), "Drought");
    choose(0);
    inHistory([](OpenDialog& history) {
        EXPECT_EQ(history.title(), "History of Event \"Drought\"");
        EXPECT_EQ(versions(history), "Changed: Title, Description, Start date\n"
                                     "Changed: Description, Venues\n"
                                     "First known: ");
        EXPECT_FALSE(canRestore(history)) << "it is so";
        EXPECT_EQ(marked(history), "[Flood]|{Drought}|[high]|{low}|[04/21/1927]");
        select(history, 1);
        EXPECT_EQ(marked(history), "[High]|{Very high}|+ Coast");
        EXPECT_EQ(shown(history).find("Title"), std::string::npos);
        history.click("chkOnlyDifferences");
        EXPECT_NE(shown(history).find("Title"), std::string::npos);
        history.click("chkOnlyDifferences");
        select(history, 2);
        EXPECT_EQ(marked(history), "") << "there is nothing before it";
        history.find<QTreeView>("lvVersions").selectAll();
        EXPECT_EQ(marked(history), "[Flood]|{Drought}|[High]|{Very low}|[04/21/1927]|+ Coast");
        EXPECT_FALSE(canRestore(history)) << "three are selected";
        select(history, 2);
        ASSERT_TRUE(canRestore(history));
        history.click("cmdRestore");
        EXPECT_EQ(versions(history).substr(0, 54), "Restored: Title, Description, Start date, Venues\nChang");
        EXPECT_FALSE(canRestore(history));
        select(history, 3);
        EXPECT_FALSE(canRestore(history)) << "the record is like this version again";
    });
    EXPECT_EQ(journey.column(0), "Flood");
    EXPECT_EQ(journey.selected(), "Flood");
    EXPECT_EQ(rows("SELECT EventDescription, StartDate, StartTime FROM Event WHERE EventID = 2"),
              "High water|1927-04-21|07:30:45");
    EXPECT_EQ(rows("SELECT VenueID FROM EventVenues WHERE EventID = 2"), "2");
}

TEST_F(RecordHistory, OpensFromAViewedRecordWhichThenShowsWhatWasRestored)
{
    edit([](OpenDialog& dialog) { dialog.type("txtEventName", u"Drought"_s); });
    choose(0);
    inEditor("mnuRecordView", [&](OpenDialog& view) {
        view.inDialog("frmHistory", "cmdHistory", [](OpenDialog& history) {
            select(history, 1);
            history.click("cmdRestore");
            history.press(Qt::Key_Escape);
        });
        EXPECT_EQ(view.text("txtEventName"), "Flood");
        EXPECT_TRUE(view.find<QLineEdit>("txtEventName").isReadOnly());
        EXPECT_EQ(journey.column(0), "Flood") << "the list behind it shows the same";
        view.click("cmdOK");
        EXPECT_FALSE(view.find<QPushButton>("cmdHistory").isVisible()) << "what is typed would be lost";
        view.click("cmdCancel");
    });
}

TEST_F(RecordHistory, TellsOfWhatCannotBeRestored)
{
    edit([](OpenDialog& dialog) {
        dialog.type("txtEventName", u"Drought"_s);
        dialog.tick("lvVenues", u"Forest"_s);
        dialog.tick("lvVenues", u"Coast"_s);
    });
    choose(0);
    inHistory([this](OpenDialog& history) {
        journey.database.run(
            "UPDATE Event SET Notes = 'elsewhere' WHERE EventID = 2; DELETE FROM Venue WHERE VenueID = 2;");
        select(history, 1);
        messages().expectMessage(
            u"This record was changed after you opened its history, so nothing was restored. "
            "The list now shows that change, too."_s);
        history.click("cmdRestore");
        EXPECT_EQ(versions(history), "Changed elsewhere: Notes\nChanged: Title, Venues\nFirst known: ");
        select(history, 2);
        messages().expectMessage(
            u"1 link was not restored, since it leads to something that is no longer in the database:\n\n"
            "Venues: Forest"_s);
        history.click("cmdRestore");
        EXPECT_EQ(versions(history).substr(0, 30), "Restored: Title, Notes, Venues");
    });
    EXPECT_EQ(rows("SELECT * FROM EventVenues WHERE EventID = 2"), "");
    EXPECT_EQ(journey.column(0), "Flood");
}

} // namespace
