// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"

#include <QComboBox>

#include <vector>

class ListEntryModel;
class QAction;

/// A drop-down of records. The plain kind finds entries by their first letters; the searching kind, for
/// thousands of entries, is typed into and offers those that contain the text. When the line is left or
/// Return is pressed, it takes the entry of that name or else the first one offered; a text that names none
/// stays as typed, with a mark that says so.
class EntryCombo final : public QComboBox
{
    Q_OBJECT

public:
    enum class Kind
    {
        Plain,
        Searching
    };

    EntryCombo(Kind kind, QWidget* parent);

    /// Replaces the entries; none is selected.
    void fill(std::vector<ListEntry> entries);

    [[nodiscard]] const std::vector<ListEntry>& entries() const;

    void append(const ListEntry& entry);

    /// Selects the first entry with that key. If there is none, no entry is selected, and the key is kept
    /// until one is.
    void selectKey(qint64 key);

    /// Selects the first entry with that text, in any letter case; if there is none, the selection stays.
    void selectText(const QString& text);

    /// The key of the selected entry; if none is selected, the one that `selectKey` did not find, else that
    /// of "None".
    [[nodiscard]] qint64 key() const;

    /// Whether the text in the line is that of the selected entry.
    [[nodiscard]] bool isSettled() const;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void makeSearching();
    void settleText();
    void takeText(const QString& typed);
    [[nodiscard]] int rowMeant(const QString& typed) const;
    [[nodiscard]] int rowMarked() const;

    ListEntryModel* m_entries;
    qint64 m_unlistedKey = noneKey;
    QAction* m_mark = nullptr; ///< the searching kind only
};
