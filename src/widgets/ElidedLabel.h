// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

/// One line of plain text, elided if its place is too narrow, and then shown whole as a tool tip.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent);

    void setLine(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
};
