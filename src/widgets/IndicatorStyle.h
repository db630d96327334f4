// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

/// The plain style of Qt with frames of check boxes and radio buttons that are seen in dark windows too; by
/// itself it draws them darker than any ground.
class IndicatorStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    IndicatorStyle();

    /// Sets this style for the application if it would have the plain one.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};
