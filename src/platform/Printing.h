// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QPrinter;

/// Asks the user for a printer. The only door to printers and their dialog.
class Printing
{
public:
    virtual ~Printing() = default;

    /// Whether the computer knows a printer.
    [[nodiscard]] virtual bool hasPrinter() = 0;

    /// Lets the user choose the printer for so many pages, 0 if nobody knows yet, and which of them it prints
    /// how often. `printer` has the title, paper and orientation of what is printed. Returns false if the
    /// user cancelled.
    [[nodiscard]] virtual bool choose(QPrinter& printer, int pages) = 0;

protected:
    Printing() = default;
    Printing(const Printing&) = default;
    Printing& operator=(const Printing&) = default;
};

/// A computer without a printer.
class NoPrinting final : public Printing
{
public:
    [[nodiscard]] bool hasPrinter() override { return false; }
    [[nodiscard]] bool choose(QPrinter& /*printer*/, int /*pages*/) override { return false; }
};
