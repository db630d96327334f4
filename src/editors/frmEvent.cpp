// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/frmEvent.h"

#include "editors/CheckList.h"
#include "editors/FieldWithNew.h"
#include "editors/FormControls.h"
#include "editors/FormGrid.h"
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

frmEvent::frmEvent(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                   QWidget* parent)
    : RecordDialog(platform, session, newEntries, QStringLiteral("frmEvent"), firstSize, parent),
      m_store(session, platform.clock)
{
    makeForm();
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
    using Record = EventRecord;
    FormGrid grid(page, 1);
    txtEventName = m_fields.bind(grid.line("txtEventName", tr("&Title:")), &Record::eventName);
    dtpStartDate = m_fields.bind(new OptionalDateEdit(page), &Record::startDate);
    dtpStartDate->setObjectName(QStringLiteral("dtpStartDate"));
    dtpStartTime = m_fields.bind(new OptionalTimeEdit(page), &Record::startTime);
    dtpStartTime->setObjectName(QStringLiteral("dtpStartTime"));
    grid.add(tr("&Start:"), makeMoment(tr("Start"), *dtpStartDate, *dtpStartTime));
    dtpEndDate = m_fields.bind(new OptionalDateEdit(page), &Record::endDate);
    dtpEndDate->setObjectName(QStringLiteral("dtpEndDate"));
    dtpEndTime = m_fields.bind(new OptionalTimeEdit(page), &Record::endTime);
    dtpEndTime->setObjectName(QStringLiteral("dtpEndTime"));
    grid.add(tr("&End:"), makeMoment(tr("End"), *dtpEndDate, *dtpEndTime));
    m_fields.bind(grid.check("chkKeyEvent", tr("&Key event")), &Record::keyEvent);
    rtbEventDescription =
        m_fields.bind(grid.text("rtbEventDescription", tr("Des&cription:"), 3), &Record::eventDescription);
    m_fields.bind(grid.text("rtbNotes", tr("&Notes:"), 2), &Record::notes);
}

QWidget* frmEvent::makeMoment(const QString& what, OptionalDateEdit& date, OptionalTimeEdit& time)
{
    auto* field = new QWidget(this);
    auto* layout = new QHBoxLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    date.setAccessibleName(tr("%1 date").arg(what));
    time.setAccessibleName(tr("%1 time").arg(what));
    layout->addWidget(&date, 3);
    layout->addWidget(&time, 2);
    field->setFocusProxy(&date);
    return field;
}

void frmEvent::makeLists(QWidget* page)
{
    FormGrid grid(page, 1);
    lvVenues = m_fields.bind(new CheckList(u'v', page), &EventRecord::venues);
    lvVenues->setObjectName(QStringLiteral("lvVenues"));
    grid.addTall(tr("&Venues:"), withNew(lvVenues, ListKind::Venues, "cmdNewVenue"), 2);
    grid.addTall(tr("&Functions:"), makeList({"lstEventFunctions", "cmdAddEventFunction",
                                              "cmdClearEventFunctions", tr("functions")},
                                             PickListKind::Functions, &EventRecord::functions, page));
    grid.addTall(tr("Related &documents:"), makeList({"lstEventDocuments", "cmdAddEventDoc",
                                                      "cmdClearEventDocs", tr("related documents")},
                                                     PickListKind::Documents, &EventRecord::documents, page));
    grid.addTall(
        tr("Related &organizations:"),
        makeList({"lstEventOrgs", "cmdAddEventOrg", "cmdClearEventOrgs", tr("related organizations")},
                 PickListKind::Organizations, &EventRecord::organizations, page));
}

LinkList* frmEvent::makeList(const LinkList::Names& names, PickListKind kind,
                             std::vector<ListEntry> EventRecord::*entries, QWidget* page)
{
    auto* list = m_fields.bind(new LinkList(names, kind, page), entries);
    connectList(list);
    return list;
}

bool frmEvent::addEvent(const std::optional<clsFieldInfo>& preset)
{
    const bool isReady = runTrapped("addEvent", [&] {
        const auto refusal = preset ? EventStore::refusalOfPreset(*preset) : std::nullopt;
        if (refusal) platform().messages.show(*refusal);
        m_record = m_store.blank(preset);
        m_fields.show(m_record);
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

/// A record that cannot be read is not opened: a save would lose what the screen does not show.
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
    m_fields.show(m_record);
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
    m_fields.take(m_record);
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
