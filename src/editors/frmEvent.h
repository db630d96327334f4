// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editors/FormBinding.h"
#include "editors/LinkList.h"
#include "editors/RecordDialog.h"
#include "records/EventStore.h"

class CheckList;
class OptionalDateEdit;
class OptionalTimeEdit;
class QLineEdit;
class QPlainTextEdit;

/// The editor of one event.
class frmEvent final : public RecordDialog
{
    Q_OBJECT

public:
    /// The session must outlive the dialog.
    frmEvent(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
             QWidget* parent);

    /// Each shows the dialog until the user is done with it, and returns whether a record was saved.
    bool addEvent(const std::optional<clsFieldInfo>& preset);
    bool editEvent(qint64 id);
    bool viewEvent(qint64 id);

    /// The moment at which the saved event starts; std::nullopt if it has no date.
    [[nodiscard]] std::optional<QDateTime> getStartDate() const { return EventStore::getStartDate(m_record); }

    [[nodiscard]] qint64 recordId() const override { return m_record.id; }
    [[nodiscard]] QString recordName() const override { return m_record.eventName; }

private:
    void makeForm();
    void makeFields(QWidget* page);
    void makeLists(QWidget* page);
    QWidget* makeMoment(const QString& what, OptionalDateEdit& date, OptionalTimeEdit& time);
    LinkList* makeList(const LinkList::Names& names, PickListKind kind,
                       std::vector<ListEntry> EventRecord::*entries, QWidget* page);
    bool openRecord(EditorMode mode, qint64 id);
    void populateFields(qint64 id) override;
    [[nodiscard]] QWidget* fieldOf(EventField field) const;

    [[nodiscard]] QString captionFor(EditorMode mode) const override;
    void applyMode(EditorMode /*mode*/) override {}
    bool saveRecord() override;

    EventStore m_store;
    EventRecord m_record;

    FormBinding<EventRecord> m_fields;
    QLineEdit* txtEventName = nullptr;
    OptionalDateEdit* dtpStartDate = nullptr;
    OptionalTimeEdit* dtpStartTime = nullptr;
    OptionalDateEdit* dtpEndDate = nullptr;
    OptionalTimeEdit* dtpEndTime = nullptr;
    QPlainTextEdit* rtbEventDescription = nullptr;
    CheckList* lvVenues = nullptr;
};
