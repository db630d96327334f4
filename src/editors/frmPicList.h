// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "records/PickList.h"

#include <QDialog>

class DatabaseSession;
class NewEntries;
class PickListModel;
class PickListView;
class QLabel;
class QLineEdit;
class QPushButton;

/// The modal dialog in which several records are chosen at once. It offers every active row of a kind with a
/// check box, ticked if the caller has it already, and hands the ticked rows back. Lives for one choice.
class frmPicList final : public QDialog
{
    Q_OBJECT

public:
    /// All must outlive the dialog. With `newEntries`, the user can add entries to a lookup table.
    frmPicList(const Platform& platform, DatabaseSession& session, QWidget* parent,
               const NewEntries* newEntries = nullptr);

    /// Shows the rows of a kind until the user decides. OK replaces `chosen` and returns true. Cancel, a
    /// failure and a kind without rows leave it as it was; the last two show a message.
    bool showList(PickListKind kind, PickedItems& chosen);

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool takeEnter(Qt::KeyboardModifiers modifiers);
    void toggleSelected();
    void makeParts();
    void layOut();
    void connectParts();
    bool fill(PickListKind kind, const PickedItems& chosen);
    void giveColumnsTheirWidths(PickListKind kind);
    void addEntry();
    void cmdOK();
    void sortBy(int column);
    void countTicks();

    Platform m_platform;
    DatabaseSession& m_session;
    const NewEntries* m_newEntries;
    PickListKind m_kind = PickListKind::Organizations;
    PickListModel* m_model;
    PickListView* m_list = nullptr;
    QLineEdit* m_filter = nullptr;
    QLabel* m_count = nullptr;
    QPushButton* m_new = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    PickedItems m_picked;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};
