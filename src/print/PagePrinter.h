// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"

#include <QPageLayout>
#include <QString>

class PrintedPages;

/// Prints pages, or writes them as PDF, as the user wants it. What both return says what was done; it is
/// empty if nothing was. Both throw Error.
class PagePrinter
{
public:
    explicit PagePrinter(const Platform& platform) : m_platform(platform) {}

    /// Asks for a printer and its paper, which may be another one than that of the layout.
    [[nodiscard]] QString print(PrintedPages& pages, const QPageLayout& layout) const;

    /// Asks for a file.
    [[nodiscard]] QString savePdf(PrintedPages& pages, const QPageLayout& layout) const;

private:
    Platform m_platform;
};
