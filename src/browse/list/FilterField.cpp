// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/list/FilterField.h"

#include "widgets/LineEdit.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>
#include <iterator>

namespace {

constexpr int gap = 8; ///< pixels beside the count

/// Whether the key leads from the words to the rows.
bool leadsOn(const QKeyEvent& event)
{
    constexpr int keys[] = {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter};
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return isPlain && std::find(std::begin(keys), std::end(keys), event.key()) != std::end(keys);
}

} // namespace

FilterField::FilterField(QWidget* parent)
    : QWidget(parent), m_words(new LineEdit(this)), m_count(new QLabel(this))
{
    m_words->setObjectName(QStringLiteral("txtFilter"));
    m_words->setAccessibleName(tr("Filter"));
    m_words->setPlaceholderText(tr("Filter the list"));
    m_words->setToolTip(tr("Shows the records that have all these words in any column.\n"
                           "A word with a minus leaves records out."));
    m_words->setClearButtonEnabled(true);
    m_words->installEventFilter(this);
    m_count->setObjectName(QStringLiteral("lblFilterCount"));
    m_count->setContentsMargins(gap, 0, gap, 0);
    m_count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_count->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_words, 1);
    layout->addWidget(m_count);
    connect(m_words, &QLineEdit::textChanged, this, &FilterField::typed);
}

void FilterField::setWords(const QString& words)
{
    const QSignalBlocker blocker(this);
    m_words->setText(words);
}

void FilterField::setCount(const QString& count, const QString& widest)
{
    m_count->setText(count);
    // the end of the field stays where it is while the number changes
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(widest) + 2 * gap);
    m_count->setVisible(!count.isEmpty());
    m_words->setAccessibleDescription(count);
}

void FilterField::begin()
{
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

bool FilterField::isTypedIn() const
{
    return m_words->hasFocus();
}

bool FilterField::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || !leadsOn(static_cast<QKeyEvent&>(*event))) return QWidget::eventFilter(watched, event);
    // these keys would else reach the commands of the window
    event->accept();
    if (event->type() == QEvent::KeyPress) Q_EMIT left();
    return true;
}
