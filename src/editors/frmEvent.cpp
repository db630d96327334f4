#include "editors/frmEvent.h"

#include "editors/CheckList.h"
#include "editors/FormControls.h"
#include "editors/FormGrid.h"
#include "editors/LinkList.h"
#include "editors/PickerEdit.h"
#include "platform/Messages.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

namespace {

constexpr QSize firstSize(1000, 700);

} // namespace

frmEvent::frmEvent(const Platform& platform, ProgramState& state, QWidget* parent)
    : RecordDialog(platform, state, QStringLiteral("frmEvent"), firstSize, parent),
      m_store(state.session, platform.clock)
{
    makeForm();
    for (LinkList* list : {lstEventFunctions, lstEventDocuments, lstEventOrgs})
        connectList(list);
}

void frmEvent::makeForm()
{
    auto* page = new QWidget(this);
    auto* columns = new QHBoxLayout(page);
    auto* fields = new QWidget(page);
    auto* lists = new QWidget(page);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(fields, 1);
    columns->addWidget(lists, 1);
    makeFields(fields);
    makeLists(lists);
    setForm(page);
    markRequired({txtEventName, rtbEventDescription, lvVenues});
}

void frmEvent::makeFields(QWidget* page)
{
    FormGrid grid(page, 1);
    txtEventName = grid.line("txtEventName", tr("&Title:"));
    grid.add(tr("&Start:"),
             makeMoment(tr("Start"), dtpStartDate, "dtpStartDate", dtpStartTime, "dtpStartTime"));
    grid.add(tr("&End:"), makeMoment(tr("End"), dtpEndDate, "dtpEndDate", dtpEndTime, "dtpEndTime"));
    chkKeyEvent = grid.check("chkKeyEvent", tr("&Key event"));
    rtbEventDescription = grid.text("rtbEventDescription", tr("Des&cription:"), 3);
    rtbNotes = grid.text("rtbNotes", tr("&Notes:"), 2);
}

QWidget* frmEvent::makeMoment(const QString& what, OptionalDateEdit*& date, const char* dateName,
                              OptionalTimeEdit*& time, const char* timeName)
{
    auto* field = new QWidget(this);
    auto* layout = new QHBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    date = new OptionalDateEdit(field);
    date->setObjectName(QString::fromLatin1(dateName));
    date->setAccessibleName(tr("%1 date").arg(what));
    time = new OptionalTimeEdit(field);
    time->setObjectName(QString::fromLatin1(timeName));
    time->setAccessibleName(tr("%1 time").arg(what));
    layout->addWidget(date, 3);
    layout->addWidget(time, 2);
    field->setFocusProxy(date);
    return field;
}

void frmEvent::makeLists(QWidget* page)
{
    FormGrid grid(page, 1);
    lvVenues = new CheckList(u'v', page);
    lvVenues->setObjectName(QStringLiteral("lvVenues"));
    grid.addTall(tr("&Venues:"), lvVenues, 2);
    lstEventFunctions =
        new LinkList({"lstEventFunctions", "cmdAddEventFunction", "cmdClearEventFunctions", tr("functions")},
                     PickListKind::Functions, page);
    grid.addTall(tr("&Functions:"), lstEventFunctions);
    lstEventDocuments =
        new LinkList({"lstEventDocuments", "cmdAddEventDoc", "cmdClearEventDocs", tr("related documents")},
                     PickListKind::Documents, page);
    grid.addTall(tr("Related &documents:"), lstEventDocuments);
    lstEventOrgs =
        new LinkList({"lstEventOrgs", "cmdAddEventOrg", "cmdClearEventOrgs", tr("related organizations")},
                     PickListKind::Organizations, page);
    grid.addTall(tr("Related &organizations:"), lstEventOrgs);
}

