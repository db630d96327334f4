// SPDX-License-Identifier: GPL-3.0-or-later

// How the words that the user types narrow the list.

#include "browse/list/FilterField.h"
#include "browse/list/ListPane.h"
#include "browse/list/RecordListView.h"
#include "views/ViewHistory.h"

#include <QKeyEvent>

void ListPane::beginFilter()
{
    m_filter->begin();
}

void ListPane::clearFilter()
{
    m_view->setFocus();
    m_filter->setWords({});
    narrow({});
}

void ListPane::focusRows()
{
    if (!m_filter->isTypedIn()) m_view->setFocus();
}

/// Escape takes the filter away, whether the field or a row has the focus.
void ListPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape || (!m_filter->isTypedIn() && m_history.filter().isEmpty())) {
        QWidget::keyPressEvent(event);
        return;
    }
    clearFilter();
}

void ListPane::narrow(const QString& typed)
{
    if (m_entry == 0 || m_entry != m_history.current()) return;
    m_history.setFilter(typed);
    const FilterWords words(typed);
    if (words == m_model->filter()) return;
    if (m_model->filter().isEmpty() && !m_filling) {
        rememberPlace();
        m_remembered[m_entry].unfiltered = selectedRecord();
    }
    const std::optional<qint64> current = selectedRecord();
    std::unordered_set<qint64> selected;
    for (const int row : m_view->selectedRows())
        selected.insert(m_model->identifier(row));

    m_model->setFilter(words);
    m_view->scrollToTop();
    selectShown(selected, current);
    if (words.isEmpty() && !selectedRecord() && !m_filling) {
        tellHistory(m_remembered[m_entry].unfiltered);
        restorePlace();
    }
    showCount();
    Q_EMIT filtered();
}

bool ListPane::hides(RecordKind kind, qint64 identifier) const
{
    if (kind != m_list->kind() || m_entry != m_history.current()) return false;
    return m_model->rowOf(identifier) < 0 && m_list->contains(identifier);
}

void ListPane::showCount()
{
    const auto text = [this](std::size_t shown) { return tr("%1 of %2").arg(shown).arg(total()); };
    if (m_model->filter().isEmpty())
        m_filter->setCount({}, {});
    else
        m_filter->setCount(text(count()), text(total()));
}

/// Goes on to the rows as a user does who is done with the words: with the first one, unless one is selected.
void ListPane::goToRows()
{
    m_view->setFocus();
    if (!selectedRecord() && m_model->rowCount() > 0) goTo(m_model->identifier(0));
}
