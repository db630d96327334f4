// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "print/PageFormat.h"

#include <QString>

class QPainter;

/// Pages of paper under one caption. They are measured bit by bit, since thousands of them take a while;
/// those measured so far can be painted in any order, each by itself.
class PrintedPages
{
public:
    virtual ~PrintedPages() = default;
    PrintedPages(const PrintedPages&) = delete;
    PrintedPages& operator=(const PrintedPages&) = delete;

    /// Starts over on this paper.
    void begin(const QPageLayout& layout);

    /// Measures some more. Returns false once all pages are known, and there is at least one. Throws Error.
    bool measure();

    [[nodiscard]] const PageFormat& format() const { return m_format; }
    [[nodiscard]] const QString& caption() const { return m_caption; }
    [[nodiscard]] bool isMeasured() const { return m_measured >= 1; }

    /// How much of what is printed has been measured, from 0 to 1.
    [[nodiscard]] double measured() const { return m_measured; }

    /// How many pages are known so far.
    [[nodiscard]] virtual int count() const = 0;

    /// Paints a known page, from 0, on a white ground, in twips from the painter's origin. Throws Error.
    void paint(QPainter& painter, int page);

protected:
    explicit PrintedPages(const QString& caption);

    /// Forgets all pages: the format has changed.
    virtual void restart() = 0;
    /// Returns how much has been measured then, 1 once all is.
    virtual double measureMore() = 0;
    virtual void paintContent(QPainter& painter, int page) = 0;

private:
    void paintHeader(QPainter& painter, int page) const;

    QString m_caption;
    PageFormat m_format;
    double m_measured = 0;
};
