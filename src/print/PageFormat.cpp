// SPDX-License-Identifier: GPL-3.0-or-later

#include "print/PageFormat.h"

#include <QGuiApplication>

namespace {

constexpr double margin = PageFormat::twipsPerInch * 0.55;
constexpr double headerHeight = 17 * PageFormat::twipsPerPoint;
constexpr double belowHeader = 8 * PageFormat::twipsPerPoint;

} // namespace

PageFormat::PageFormat(const QPageLayout& layout)
    : m_size(layout.fullRect(QPageLayout::Point).size() * twipsPerPoint)
{
}

QRectF PageFormat::header() const
{
    return {margin, margin, m_size.width() - 2 * margin, headerHeight};
}

QRectF PageFormat::content() const
{
    const double top = margin + headerHeight + belowHeader;
    return {margin, top, m_size.width() - 2 * margin, m_size.height() - margin - top};
}

QPageLayout PageFormat::layout(QPageSize::PageSizeId paper, QPageLayout::Orientation orientation)
{
    QPageLayout layout(QPageSize(paper), orientation, {}, QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

QFont PageFormat::font(double points, QFont::Weight weight)
{
    QFont font(QGuiApplication::font().families());
    font.setPixelSize(qRound(points * twipsPerPoint));
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

Qt::Alignment PageFormat::startSide()
{
    return Qt::AlignAbsolute | (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

Qt::Alignment PageFormat::endSide()
{
    return Qt::AlignAbsolute | (QGuiApplication::isRightToLeft() ? Qt::AlignLeft : Qt::AlignRight);
}
