// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractButton>
#include <QHash>
#include <QIcon>

/// A button of the home page: a picture, a caption and a line of explanation. It looks different under the
/// mouse, when pressed and with the keyboard focus.
class HomeButton final : public QAbstractButton
{
    Q_OBJECT

public:
    HomeButton(const QString& picture, const QString& caption, const QString& explanation, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override; ///< narrow enough for a small screen
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintFrame(QPainter& painter) const;
    [[nodiscard]] int measureHeight(int width) const;
    [[nodiscard]] int captionWidth() const;

    QIcon m_picture;
    QString m_explanation;
    mutable QHash<int, int> m_heights; ///< in pixels, by width; cleared if font or style changes
};
