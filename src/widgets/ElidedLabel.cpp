// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/ElidedLabel.h"

#include "widgets/PlainToolTip.h"

#include <QPainter>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setLine(const QString& text)
{
    setText(text);
    setToolTip(PlainToolTip::text(text));
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}
