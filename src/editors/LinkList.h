#pragma once

#include "data/ListEntry.h"
#include "records/PickList.h"
#include "records/RecordKind.h"

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
    /// The object names of the parts; `what` is said of them to screen readers, such as `document types`.
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

    /// Whether the links can only be read: a double click or Enter then asks to show the linked record.
    /// Long names wrap then.
    void setLocked(bool locked);

    [[nodiscard]] PickListKind kind() const { return m_kind; }
    [[nodiscard]] QListWidget* list() const { return m_list; }

Q_SIGNALS:
    /// The user asks for the pick list.
    void addPressed();

    /// The user asks to see the linked record of that key.
    void opened(RecordKind kind, qint64 key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addItem(const ListEntry& entry);
    bool open(const QListWidgetItem* item);

    PickListKind m_kind;
    QListWidget* m_list;
    QPushButton* m_add;
    QPushButton* m_clear;
    bool m_isLocked = false;
};
