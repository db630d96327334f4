// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/IndicatorStyle.h"

#include <QApplication>
#include <QStyleOptionButton>

namespace {

constexpr auto plainStyle = "fusion";
constexpr int darkestLightGround = 128;
constexpr double shareOfText = 0.75;

QColor between(const QColor& from, const QColor& to, double share)
{
    const auto part = [share](int a, int b) { return a + static_cast<int>((b - a) * share); };
    return QColor(part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue()));
}

} // namespace

IndicatorStyle::IndicatorStyle() : QProxyStyle(QString::fromLatin1(plainStyle)) {}

void IndicatorStyle::install()
{
    if (QApplication::style()->name() != QLatin1String(plainStyle)) return;
    auto* style = new IndicatorStyle;
    style->setParent(QCoreApplication::instance());
    QApplication::setStyle(style);
}

void IndicatorStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isIndicator = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    if (!isIndicator || button == nullptr ||
        button->palette.color(QPalette::Base).lightness() >= darkestLightGround) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // the style takes the frame from the window's colour and darkens it
    QStyleOptionButton light = *button;
    light.palette.setColor(QPalette::Window, between(light.palette.color(QPalette::Base),
                                                     light.palette.color(QPalette::Text), shareOfText));
    QProxyStyle::drawPrimitive(element, &light, painter, widget);
}
