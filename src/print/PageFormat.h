// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QPageLayout>
#include <QPageSize>
#include <QRectF>

/// Where things are on a page. All lengths are in twips, 1/1440 inch: pages are laid out in them for any
/// printer, and measured so finely a text takes the same room on paper as in the preview.
class PageFormat
{
public:
    static constexpr int twipsPerInch = 1440;
    static constexpr int twipsPerPoint = 20;

    explicit PageFormat(const QPageLayout& layout);

    /// Of the whole sheet of paper.
    [[nodiscard]] QSizeF size() const { return m_size; }

    /// The line above the rule on each page.
    [[nodiscard]] QRectF header() const;

    /// What is left for the contents.
    [[nodiscard]] QRectF content() const;

    /// A paper without margins of its own.
    [[nodiscard]] static QPageLayout layout(QPageSize::PageSizeId paper,
                                            QPageLayout::Orientation orientation);

    /// The program's font, measured in twips.
    [[nodiscard]] static QFont font(double points, QFont::Weight weight = QFont::Normal);

    /// The side on which lines begin in the program's language, whatever the direction of a text, and the
    /// other.
    [[nodiscard]] static Qt::Alignment startSide();
    [[nodiscard]] static Qt::Alignment endSide();

private:
    QSizeF m_size;
};
