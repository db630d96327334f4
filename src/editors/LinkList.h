// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/ListEntry.h"
#include "data/RecordKind.h"
#include "lists/ListKind.h"
#include "records/PickList.h"

#include <QWidget>

#include <vector>

class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The records of one kind that a record is linked to: a list with a button that opens the pick list and one
/// that empties it. An empty list shows the one item "None".
class LinkList final : public QWidget
{
    Q_OBJECT

public:
    /// The object names of the widgets; screen readers say `what`, such as `document types`.
    struct Names
    {
        const char* list;
        const char* add;
        const char* clear;
        QString what;
    };

    LinkList(const Names& names, PickListKind kind, QWidget* parent);

    void setEntries(const std::vector<ListEntry>& entries);
    [[nodiscard]] std::vector<ListEntry> entries() const;

    /// While the list is locked, a double click or Enter asks to show the linked record, and long names wrap.
    void setLocked(bool locked);

    /// Adds an entry behind the others, in place of "None".
    void append(const ListEntry& entry);

    [[nodiscard]] PickListKind kind() const { return m_kind; }
    [[nodiscard]] QListWidget* list() const { return m_list; }

Q_SIGNALS:
    void addPressed();

    /// The user wants to add an entry to the lookup table that the list takes its records from.
    void newPressed();

    /// The user asks to see the linked record of that key.
    void opened(RecordKind kind, qint64 key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* makeNewButton(const Names& names, ListKind list);
    void addItem(const ListEntry& entry);
    bool open(const QListWidgetItem* item);

    PickListKind m_kind;
    QListWidget* m_list;
    QPushButton* m_add;
    QPushButton* m_clear;
    bool m_isLocked = false;
};
