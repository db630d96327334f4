// SPDX-License-Identifier: GPL-3.0-or-later

#include "Journey.h"
#include "support/OtherPrograms.h"
#include "support/SizeLimit.h"

#include <QPrinter>

namespace {

QString outputOf(const QString& program, const QStringList& arguments)
{
    const ProgramRun run = runProgram(program, arguments);
    EXPECT_TRUE(run.hasEndedWell) << program.toStdString() << ": " << run.errors.toStdString();
    return QString::fromUtf8(run.output);
}

/// A PDF file as another program reads it.
struct ReadPdf
{
    explicit ReadPdf(const QString& file)
        : facts(outputOf(u"pdfinfo"_s, {file}).replace(QRegularExpression(u" +"_s), u" "_s)),
          words(outputOf(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s})),
          pages(outputOf(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s}).split(u'\f'))
    {
        pages.removeLast(); // after the last form feed
    }

    /// Whether there is room below all words of each page that printers may leave white.
    [[nodiscard]] bool hasMargin() const
    {
        double bottom = 0;
        for (const QRegularExpressionMatch& match :
             QRegularExpression(u"height=\"([0-9.]+)\"|yMax=\"([0-9.]+)\""_s).globalMatch(words)) {
            constexpr int margin = 36;
            if (match.hasCaptured(1)) bottom = match.captured(1).toDouble() - margin;
            if (match.captured(2).toDouble() > bottom) return false;
        }
        return bottom > 0;
    }

    QString facts;
    QString words;     ///< with their places
    QStringList pages; ///< the text of each
};

/// All that an expression finds, in its order, joined by blanks.
QString found(const QString& text, const QString& expression)
{
    QStringList all;
    for (const QRegularExpressionMatch& match : QRegularExpression(expression).globalMatch(text))
        all << match.captured();
    return all.join(u' ');
}

class PrintJourney : public testing::Test
{
protected:
    ScriptedMessages& messages() { return journey.desktop.messages; }
    [[nodiscard]] QString pdf() const { return journey.database.folder() + u"/printed.pdf"_s; }
    QString changed() { return journey.find<QLabel>("pnlSaved").text(); }

    void print(const std::function<void(OpenDialog&)>& work)
    {
        journey.inDialog("frmPrint", "mnuRecordPrint", work);
        messages().finish();
    }

    void save(OpenDialog& dialog)
    {
        journey.desktop.fileDialogs.files = {pdf()};
        dialog.click("cmdPdf");
    }

    void expectPages(const ReadPdf& read, const QString& caption)
    {
        const auto count = read.pages.size();
        EXPECT_TRUE(read.hasMargin());
        EXPECT_TRUE(read.facts.contains(u"Pages: %1\n"_s.arg(count))) << read.facts.toStdString();
        EXPECT_TRUE(read.facts.contains(
            u"Title: %1\nCreator: %2\n"_s.arg(caption, QGuiApplication::applicationDisplayName())))
            << read.facts.toStdString();
        for (qsizetype i = 0; i < count; ++i) {
            EXPECT_TRUE(QRegularExpression(u"^ *%1 +Page %2 of %3\n"_s.arg(caption).arg(i + 1).arg(count))
                            .match(read.pages[i])
                            .hasMatch())
                << read.pages[i].left(200).toStdString();
        }
    }

    Journey journey;
};

