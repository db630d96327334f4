// SPDX-License-Identifier: GPL-3.0-or-later

#include "OrganizationCharts.h"

#include "SourceTable.h"

#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Sizes in points, 1/72 inch.
constexpr double boxHeight = 34;
constexpr double gap = 12;

/// Fine enough for letters to stand where they should.
constexpr int dotsPerPoint = 10;

void drawBox(QPainter& painter, QRectF box, const QString& name, QColor fill)
{
    painter.setBrush(fill);
    painter.drawRect(box);
    painter.drawText(box.adjusted(3, 1, -3, -1), Qt::AlignCenter | Qt::TextWordWrap, name);
}

/// A branch is a column: its own box, and its units below it on a common stem.
void drawBranch(QPainter& painter, const ChartUnit& branch, double left, double top, double width,
                QSizeF page)
{
    drawBox(painter, QRectF(left, top, width, boxHeight), branch.name, QColor(0xcf, 0xdd, 0xea));
    constexpr double indent = 14;
    const double room = page.height() - (top + boxHeight) - 20;
    const double height = std::min(boxHeight, room / static_cast<double>(branch.below.size()) - gap);
    double unitTop = top + boxHeight + gap;
    for (const ChartUnit& unit : branch.below) {
        const double middle = unitTop + height / 2;
        painter.drawLine(QPointF(left + indent / 2, unitTop - gap), QPointF(left + indent / 2, middle));
        painter.drawLine(QPointF(left + indent / 2, middle), QPointF(left + indent, middle));
        drawBox(painter, QRectF(left + indent, unitTop, width - indent, height), unit.name, Qt::white);
        painter.drawLine(QPointF(left + indent / 2, middle), QPointF(left + indent / 2, unitTop + height));
        unitTop += height + gap;
    }
}

void drawChart(QPainter& painter, const QString& organization, const ChartUnit& head, QSizeF page)
{
    QFont font(u"Sans Serif"_s);
    font.setPixelSize(18);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRectF(0, 0, page.width(), 26), Qt::AlignCenter, organization);
    font.setPixelSize(9);
    font.setBold(false);
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, 0.7));

    constexpr double top = 40;
    const double center = page.width() / 2;
    drawBox(painter, QRectF(center - 90, top, 180, boxHeight), head.name, QColor(0xf1, 0xe2, 0xc6));
    const auto branches = static_cast<double>(head.below.size());
    const double column = std::min(220.0, (page.width() - gap * (branches - 1)) / branches);
    double left = center - (column * branches + gap * (branches - 1)) / 2;
    constexpr double bus = top + boxHeight + gap;
    painter.drawLine(QPointF(center, top + boxHeight), QPointF(center, bus));
    const double first = left + column / 2;
    painter.drawLine(QPointF(first, bus), QPointF(first + (column + gap) * (branches - 1), bus));
    for (const ChartUnit& branch : head.below) {
        painter.drawLine(QPointF(left + column / 2, bus), QPointF(left + column / 2, bus + gap));
        drawBranch(painter, branch, left, bus + gap, column, page);
        left += column + gap;
    }
    painter.drawText(QRectF(0, page.height() - 16, page.width(), 16), Qt::AlignCenter,
                     u"Simplified chart prepared for the Orvik sample collection"_s);
}

} // namespace

OrganizationCharts::OrganizationCharts(const QDir& source)
{
    const SourceTable table(source.filePath(u"orgcharts.tsv"_s), {u"Organization"_s, u"Above"_s, u"Unit"_s});
    const auto named = [](std::vector<ChartUnit>& units, const QString& name) {
        return std::find_if(units.begin(), units.end(),
                            [&name](const auto& unit) { return unit.name == name; });
    };
    for (const SourceRow& row : table.rows()) {
        const QString organization = row.requiredText(u"Organization"_s);
        const QString above = row.text(u"Above"_s);
        ChartUnit unit{row.requiredText(u"Unit"_s), {}};
        if (above.isEmpty()) {
            if (organizations().contains(organization)) row.fail(u"the chart has two heads"_s);
            m_charts.push_back({organization, std::move(unit)});
            continue;
        }
        if (m_charts.empty() || m_charts.back().organization != organization)
            row.fail(u"a chart begins with its head"_s);
        ChartUnit& head = m_charts.back().head;
        const auto branch = named(head.below, above);
        if (above == head.name)
            head.below.push_back(std::move(unit));
        else if (branch != head.below.end())
            branch->below.push_back(std::move(unit));
        else
            row.fail(u"there is no unit \"%1\" above this one"_s.arg(above));
    }
    for (const Chart& chart : m_charts) {
        if (chart.head.below.empty())
            throw SourceError(u"orgcharts.tsv: the chart of %1 has a head alone"_s.arg(chart.organization));
    }
}

QStringList OrganizationCharts::organizations() const
{
    QStringList names;
    for (const Chart& chart : m_charts)
        names.append(chart.organization);
    return names;
}

void OrganizationCharts::write(const QString& organization, const QString& path) const
{
    const auto chart = std::find_if(m_charts.begin(), m_charts.end(),
                                    [&](const Chart& other) { return other.organization == organization; });
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::Letter));
    writer.setPageOrientation(QPageLayout::Landscape);
    writer.setPageMargins(QMarginsF(36, 36, 36, 36), QPageLayout::Point);
    writer.setResolution(72 * dotsPerPoint);
    writer.setTitle(organization);
    QPainter painter;
    if (chart == m_charts.end() || !painter.begin(&writer))
        throw SourceError(u"%1: the chart cannot be written"_s.arg(path));
    painter.scale(dotsPerPoint, dotsPerPoint);
    drawChart(painter, organization, chart->head, QSizeF(writer.width(), writer.height()) / dotsPerPoint);
    if (!painter.end()) throw SourceError(u"%1: the chart cannot be written"_s.arg(path));
}
