// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/ReadingText.h"

#include "editors/AddressEdit.h"

#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QTextFrame>

#include <algorithm>
#include <cmath>

namespace {

constexpr int margin = 2;

} // namespace

void ReadingText::showOver(QWidget& field)
{
    remove(field);
    const auto* line = qobject_cast<QLineEdit*>(&field);
    const auto* combo = qobject_cast<QComboBox*>(&field);
    new ReadingText(field, line != nullptr ? line->text() : combo->currentText(), line != nullptr);
}

void ReadingText::remove(QWidget& field)
{
    delete field.findChild<ReadingText*>();
    field.setMinimumHeight(0);
}

ReadingText::ReadingText(QWidget& field, const QString& text, bool isLine)
    : QTextEdit(&field), m_field(field), m_isLine(isLine)
{
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // an address is opened by the line below, which needs the click
    setAttribute(Qt::WA_TransparentForMouseEvents, qobject_cast<AddressEdit*>(&field) != nullptr);
    QPalette shades = field.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        shades.setColor(group, QPalette::Text, field.palette().color(QPalette::Active, QPalette::Text));
        shades.setColor(group, QPalette::Base,
                        field.parentWidget()->palette().color(QPalette::Active, QPalette::Window));
    }
    setPalette(shades);
    setFont(field.font());
    document()->setDocumentMargin(margin);
    setPlainText(text);
    field.installEventFilter(this);
    fit();
}

bool ReadingText::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) fit();
    return QTextEdit::eventFilter(watched, event);
}

void ReadingText::fit()
{
    const int room = m_field.width() - 4 * margin;
    const bool isNeeded = !m_isLine || m_field.fontMetrics().horizontalAdvance(toPlainText()) > room;
    setVisible(isNeeded);
    setGeometry(m_field.rect());
    document()->setTextWidth(m_field.width());
    setTopMargin(margin);
    const int height = static_cast<int>(std::ceil(document()->size().height()));
    setTopMargin(margin + std::max(0, (m_field.height() - height) / 2));
    m_field.setMinimumHeight(isNeeded ? height : 0);
}

void ReadingText::setTopMargin(int top)
{
    QTextFrameFormat format = document()->rootFrame()->frameFormat();
    format.setTopMargin(top);
    document()->rootFrame()->setFrameFormat(format);
}
