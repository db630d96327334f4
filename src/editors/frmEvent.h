#pragma once

#include "editors/RecordDialog.h"
#include "records/EventStore.h"

class CheckList;
class FormGrid;
class OptionalDateEdit;
class OptionalTimeEdit;
class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

/// The editor of one event.
class frmEvent final : public RecordDialog
{
    Q_OBJECT

public:
    /// Both must outlive the dialog.
    frmEvent(const Platform& platform, ProgramState& state, QWidget* parent);

    /// Each shows the dialog until the user has done with it, and is true where a record was saved.
    bool addEvent(const std::optional<clsFieldInfo>& preset);
    bool editEvent(qint64 id);
    bool viewEvent(qint64 id);

    /// The moment at which the saved event starts; nothing where it has no date.
    [[nodiscard]] std::optional<QDateTime> getStartDate() const { return EventStore::getStartDate(m_record); }

    [[nodiscard]] qint64 recordId() const override { return m_record.id; }
    [[nodiscard]] QString recordName() const override { return m_record.eventName; }

private:
    void makeForm();
    void makeFields(QWidget* page);
    void makeLists(QWidget* page);
    QWidget* makeMoment(const QString& what, OptionalDateEdit*& date, const char* dateName,
                        OptionalTimeEdit*& time, const char* timeName);
    bool openRecord(EditorMode mode, qint64 id);
    void populateFields(qint64 id);
    void showRecord();
    void collectRecord();
    [[nodiscard]] QWidget* fieldOf(EventField field) const;

    [[nodiscard]] QString captionFor(EditorMode mode) const override;
    void applyMode(EditorMode /*mode*/) override {}
    bool saveRecord() override;

    EventStore m_store;
    EventRecord m_record;

    QLineEdit* txtEventName = nullptr;
    OptionalDateEdit* dtpStartDate = nullptr;
    OptionalTimeEdit* dtpStartTime = nullptr;
    OptionalDateEdit* dtpEndDate = nullptr;
    OptionalTimeEdit* dtpEndTime = nullptr;
    QCheckBox* chkKeyEvent = nullptr;
    QPlainTextEdit* rtbEventDescription = nullptr;
    QPlainTextEdit* rtbNotes = nullptr;
    CheckList* lvVenues = nullptr;
    LinkList* lstEventFunctions = nullptr;
    LinkList* lstEventDocuments = nullptr;
    LinkList* lstEventOrgs = nullptr;
};
