// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopPrinting.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

bool DesktopPrinting::hasPrinter()
{
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool DesktopPrinting::choose(QPrinter& printer, int pages)
{
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    // the program writes files by a command of its own, which leaves no half of one behind
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    if (pages > 0) dialog.setMinMax(1, pages);
    return dialog.exec() == QDialog::Accepted;
}
