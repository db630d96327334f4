// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "browse/list/RecordListModel.h"

namespace {

class OpenFilesJourney : public testing::Test
{
protected:
    OpenFilesJourney()
    {
        journey.database.runFile("journeys/rows/OpenFiles.sql");
        put(u"/data/documents/2.pdf"_s);
        put(u"/data/orgcharts/2.png"_s);
        put(u"/disc/OrvikDB/data/documents/3.pdf"_s);
        put(u"/photos/OrvikDB/data/documents/4.jpg"_s);
        journey.start();
    }

    void put(const QString& path) const { writeFile(root() + path); }

    [[nodiscard]] QString root() const { return journey.database.folder(); }

    /// Opens the record of that name, and returns what the desktop was asked to open.
    std::string open(const char* name)
    {
        journey.select(name);
        journey.trigger("mnuRecordOpen");
        return opened();
    }

    /// The key of the icon of the row that shows that name.
    std::string icon(const char* name)
    {
        auto& model = dynamic_cast<RecordListModel&>(*journey.list().model());
        const auto rows = model.match(model.index(0, 0), Qt::DisplayRole, QString::fromUtf8(name));
        return rows.isEmpty() ? std::string() : model.iconKey(rows.front().row()).toStdString();
    }

    std::string opened()
    {
        const QString files = journey.desktop.shell.opened.join(u' ');
        journey.desktop.shell.opened.clear();
        return QString(files).remove(root()).toStdString();
    }

    Journey journey;
};

TEST_F(OpenFilesJourney, OpensADocumentWhereverItLies)
{
    auto& desktop = journey.desktop;
    journey.trigger("mnuViewDocuments");
    EXPECT_EQ(open("Local"), "/data/documents/2.pdf");
    const QString noDisc = u"Unable to find the Orvik CD. Please insert the CDROM."_s;
    desktop.messages.expectMessage(noDisc);
    EXPECT_EQ(open("On disc"), "");
    desktop.volumes.volumes = {{u"Orvik"_s, root() + u"/disc"_s}};
    EXPECT_EQ(open("On disc"), "/disc/OrvikDB/data/documents/3.pdf");
    desktop.volumes.volumes.push_back({u"Orvik_Photos"_s, root() + u"/photos"_s});
    EXPECT_EQ(open("Photo"), "/photos/OrvikDB/data/documents/4.jpg");

    // a row's icon says what opening it will find
    put(u"/data/documents/Plan: 7.pdf"_s);
    put(u"/data/documents/plan\\8.pdf"_s);
    journey.database.run(
        "INSERT INTO Document (DocumentID, DocumentName, FileTypeID, ReleaseForm, FileLocation, dStatus) "
        "VALUES "
        "(7, 'Colon', 2, 0, 'Plan: 7.pdf', 'ACTIVE'), (8, 'No name', 2, 1, 'plan\\8.pdf', 'ACTIVE')");
    journey.trigger("mnuViewRefresh");
    EXPECT_EQ(icon("Colon"), "d2");
    EXPECT_EQ(open("Colon"), "/data/documents/Plan: 7.pdf");
    EXPECT_EQ(icon("No name"), "d2cd");
    desktop.messages.expectMessage(u"File not found: %1/data/documents/plan\\8.pdf"_s.arg(root()));
    EXPECT_EQ(open("No name"), "");

    // the row was seen while the file was there
    QFile::remove(root() + u"/data/documents/2.pdf"_s);
    desktop.messages.expectMessage(u"File not found: %1/data/documents/2.pdf"_s.arg(root()));
    EXPECT_EQ(open("Local"), "");
}

TEST_F(OpenFilesJourney, OpensAChartOrSaysThatThereIsNone)
{
    journey.trigger("mnuViewOrganizations");
    EXPECT_EQ(open("Charted"), "/data/orgcharts/2.png");
    journey.desktop.messages.expectMessage(u"No chart currently associated with this organization."_s);
    EXPECT_EQ(open("Plain"), "");
}

TEST_F(OpenFilesJourney, OpensSeveralAndTellsWhatCouldNotBeOpenedOnce)
{
    auto& desktop = journey.desktop;
    journey.trigger("mnuViewDocuments");
    journey.list().selectAll();
    desktop.messages.expectMessage(u"Unable to find the Orvik CD. Please insert the CDROM.\n"
                                   "Unable to find the Orvik_Photos CD. Please insert the CDROM.\n"
                                   "Copyright permissions not granted.\n"
                                   "File not found: %1/data/documents/../../6.pdf"_s.arg(root()));
    journey.trigger("mnuRecordOpen");
    EXPECT_EQ(opened(), "/data/documents/2.pdf");

    // more than five ask first
    journey.database.run("INSERT INTO Document (DocumentID, DocumentName, FileTypeID, ReleaseForm, "
                         "FileLocation, dStatus) VALUES (7, 'Also on disc', 2, 1, '7.pdf', 'ACTIVE')");
    journey.trigger("mnuViewRefresh");
    journey.list().selectAll();
    desktop.messages.expectQuestion(u"Are you sure you want to open 6 documents?"_s, false);
    journey.trigger("mnuRecordOpen");
    EXPECT_EQ(opened(), "");
    desktop.messages.expectQuestion(u"Are you sure you want to open 6 documents?"_s, true);
    desktop.messages.expectMessage(u"Unable to find the Orvik CD. Please insert the CDROM.\n"
                                   "Unable to find the Orvik_Photos CD. Please insert the CDROM.\n"
                                   "Copyright permissions not granted.\n"
                                   "File not found: %1/data/documents/../../6.pdf"_s.arg(root()));
    journey.trigger("mnuRecordOpen");
    EXPECT_EQ(opened(), "/data/documents/2.pdf");
}

TEST_F(OpenFilesJourney, TellsOfTenFilesAtMost)
{
    journey.database.run("UPDATE Document SET dStatus = 'DELETED'");
    QStringList lines;
    for (int id = 20; id < 32; ++id) {
        journey.database.run(u"INSERT INTO Document (DocumentID, DocumentName, ReleaseForm, "
                             "FileLocation, dStatus) VALUES (%1, %1, 1, '../%1', 'ACTIVE')"_s.arg(id));
        if (lines.size() < 10) lines << u"File not found: %1/data/documents/../%2"_s.arg(root()).arg(id);
    }
    journey.trigger("mnuViewDocuments");
    journey.list().selectAll();
    journey.desktop.messages.expectQuestion(u"Are you sure you want to open 12 documents?"_s, true);
    journey.desktop.messages.expectMessage(lines.join(u'\n') + u"\n… and 2 more."_s);
    journey.trigger("mnuRecordOpen");
}

TEST_F(OpenFilesJourney, CopiesTheSelectedRowsAsTextAndAsATable)
{
    journey.database.run(
        "UPDATE Document SET Author = 'Smith & <b> ' || char(9) || 'Sons' || char(10) || 'Ltd' "
        "WHERE DocumentID = 2");
    journey.trigger("mnuViewDocuments");
    journey.list().selectAll();
    QTest::keyClick(&journey.list(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData& copied = *QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied.text().section(u'\n', 0, 1).toStdString(),
              "Local\t\tSmith & <b>  Sons Ltd\t\tPDF\t\nOn disc\t\t\t\tPDF\t");
    EXPECT_EQ(copied.text().count(u'\n'), 5);
    EXPECT_TRUE(copied.html().contains(u"<tr><td>Local</td><td></td><td>Smith &amp; &lt;b&gt;  Sons Ltd"_s))
        << copied.html().toStdString();
}

} // namespace
