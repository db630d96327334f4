// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractButton>

/// A link: underlined, in a colour of its own, followed with the mouse, Enter or the space bar. A text too
/// wide for the button is shortened; its tool tip shows all of it.
class LinkButton final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit LinkButton(QWidget* parent);

    /// An ampersand in the text is shown, and marks no key.
    void setLink(const QString& text);

    /// The default is the palette's colour of links. If the colour cannot be read on the window's background,
    /// the link is drawn on a light plate.
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
