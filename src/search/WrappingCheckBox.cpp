// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/WrappingCheckBox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr int narrowestText = 160;

} // namespace

WrappingCheckBox::WrappingCheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum, QSizePolicy::CheckBox);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

/// The width of the mark and of the gap beside it, in pixels.
int WrappingCheckBox::besideText() const
{
    return sizeHint().width() - fontMetrics().size(Qt::TextShowMnemonic, text()).width();
}

/// The text, with a line end wherever it has to wrap.
QString WrappingCheckBox::wrapped(int width) const
{
    const int room = width - besideText();
    QStringList lines;
    QString line;
    const QStringList words = text().split(u' ');
    for (const QString& word : words) {
        const QString longer = line.isEmpty() ? word : line + u' ' + word;
        if (line.isEmpty() || fontMetrics().horizontalAdvance(longer) <= room) {
            line = longer;
            continue;
        }
        lines << line;
        line = word;
    }
    return (lines << line).join(u'\n');
}

int WrappingCheckBox::heightForWidth(int width) const
{
    const auto further = static_cast<int>(wrapped(width).count(u'\n'));
    return sizeHint().height() + further * fontMetrics().lineSpacing();
}

QSize WrappingCheckBox::minimumSizeHint() const
{
    const int width = std::min(sizeHint().width(), besideText() + narrowestText);
    return {width, sizeHint().height()};
}

void WrappingCheckBox::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = wrapped(width());
    painter.drawControl(QStyle::CE_CheckBox, option);
}