TEST_F(PrintJourney, TheListHasEveryRowOnceUnderItsTitles)
{
    journey.addDocuments(150);
    journey.database.run("INSERT INTO Document (DocumentID, DocumentName, dStatus) VALUES (2, 'Long ' || "
                         "replace(hex(zeroblob(600)), '00', 'word ') || 'end', 'ACTIVE')");
    journey.database.run("UPDATE Document SET Author = 'An Author of ' || DocumentName WHERE DocumentID > 2");
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.list().header()->sectionClicked(0);
    journey.list().header()->sectionClicked(0);
    const QString shown = found(QString::fromStdString(journey.column(0)), u"Document \\d+"_s);
    ASSERT_TRUE(shown.startsWith(u"Document 99"_s) || shown.startsWith(u"Document 249"_s))
        << shown.toStdString();

    struct Case
    {
        QString name;
        QString orientation;
        const char* size;
    };
    for (const Case& paper : {Case{u"A4"_s, u"Portrait"_s, "595 x 842 pts (A4)"},
                              Case{u"Letter"_s, u"Landscape"_s, "792 x 612 pts (letter)"}}) {
        SCOPED_TRACE(paper.size);
        QString last;
        print([&](OpenDialog& dialog) {
            dialog.choose("cmbPaper", paper.name);
            dialog.choose("cmbOrientation", paper.orientation);
            QTest::qWait(0);
            dialog.click("cmdLast");
            last = dialog.find<QLabel>("lblPage").text();
            save(dialog);
        });
        const ReadPdf read(pdf());
        EXPECT_TRUE(read.facts.contains(u"Page size: "_s + QLatin1StringView(paper.size) + u'\n'))
            << read.facts.toStdString();
        expectPages(read, u"View ALL Documents"_s);
        EXPECT_EQ(last, u"Page %1 of %1"_s.arg(read.pages.size()));
        for (const QString& page : read.pages)
            EXPECT_TRUE(
                QRegularExpression(u"\n *Title +Author +Date +File +Source\n"_s).match(page).hasMatch())
                << page.toStdString();
        // before each row's name there is no author
        EXPECT_EQ(found(read.pages.join(QString()), u"(?<=\n)Document \\d+"_s), shown);
        EXPECT_TRUE(read.pages.join(QString()).contains(u'…')) << "the long title says that it is cut";
        EXPECT_EQ(changed(), u"Saved: printed.pdf"_s);
        EXPECT_EQ(journey.desktop.fileDialogs.proposed.last(), u"View ALL Documents.pdf"_s);
    }
    print([](OpenDialog& dialog) {
        EXPECT_EQ(dialog.text("cmbPaper") + ' ' + dialog.text("cmbOrientation"), "Letter Landscape")
            << "as before";
        dialog.click("cmdCancel");
    });
}

TEST_F(PrintJourney, ASheetHasAllFieldsHoweverLongTheyAre)
{
    journey.database.runFile("journeys/rows/Buttons.sql");
    journey.database.run(
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 9000) "
        "UPDATE Document SET Author = 'Ada <b>', DocumentDescription = (SELECT group_concat('w' || i, ' ') "
        "FROM n) WHERE DocumentID = 2");
    journey.start();
    journey.trigger("mnuViewDocuments");
    journey.list().selectAll();
    print([&](OpenDialog& dialog) {
        dialog.find<QRadioButton>("optSheets").click();
        QTest::qWait(0);
        save(dialog);
    });
    const ReadPdf read(pdf());
    expectPages(read, u"View ALL Documents"_s);
    const QString all = read.pages.join(QString());
    QStringList words;
    for (int i = 1; i <= 9000; ++i)
        words << u'w' + QString::number(i);
    EXPECT_EQ(found(all, u"\\bw\\d+\\b"_s), words.join(u' '));
    EXPECT_TRUE(read.pages.first().contains(u"Atlas"_s) && all.contains(u"Ada <b>"_s));
    EXPECT_TRUE(read.pages.last().contains(u"Brief"_s) && found(read.pages.last(), u"\\bw\\d+"_s).isEmpty())
        << "on its own page";
}

TEST_F(PrintJourney, AGraphicHasThePageTurnedAsItIsWide)
{
    journey.database.runFile("journeys/rows/Buttons.sql");
    journey.start();
    journey.trigger("mnuViewEvents");
    print([&](OpenDialog& dialog) {
        dialog.find<QRadioButton>("optGraphic").click();
        EXPECT_EQ(dialog.text("cmbOrientation"), "Landscape");
        save(dialog);
    });
    const ReadPdf read(pdf());
    expectPages(read, u"View ALL Events"_s);
    EXPECT_TRUE(read.facts.contains(u"Page size: 842 x 595 pts (A4)\n"_s)) << read.facts.toStdString();
    EXPECT_TRUE(read.pages.size() == 1 && read.pages.front().contains(u"Flood"_s))
        << read.pages.join(u'|').toStdString();
    print([&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.text("cmbOrientation"), "Portrait") << "of the list";
        save(dialog);
    });
    EXPECT_TRUE(ReadPdf(pdf()).pages.front().contains(u"04/01/1927 06:02 - 04/03/1927 06:02"_s))
        << "whole years";
}

