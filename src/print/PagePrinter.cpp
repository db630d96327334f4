// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PagePrinter.h"

#include "platform/Messages.h"
#include "platform/Printing.h"
#include "platform/SaveTarget.h"
#include "platform/WorkRunner.h"
#include "print/PdfWork.h"
#include "print/PrintTexts.h"
#include "print/PrintedPages.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QPrinter>

QString PagePrinter::print(PrintedPages& pages, const QPageLayout& layout) const
{
    if (!m_platform.printing.hasPrinter()) {
        m_platform.messages.show(PrintTexts::tr(
            "No printer is set up on this computer.\n\nPrint to PDF saves the pages as a file, which can be "
            "printed elsewhere."));
        return {};
    }
    QPrinter printer;
    printer.setResolution(PrintWork::resolution());
    printer.setPageLayout(layout);
    printer.setDocName(pages.caption());
    printer.setCreator(QGuiApplication::applicationDisplayName());
    if (!m_platform.printing.choose(printer, pages.isMeasured() ? pages.count() : 0)) return {};
    // the margins are those of the pages
    printer.setFullPage(true);
    pages.begin(printer.pageLayout());
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    PrintWork work(PrintTexts::tr("Print"), pages, printer, isRange ? printer.pageRanges() : QPageRanges());
    const bool isDone = m_platform.works.run(work);
    const QString count = QLocale().toString(work.printed());
    if (!isDone) {
        printer.abort();
        // some printers print what they were given up to then
        return work.printed() == 0 ? QString()
                                   : PrintTexts::tr("Printing was cancelled at page %1").arg(count);
    }
    return work.printed() == 1 ? PrintTexts::tr("Printed: 1 page")
                               : PrintTexts::tr("Printed: %1 pages").arg(count);
}

QString PagePrinter::savePdf(PrintedPages& pages, const QPageLayout& layout) const
{
    const QString ending = QStringLiteral(".pdf");
    const QString file = SaveTarget::choose(
        m_platform, PrintTexts::tr("Print to PDF"), SaveTarget::nameFor(pages.caption()) + ending,
        PrintTexts::tr("PDF Files") + QStringLiteral(" (*.pdf)|*.pdf|"), {ending});
    if (file.isEmpty()) return {};
    PdfWork work(pages, layout, file);
    if (!m_platform.works.run(work)) return {};
    return PrintTexts::tr("Saved: %1").arg(QFileInfo(file).fileName());
}
