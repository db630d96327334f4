#pragma once

#include <QAbstractButton>

/// A text that leads somewhere: underlined, in a colour of its own, chosen with the mouse, Enter or the space
/// bar. A text too long for its place is cut, and shown whole as a tool tip.
class LinkButton final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LinkButton(QWidget* parent);

    /// An ampersand in the text is an ampersand.
    void setLink(const QString& text);

    /// The palette's own colour of links unless set, or a light one where that cannot be read. A colour that
    /// was set stays as it is; where it cannot be read, the link stands on a light ground.
    void setColour(const QColor& colour);
    [[nodiscard]] QColor colour() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QColor m_colour;
};
