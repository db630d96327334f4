#pragma once

#include <QWidget>

#include <array>

class QLabel;
class Timeline;

/// The strip of the scale above the lanes, and the four captions that say which moments stand at the left
/// edge and one, two and three steps after it.
class RulerStrip final : public QWidget
{
    Q_OBJECT

public:
    /// The timeline must outlive the strip.
    RulerStrip(const Timeline& timeline, QWidget* parent);

    /// The width of a label: dates are bold.
    [[nodiscard]] int labelWidth(const QString& text, bool isDate) const;

    /// Shows the ruler and the captions as they are now.
    void showRuler();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// The picture below may have its new width, and have shown the ruler, before the strip has its own.
    void resizeEvent(QResizeEvent* /*event*/) override { showRuler(); }

private:
    [[nodiscard]] int captionRow() const;
    void chooseDateFont();
    void paintTicks(QPainter& painter, int top) const;
    void paintLabels(QPainter& painter, int top) const;

    const Timeline& m_timeline;
    QFont m_dateFont;
    std::array<QLabel*, 4> m_captions{};
};
