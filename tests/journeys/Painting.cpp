// SPDX-License-Identifier: GPL-3.0-or-later

#include "Portrait.h"
#include "support/Testing.h"

#include <QAbstractScrollArea>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace {

QString nameOf(const QColor& colour)
{
    return colour.alpha() == 255 ? colour.name() : colour.name(QColor::HexArgb);
}

/// A painter's engine that writes down what it is told to draw.
class RecordingEngine final : public QPaintEngine
{
public:
    RecordingEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& changed) override
    {
        if (changed.state().testFlag(DirtyPen)) m_pen = changed.pen();
        if (changed.state().testFlag(DirtyBrush)) m_brush = changed.brush();
        if (changed.state().testFlag(DirtyOpacity)) m_opacity = changed.opacity();
    }

    void drawPath(const QPainterPath& /*path*/) override { note(u"path"_s); }
    void drawRects(const QRect* /*rects*/, int count) override { note(u"rectangle"_s, count); }
    void drawRects(const QRectF* /*rects*/, int count) override { note(u"rectangle"_s, count); }
    void drawLines(const QLine* /*lines*/, int count) override { note(u"line"_s, count); }
    void drawLines(const QLineF* /*lines*/, int count) override { note(u"line"_s, count); }
    void drawEllipse(const QRectF& /*rect*/) override { note(u"ellipse"_s); }
    void drawEllipse(const QRect& /*rect*/) override { note(u"ellipse"_s); }
    void drawPoints(const QPointF* /*points*/, int count) override { note(u"point"_s, count); }
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override
    {
        note(u"polygon"_s);
    }
    void drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/, const QRectF& /*source*/) override
    {
        add(u"picture"_s + opacity());
    }
    void drawImage(const QRectF& /*target*/, const QImage& /*image*/, const QRectF& /*source*/,
                   Qt::ImageConversionFlags /*flags*/) override
    {
        add(u"picture"_s + opacity());
    }
    void drawTiledPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/,
                         const QPointF& /*place*/) override
    {
        add(u"tiles"_s + opacity());
    }
    void drawTextItem(const QPointF& /*place*/, const QTextItem& text) override
    {
        texts << text.text();
        const QString begin =
            u"text "_s + nameOf(m_pen.color()) + (text.font().bold() ? u" bold "_s : u" "_s);
        // where a line breaks depends on the font
        const QString word = text.text().remove(u' ');
        if (!lines.isEmpty() && lines.back().startsWith(begin)) {
            lines.back() += word;
        } else {
            add(begin + word);
        }
    }

    QStringList lines; ///< the calls, one by one, but texts of one look as one
    QStringList texts; ///< each text as it was drawn

private:
    [[nodiscard]] QString opacity() const
    {
        return m_opacity < 1 ? u" opacity %1"_s.arg(m_opacity, 0, 'f', 2) : QString();
    }
    void note(const QString& what, int count = 1)
    {
        QString line = what + opacity();
        if (m_pen.style() != Qt::NoPen) {
            line += u" pen %1 %2 %3"_s.arg(nameOf(m_pen.color()))
                        .arg(m_pen.widthF(), 0, 'f', 1)
                        .arg(int(m_pen.style()));
        }
        if (m_brush.style() != Qt::NoBrush) line += u" brush "_s + nameOf(m_brush.color());
        for (int i = 0; i < count; ++i)
            add(line);
    }
    void add(const QString& line) { lines << line; }

    QPen m_pen;
    QBrush m_brush;
    double m_opacity = 1;
};

class RecordingDevice final : public QPaintDevice
{
public:
    explicit RecordingDevice(const QWidget& like) : m_size(like.size()) {}

    QPaintEngine* paintEngine() const override { return &engine; }

    mutable RecordingEngine engine;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return 0;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    QSize m_size;
};

/// The lines of one text that are missing from the other, as often as they are.
QStringList missing(const QStringList& lines, QStringList from, const QString& mark)
{
    QStringList found;
    for (const QString& line : lines) {
        if (!from.removeOne(line)) found << mark + line;
    }
    return found;
}

} // namespace

QStringList paintingOf(QWidget& widget)
{
    auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
    QWidget& painted = area == nullptr ? widget : *area->viewport();
    RecordingDevice device(painted);
    painted.render(&device, {}, {}, QWidget::RenderFlags());
    QStringList lines;
    for (qsizetype i = 0; i < device.engine.lines.size();) {
        const QString& line = device.engine.lines[i];
        qsizetype end = i;
        while (end < device.engine.lines.size() && device.engine.lines[end] == line)
            ++end;
        lines << u"%1 %2 × %3"_s.arg(widget.objectName()).arg(end - i).arg(line);
        i = end;
    }
    return lines;
}

QStringList textsPaintedBy(QWidget& window)
{
    RecordingDevice device(window);
    window.render(&device, {}, {}, QWidget::DrawChildren);
    return device.engine.texts;
}

void expectPortrait(const char* name, const QStringList& lines)
{
    const QString path = QStringLiteral(ORVIK_PORTRAITS "/%1.txt").arg(QLatin1StringView(name));
    if (qEnvironmentVariableIsSet("ORVIK_RENEW_PORTRAITS")) {
        writeFile(path, lines.join(u'\n').toUtf8() + '\n');
        return;
    }
    const QStringList expected = QString::fromUtf8(contentOf(path)).chopped(1).split(u'\n');
    const QStringList differences = missing(expected, lines, u"- "_s) + missing(lines, expected, u"+ "_s);
    EXPECT_TRUE(expected == lines) << name << ", in another order if no lines follow:\n"
                                   << differences.join(u'\n').toStdString();
}
