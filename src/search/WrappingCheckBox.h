// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCheckBox>

/// A check box that wraps its text if the text is wider than the box.
class WrappingCheckBox final : public QCheckBox
{
    Q_OBJECT

public:
    WrappingCheckBox(const QString& text, QWidget* parent);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int besideText() const;
    [[nodiscard]] QString wrapped(int width) const;
};
