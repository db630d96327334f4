// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Printing.h"

/// The printers of the desktop and its own dialog for them.
class DesktopPrinting final : public Printing
{
public:
    [[nodiscard]] bool hasPrinter() override;
    [[nodiscard]] bool choose(QPrinter& printer, int pages) override;
};