bool frmEvent::addEvent(const std::optional<clsFieldInfo>& preset)
{
    const bool isReady = runTrapped("addEvent", [&] {
        const auto refusal = preset ? EventStore::refusalOfPreset(*preset) : std::nullopt;
        if (refusal) platform().messages.show(*refusal);
        m_record = m_store.blank(preset);
        showRecord();
    });
    return isReady && run(EditorMode::Add, txtEventName);
}

bool frmEvent::editEvent(qint64 id)
{
    return openRecord(EditorMode::Edit, id);
}

bool frmEvent::viewEvent(qint64 id)
{
    return openRecord(EditorMode::View, id);
}

/// A record that could not be read is not opened: what is missing on the screen would be lost by a save.
bool frmEvent::openRecord(EditorMode mode, qint64 id)
{
    FormControls::clear(*form());
    return runTrapped("populateFields", [&] { populateFields(id); }) && run(mode, txtEventName);
}

void frmEvent::populateFields(qint64 id)
{
    LoadedRecord<EventRecord> loaded = m_store.load(id);
    if (!loaded.isFound) platform().messages.show(EventStore::notFoundMessage(id));
    m_record = std::move(loaded.record);
    m_record.id = id;
    showRecord();
}

void frmEvent::showRecord()
{
    txtEventName->setText(m_record.eventName);
    rtbEventDescription->setPlainText(m_record.eventDescription);
    rtbNotes->setPlainText(m_record.notes);
    chkKeyEvent->setChecked(m_record.keyEvent);
    dtpStartDate->showText(m_record.startDate);
    dtpEndDate->showText(m_record.endDate);
    dtpStartTime->showText(m_record.startTime);
    dtpEndTime->showText(m_record.endTime);
    lvVenues->setEntries(m_record.venues);
    lstEventFunctions->setEntries(m_record.functions);
    lstEventDocuments->setEntries(m_record.documents);
    lstEventOrgs->setEntries(m_record.organizations);
}

void frmEvent::collectRecord()
{
    m_record.eventName = txtEventName->text();
    m_record.eventDescription = FormControls::text(*rtbEventDescription, m_record.eventDescription);
    m_record.notes = FormControls::text(*rtbNotes, m_record.notes);
    m_record.keyEvent = chkKeyEvent->isChecked();
    m_record.startDate = dtpStartDate->text();
    m_record.endDate = dtpEndDate->text();
    m_record.startTime = dtpStartTime->text();
    m_record.endTime = dtpEndTime->text();
    m_record.venues = lvVenues->entries();
    m_record.functions = lstEventFunctions->entries();
    m_record.documents = lstEventDocuments->entries();
    m_record.organizations = lstEventOrgs->entries();
}

QString frmEvent::captionFor(EditorMode mode) const
{
    switch (mode) {
    case EditorMode::Add:
        return tr("Add a New Event");
    case EditorMode::Edit:
        return tr("Editing EventID %1").arg(m_record.id);
    case EditorMode::View:
        break;
    }
    return tr("Viewing EventID %1 (Read-Only)").arg(m_record.id);
}

QWidget* frmEvent::fieldOf(EventField field) const
{
    switch (field) {
    case EventField::EventName:
        return txtEventName;
    case EventField::EventDescription:
        return rtbEventDescription;
    case EventField::StartDate:
        return dtpStartDate;
    case EventField::EndDate:
        return dtpEndDate;
    case EventField::StartTime:
        return dtpStartTime;
    case EventField::EndTime:
        return dtpEndTime;
    case EventField::Venues:
        break;
    }
    return lvVenues;
}

bool frmEvent::saveRecord()
{
    collectRecord();
    if (const auto problem = EventStore::check(m_record)) {
        return refuse(problem->message, fieldOf(problem->field));
    }
    const auto field = [this](EventField each) { return fieldOf(each); };
    if (mode() == EditorMode::Add) {
        return writeTrapped<EventStore::Problem>(
            "saveEvent", [this] { return m_store.saveEvent(m_record); }, field);
    }
    return updateTrapped("updateEvent", m_record.stored, [this] { return m_store.updateEvent(m_record); });
}
