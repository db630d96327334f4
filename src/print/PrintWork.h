// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SteppedWork.h"

#include <QPageRanges>
#include <QPainter>

class PrintedPages;
class QPagedPaintDevice;

/// Paints pages on a printer or into a file. Pages that a printer was given cannot be taken back.
class PrintWork final : public SteppedWork
{
public:
    /// Of the pages, only those in the ranges are painted, which count from 1; all if there is no range.
    /// Pages and device must outlive the work.
    PrintWork(const QString& title, PrintedPages& pages, QPagedPaintDevice& device, const QPageRanges& only);

    bool step() override;
    [[nodiscard]] QString title() const override { return m_title; }
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// How many pages were painted.
    [[nodiscard]] int printed() const { return m_printed; }

    /// What printers and files have to be set to, in dots per inch: that of the screen, so that the texts of
    /// a graphic take the same room on both.
    [[nodiscard]] static int resolution();

private:
    void paint(int page);

    QString m_title;
    PrintedPages& m_pages;
    QPagedPaintDevice& m_device;
    QPageRanges m_only;
    QPainter m_painter;
    int m_next = 0;
    int m_printed = 0;
};
