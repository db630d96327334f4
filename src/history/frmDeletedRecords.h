// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/DeletedRecords.h"
#include "platform/Platform.h"

#include <QDialog>

#include <functional>
#include <vector>

class DeletedRecordsModel;
class EmptyResultNotice;
class QLabel;
class QListWidget;
class QPushButton;
class QTreeView;
class QVBoxLayout;

/// The modal dialog that shows the deleted records of each kind, and restores them. Lives for one opening.
class frmDeletedRecords final : public QDialog
{
    Q_OBJECT

public:
    /// Shows something of a record over a window.
    using Shower = std::function<void(RecordKind kind, qint64 identifier, QWidget& over)>;

    /// What the dialog works with. The references must outlive it.
    struct Surroundings
    {
        Platform platform;
        DatabaseSession& session;
        Shower view;    ///< the record itself
        Shower history; ///< its versions
    };

    frmDeletedRecords(Surroundings surroundings, QWidget* parent);

    /// Shows the dialog, which begins with that kind, until the user closes it.
    void showDeleted(RecordKind kind);

    void done(int result) override;

Q_SIGNALS:
    /// Records are active again, in the order in which they were shown.
    void restored(RecordKind kind, const std::vector<qint64>& identifiers);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeKinds();
    void makeTable();
    void makeButtons(QVBoxLayout& column);
    QPushButton* makeButton(QVBoxLayout& column, const char* name, const QString& text,
                            const QString& toolTip, void (frmDeletedRecords::*command)());
    void layOut(QVBoxLayout* buttons);
    [[nodiscard]] RecordKind kind() const;
    void captionKind(RecordKind kind, std::size_t count);
    void readKind();
    void select(int row);
    [[nodiscard]] std::vector<qint64> selected() const;
    void enableButtons();
    void viewRecord();
    void showHistory();
    void showOver(const Shower& shower);
    void restoreRecords();

    Surroundings m_at;
    DeletedRecords m_records;
    DeletedRecordsModel* m_model;
    QListWidget* lstKinds = nullptr;
    QTreeView* lvDeleted = nullptr;
    EmptyResultNotice* m_notice = nullptr;
    QPushButton* cmdView = nullptr;
    QPushButton* cmdHistory = nullptr;
    QPushButton* cmdRestore = nullptr;
    QLabel* lblOutcome = nullptr;
};
