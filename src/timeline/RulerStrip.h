// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

#include <array>

class QLabel;
class Timeline;

/// The ruler above the lanes, with the four captions of the moments at the left edge and one, two and three
/// steps after it.
class RulerStrip final : public QWidget
{
    Q_OBJECT

public:
    /// The timeline must outlive the strip.
    RulerStrip(const Timeline& timeline, QWidget* parent);

    /// The width of a label in pixels. Dates are bold.
    [[nodiscard]] int labelWidth(const QString& text, bool isDate) const;

    /// Shows the ruler and the captions as they are now.
    void showRuler();

    /// Draws the ruler with its captions, in the painter's font.
    void draw(QPainter& painter, const QPalette& palette) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

    /// The picture below may get its new width, and show the ruler for it, before this strip is resized.
    void resizeEvent(QResizeEvent* /*event*/) override { showRuler(); }

private:
    [[nodiscard]] int captionRow() const;
    void paintScale(QPainter& painter, const QPalette& palette) const;
    void paintTicks(QPainter& painter, const QPalette& palette, int top) const;
    void paintLabels(QPainter& painter, const QPalette& palette, int top) const;

    const Timeline& m_timeline;
    std::array<QLabel*, 4> m_captions{};
};
