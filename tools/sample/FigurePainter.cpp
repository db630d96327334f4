// SPDX-License-Identifier: GPL-3.0-or-later

#include "FigurePainter.h"

#include "SourceTable.h"
#include "SummarySheet.h"

#include <QLocale>
#include <QPainter>

#include <shapefil.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize pictureSize(1200, 800);
constexpr QRectF drawingArea(40, 90, 1120, 640);
const QColor ink(0x22, 0x2f, 0x3e);
const QColor land(0xd9, 0xdd, 0xd3);
const QColor accent(0xb0, 0x3a, 0x2e);

QFont sizedFont(int pixels, bool bold = false)
{
    QFont font(u"Sans Serif"_s);
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QImage emptyPicture(const FigureTable& figures)
{
    QImage image(pictureSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(ink);
    painter.setFont(sizedFont(34, true));
    painter.drawText(QRectF(40, 20, 1120, 50), Qt::AlignLeft | Qt::AlignVCenter, figures.title);
    painter.setFont(sizedFont(18));
    painter.drawText(QRectF(40, 745, 1120, 40), Qt::AlignLeft | Qt::AlignVCenter,
                     u"%1. Source: %2"_s.arg(sampleNotice(), figures.source));
    return image;
}

/// Turns degrees into pixels, with a degree of longitude as wide as it is at the middle latitude.
class Projection
{
public:
    explicit Projection(QRectF degrees)
    {
        const double middle = degrees.center().y() * std::numbers::pi / 180;
        m_stretch = std::cos(middle);
        m_scale = std::min(drawingArea.width() / (degrees.width() * m_stretch),
                           drawingArea.height() / degrees.height());
        m_center = degrees.center();
    }

    [[nodiscard]] QPointF pixels(QPointF degrees) const
    {
        return drawingArea.center() + QPointF((degrees.x() - m_center.x()) * m_stretch * m_scale,
                                              (m_center.y() - degrees.y()) * m_scale);
    }

private:
    double m_stretch = 1;
    double m_scale = 1;
    QPointF m_center;
};

constexpr double markerRadius = 6;

/// Puts a label beside its place where it covers no marker and no earlier label, if need be some way off
/// with a line to its place. A label without room is left out.
class Labels
{
public:
    explicit Labels(const std::vector<QPointF>& markers)
    {
        const QPointF corner(markerRadius, markerRadius);
        for (const QPointF& marker : markers)
            m_markers.emplace_back(marker - corner, marker + corner);
    }

    void draw(QPainter& painter, QPointF place, const QString& text)
    {
        const QSizeF size = painter.fontMetrics().boundingRect(text).size();
        for (const double distance : {9.0, 26.0, 44.0, 62.0, 90.0}) {
            for (const QPointF& direction : directions) {
                QRectF box(QPointF(), size);
                box.moveCenter(place + QPointF(direction.x() * (distance + size.width() / 2),
                                               direction.y() * (distance + size.height() / 2)));
                const QPointF nearest(std::clamp(place.x(), box.left(), box.right()),
                                      std::clamp(place.y(), box.top(), box.bottom()));
                if (!isFree(box, QLineF(nearest, place))) continue;
                painter.setPen(QPen(ink, 0.8));
                if (distance > 9) painter.drawLine(nearest, place);
                painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, text);
                m_labels.push_back(box);
                return;
            }
        }
    }

private:
    static constexpr QPointF directions[]{{1, 0},   {0, 1},    {-1, 0},   {0, -1},
                                          {0.7, 1}, {0.7, -1}, {-0.7, 1}, {-0.7, -1}};

    [[nodiscard]] bool isFree(const QRectF& box, const QLineF& leader) const
    {
        const auto covers = [&box](const QRectF& other) { return other.intersects(box); };
        const auto crosses = [&leader](const QRectF& label) {
            for (int step = 0; step <= 10; ++step) {
                if (label.contains(leader.pointAt(step / 10.0))) return true;
            }
            return false;
        };
        return drawingArea.contains(box) && std::none_of(m_markers.begin(), m_markers.end(), covers) &&
               std::none_of(m_labels.begin(), m_labels.end(), covers) &&
               std::none_of(m_labels.begin(), m_labels.end(), crosses);
    }

    std::vector<QRectF> m_markers;
    std::vector<QRectF> m_labels;
};

QRectF extentOf(const FigureTable& figures)
{
    // The contiguous states are always shown; other places widen the map.
    QRectF extent(QPointF(-125, 24), QPointF(-66, 50));
    constexpr double margin = 3;
    for (const FigureTable::Row& row : figures.rows) {
        const QPointF place(row.place->longitude, row.place->latitude);
        extent = extent.united(QRectF(place - QPointF(margin, margin), QSizeF(2 * margin, 2 * margin)));
    }
    return extent;
}

} // namespace

