// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/EntryCombo.h"

#include "editors/ListEntryModel.h"
#include "widgets/LineEdit.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QIcon>
#include <QListView>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int shortestContents = 12;
constexpr int visibleEntries = 15;

/// Spares measuring each of tens of thousands of rows: all are equally high.
void makeRowsUniform(QAbstractItemView* view)
{
    if (auto* list = qobject_cast<QListView*>(view)) list->setUniformItemSizes(true);
}

} // namespace

EntryCombo::EntryCombo(Kind kind, QWidget* parent) : QComboBox(parent), m_entries(new ListEntryModel(this))
{
    setModel(m_entries);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(shortestContents);
    setMaxVisibleItems(visibleEntries);
    setFocusPolicy(Qt::StrongFocus);
    makeRowsUniform(view());
    if (kind == Kind::Searching) makeSearching();
}

void EntryCombo::makeSearching()
{
    setLineEdit(new LineEdit(this));
    setInsertPolicy(NoInsert);
    m_mark =
        lineEdit()->addAction(QIcon::fromTheme(QStringLiteral("data-warning")), QLineEdit::TrailingPosition);
    m_mark->setToolTip(tr("There is no entry of this name."));
    m_mark->setVisible(false);
    auto* completer = new QCompleter(m_entries, this);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(visibleEntries);
    makeRowsUniform(completer->popup());
    setCompleter(completer);
    connect(lineEdit(), &QLineEdit::textChanged, m_mark, [this] { m_mark->setVisible(false); });
    connect(lineEdit(), &QLineEdit::returnPressed, this, &EntryCombo::settleText);
    // while it shows its offers, the completer swallows the event of a lost focus
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        if (before != this || now == nullptr || now == this) return;
        settleText();
        this->completer()->popup()->hide();
    });
}

void EntryCombo::fill(std::vector<ListEntry> entries)
{
    m_entries->setEntries(std::move(entries));
    m_unlistedKey = noneKey;
    setCurrentIndex(-1);
}

const std::vector<ListEntry>& EntryCombo::entries() const
{
    return m_entries->entries();
}

void EntryCombo::append(const ListEntry& entry)
{
    m_entries->append(entry);
}

void EntryCombo::selectKey(qint64 key)
{
    const auto& entries = m_entries->entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [key](const ListEntry& entry) { return entry.key == key; });
    const bool isListed = found != entries.end();
    m_unlistedKey = isListed ? noneKey : key;
    setCurrentIndex(isListed ? static_cast<int>(found - entries.begin()) : -1);
}

void EntryCombo::selectText(const QString& text)
{
    const int found = findText(text, Qt::MatchFixedString);
    if (found >= 0) setCurrentIndex(found);
}

qint64 EntryCombo::key() const
{
    return currentIndex() < 0 ? m_unlistedKey : currentData().toLongLong();
}

bool EntryCombo::isSettled() const
{
    return !isEditable() || lineEdit()->text() == itemText(currentIndex());
}

void EntryCombo::settleText()
{
    if (!isSettled()) takeText(lineEdit()->text().trimmed());
    m_mark->setVisible(!isSettled());
}

/// An emptied line means "None".
void EntryCombo::takeText(const QString& typed)
{
    if (typed.isEmpty()) {
        selectKey(noneKey);
    } else if (const int marked = rowMarked(); marked >= 0) {
        setCurrentIndex(marked);
    } else if (const int meant = rowMeant(typed); meant >= 0) {
        setCurrentIndex(meant);
    } else {
        return;
    }
    setEditText(itemText(currentIndex()));
}

/// Returns the row that the user marked among those offered, or -1.
int EntryCombo::rowMarked() const
{
    const QAbstractItemView* offers = completer()->popup();
    const QModelIndex marked = offers->isVisible() ? offers->currentIndex() : QModelIndex();
    const auto* offered = qobject_cast<const QAbstractProxyModel*>(completer()->completionModel());
    return marked.isValid() && offered != nullptr ? offered->mapToSource(marked).row() : -1;
}

/// Returns the entry of that name, else the first one that contains the text, else -1.
int EntryCombo::rowMeant(const QString& typed) const
{
    const auto& entries = m_entries->entries();
    int first = -1;
    for (std::size_t row = 0; row < entries.size(); ++row) {
        const QString& name = entries[row].display;
        if (name.compare(typed, Qt::CaseInsensitive) == 0) return static_cast<int>(row);
        if (first < 0 && name.contains(typed, Qt::CaseInsensitive)) first = static_cast<int>(row);
    }
    return first;
}

void EntryCombo::wheelEvent(QWheelEvent* event)
{
    // scrolling the form with the wheel must not change what is selected
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
