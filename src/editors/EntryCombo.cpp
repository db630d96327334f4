#include "editors/EntryCombo.h"

#include "editors/ListEntryModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int shortestContents = 12;
constexpr int visibleEntries = 15;

/// Rows of one height need not be measured one by one, which tens of thousands of them would show.
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
    setEditable(true);
    setInsertPolicy(NoInsert);
    auto* completer = new QCompleter(m_entries, this);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(visibleEntries);
    makeRowsUniform(completer->popup());
    setCompleter(completer);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &EntryCombo::settleText);
    // the completer keeps the event of a lost focus to itself while it shows its offers
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        if (before != this || now == nullptr || now == this) return;
        this->completer()->popup()->hide();
        settleText();
    });
}

void EntryCombo::fill(std::vector<ListEntry> entries)
{
    m_entries->setEntries(std::move(entries));
    setCurrentIndex(-1);
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
    if (found != entries.end()) setCurrentIndex(static_cast<int>(found - entries.begin()));
}

void EntryCombo::selectText(const QString& text)
{
    const int found = findText(text, Qt::MatchFixedString);
    if (found >= 0) setCurrentIndex(found);
}

qint64 EntryCombo::key() const
{
    return currentIndex() < 0 ? noneKey : currentData().toLongLong();
}

/// Once the line is left, its text is that of the selected entry again. A text that only one entry holds
/// means that entry; an emptied line means "None".
void EntryCombo::settleText()
{
    QAbstractItemView* offers = completer()->popup();
    // the key that chooses among the offers comes through here first
    if (offers->isVisible()) return;
    const QString typed = lineEdit()->text().trimmed();
    if (typed == itemText(currentIndex())) return;
    if (typed.isEmpty()) {
        selectKey(noneKey);
    } else if (const int meant = rowMeant(typed); meant >= 0) {
        setCurrentIndex(meant);
    }
    setEditText(itemText(currentIndex()));
}

/// The entry of that name or else the only one that holds the text; -1 where there are none or several.
int EntryCombo::rowMeant(const QString& typed) const
{
    const auto& entries = m_entries->entries();
    int found = -1;
    int count = 0;
    for (std::size_t row = 0; row < entries.size(); ++row) {
        const QString& name = entries[row].display;
        if (name.compare(typed, Qt::CaseInsensitive) == 0) return static_cast<int>(row);
        if (!name.contains(typed, Qt::CaseInsensitive)) continue;
        found = static_cast<int>(row);
        ++count;
    }
    return count == 1 ? found : -1;
}

void EntryCombo::wheelEvent(QWheelEvent* event)
{
    // a form that is scrolled past must not change
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