FigurePainter::FigurePainter(const QString& statesPath)
{
    const std::unique_ptr<SHPInfo, decltype(&SHPClose)> file(SHPOpen(statesPath.toUtf8().constData(), "rb"),
                                                             &SHPClose);
    if (!file) throw SourceError(u"%1: the shapefile cannot be read"_s.arg(statesPath));
    int count = 0;
    SHPGetInfo(file.get(), &count, nullptr, nullptr, nullptr);
    for (int record = 0; record < count; ++record) {
        const std::unique_ptr<SHPObject, decltype(&SHPDestroyObject)> shape(SHPReadObject(file.get(), record),
                                                                            &SHPDestroyObject);
        if (!shape) throw SourceError(u"%1: record %2 cannot be read"_s.arg(statesPath).arg(record));
        for (int part = 0; part < shape->nParts; ++part) {
            const int end = part + 1 < shape->nParts ? shape->panPartStart[part + 1] : shape->nVertices;
            QPolygonF ring;
            for (int vertex = shape->panPartStart[part]; vertex < end; ++vertex)
                ring.append(QPointF(shape->padfX[vertex], shape->padfY[vertex]));
            m_states.push_back(std::move(ring));
        }
    }
}

QImage FigurePainter::barChart(const FigureTable& figures) const
{
    QImage image = emptyPicture(figures);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    std::vector<FigureTable::Row> rows = figures.rows;
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& a, const auto& b) { return a.value > b.value; });

    constexpr double labelWidth = 330;
    constexpr double valueWidth = 130;
    const double rowHeight = (drawingArea.height() - 30) / static_cast<double>(rows.size());
    const double longest = std::max(rows.front().value, 1e-9);
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    painter.setFont(sizedFont(static_cast<int>(std::min(22.0, rowHeight * 0.6))));
    double top = drawingArea.top();
    for (const FigureTable::Row& row : rows) {
        const QRectF line(drawingArea.left(), top, drawingArea.width(), rowHeight);
        const double length = (line.width() - labelWidth - valueWidth) * row.value / longest;
        painter.setPen(ink);
        painter.drawText(QRectF(line.left(), top, labelWidth - 12, rowHeight),
                         Qt::AlignRight | Qt::AlignVCenter, row.cells.at(0));
        const QRectF bar(line.left() + labelWidth, top + rowHeight * 0.15, length, rowHeight * 0.7);
        painter.fillRect(bar, accent);
        const int decimals = row.cells.at(1).contains(u'.') ? 1 : 0;
        painter.drawText(QRectF(bar.right() + 10, top, valueWidth, rowHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, english.toString(row.value, 'f', decimals));
        top += rowHeight;
    }
    painter.setFont(sizedFont(18, true));
    painter.drawText(QRectF(drawingArea.left() + labelWidth, top, 600, 30), Qt::AlignLeft | Qt::AlignVCenter,
                     figures.columns.at(1));
    return image;
}

QImage FigurePainter::placeMap(const FigureTable& figures) const
{
    QImage image = emptyPicture(figures);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(drawingArea);
    const Projection projection(extentOf(figures));

    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(land);
    for (const QPolygonF& state : m_states) {
        QPolygonF outline;
        for (const QPointF& degrees : state)
            outline.append(projection.pixels(degrees));
        painter.drawPolygon(outline);
    }

    std::vector<QPointF> places;
    for (const FigureTable::Row& row : figures.rows)
        places.push_back(projection.pixels(QPointF(row.place->longitude, row.place->latitude)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    for (const QPointF& place : places)
        painter.drawEllipse(place, markerRadius, markerRadius);
    painter.setFont(sizedFont(16));
    Labels labels(places);
    for (std::size_t index = 0; index < places.size(); ++index)
        labels.draw(painter, places.at(index), figures.rows.at(index).cells.at(0));
    return image;
}