TEST_F(PrintJourney, WhatCannotBePrintedSaysWhyAndWhatFailsLeavesNothing)
{
    journey.start();
    journey.trigger("mnuViewDocuments");
    print([&](OpenDialog& dialog) {
        for (const auto& [choice, why] : {std::pair{"optGraphic", "The graphic shows nothing."},
                                          {"optSheets", "No record is selected."}}) {
            EXPECT_FALSE(dialog.find<QRadioButton>(choice).isEnabled());
            EXPECT_EQ(dialog.find<QRadioButton>(choice).toolTip().toStdString(), why);
        }
        messages().expectMessage(
            u"No printer is set up on this computer.\n\nPrint to PDF saves the pages as a file, which "
            "can be printed elsewhere."_s);
        dialog.click("cmdPrint");
        save(dialog);
    });
    journey.trigger("mnuViewHideGraphic");
    print([&](OpenDialog& dialog) {
        EXPECT_EQ(dialog.find<QRadioButton>("optGraphic").toolTip(), u"The graphic is hidden."_s);
        dialog.click("cmdCancel");
    });
    const ReadPdf empty(pdf());
    expectPages(empty, u"View ALL Documents"_s);
    EXPECT_TRUE(empty.pages.front().contains(u"No records"_s));
    QFile::remove(pdf());

    journey.addDocuments(300);
    journey.trigger("mnuViewRefresh");
    print([&](OpenDialog& dialog) {
        QTest::qWait(0);
        journey.desktop.works.cancelAfter = 3;
        save(dialog);
        journey.desktop.works.cancelAfter.reset();
        const SizeLimit full(10'000);
        messages().expectMessageBeginning(u"printToPdf Error (27): "_s);
        save(dialog);
        dialog.click("cmdCancel");
    });
    EXPECT_EQ(QDir(journey.database.folder()).entryList({u"printed*"_s}), QStringList());
    EXPECT_EQ(changed(), QString());
}

TEST_F(PrintJourney, APrinterGetsThePagesThatTheUserWantsOnThePaperChosenThere)
{
    journey.addDocuments(300);
    journey.start();
    journey.trigger("mnuViewDocuments");
    int offered = 0;
    journey.desktop.printing.user = [&](QPrinter& printer, int pages) {
        offered = pages;
        printer.setOutputFileName(pdf());
        printer.setPageSize(QPageSize(QPageSize::A5));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setPageRanges(QPageRanges::fromString(u"2-3,5"_s));
        return true;
    };
    print([&](OpenDialog& dialog) {
        QTest::qWait(0);
        dialog.click("cmdPrint");
    });
    EXPECT_EQ(changed(), u"Printed: 3 pages"_s);
    const ReadPdf read(pdf());
    EXPECT_TRUE(read.facts.contains(u"Page size: 420 x 595 pts (A5)\n"_s)) << read.facts.toStdString();
    EXPECT_TRUE(QRegularExpression(u"^Page 2 of \\d+ Page 3 of \\d+ Page 5 of \\d+$"_s)
                    .match(found(read.pages.join(QString()), u"Page \\d+ of \\d+"_s))
                    .hasMatch());
    EXPECT_LT(offered, read.pages.front().section(u"Page 2 of "_s, 1).section(u'\n', 0, 0).toInt());
    journey.desktop.works.cancelAfter = 3;
    print([&](OpenDialog& dialog) { dialog.click("cmdPrint"); });
    EXPECT_EQ(changed(), u"Printing was cancelled at page 3"_s);
}

} // namespace
