// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/RecordEditors.h"

#include "backup/AutomaticBackups.h"
#include "editors/FileDrop.h"
#include "editors/frmDocument.h"
#include "editors/frmEvent.h"
#include "editors/frmOrganization.h"
#include "history/frmHistory.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"

#include <algorithm>

RecordEditors::RecordEditors(const Platform& platform, DatabaseSession& session, const NewEntries& newEntries,
                             const ProgramFolder& folder, QWidget& window)
    : QObject(&window),
      m_platform(platform),
      m_session(session),
      m_newEntries(newEntries),
      m_folder(folder),
      m_window(window)
{
}

void RecordEditors::addDocument(const std::optional<clsFieldInfo>& preset, const QString& file)
{
    frmDocument dialog(m_platform, m_session, m_newEntries, m_folder, &m_window);
    dialog.addDocument(preset, file);
    finish(RecordKind::Document, dialog);
}

void RecordEditors::addEvent(const std::optional<clsFieldInfo>& preset)
{
    frmEvent dialog(m_platform, m_session, m_newEntries, &m_window);
    if (dialog.addEvent(preset)) Q_EMIT eventSaved(dialog.getStartDate());
    finish(RecordKind::Event, dialog);
}

void RecordEditors::addOrganization()
{
    frmOrganization dialog(m_platform, m_session, m_newEntries, m_folder, &m_window);
    dialog.addOrganization();
    finish(RecordKind::Organization, dialog);
}

void RecordEditors::add(RecordKind kind, const std::optional<clsFieldInfo>& preset)
{
    if (kind == RecordKind::Document) addDocument(preset);
    if (kind == RecordKind::Event) addEvent(preset);
    if (kind == RecordKind::Organization) addOrganization();
}

void RecordEditors::edit(RecordKind kind, qint64 id)
{
    open(kind, id, EditorMode::Edit, m_window);
}

void RecordEditors::view(RecordKind kind, qint64 id)
{
    open(kind, id, EditorMode::View, m_window);
}

void RecordEditors::viewOver(QWidget& over, RecordKind kind, qint64 id)
{
    open(kind, id, EditorMode::View, over);
}

void RecordEditors::open(RecordKind kind, qint64 id, EditorMode mode, QWidget& over)
{
    const bool forEditing = mode == EditorMode::Edit;
    switch (kind) {
    case RecordKind::Document: {
        frmDocument dialog(m_platform, m_session, m_newEntries, m_folder, &over);
        prepare(kind, dialog);
        forEditing ? dialog.editDocument(id) : dialog.viewDocument(id);
        return finish(kind, dialog);
    }
    case RecordKind::Event: {
        frmEvent dialog(m_platform, m_session, m_newEntries, &over);
        prepare(kind, dialog);
        const bool isSaved = forEditing ? dialog.editEvent(id) : dialog.viewEvent(id);
        if (isSaved) Q_EMIT eventSaved(dialog.getStartDate());
        return finish(kind, dialog);
    }
    case RecordKind::Organization: {
        frmOrganization dialog(m_platform, m_session, m_newEntries, m_folder, &over);
        prepare(kind, dialog);
        forEditing ? dialog.editOrganization(id) : dialog.viewOrganization(id);
        return finish(kind, dialog);
    }
    }
}

/// Linked records open over the dialog that shows the links.
void RecordEditors::prepare(RecordKind kind, RecordDialog& dialog)
{
    connect(&dialog, &RecordDialog::recordAsked, this,
            [this, &dialog](RecordKind asked, qint64 id) { open(asked, id, EditorMode::View, dialog); });
    connect(&dialog, &RecordDialog::fileAsked, this,
            [this, kind, &dialog] { Q_EMIT fileAsked(kind, dialog.recordId()); });
    connect(&dialog, &RecordDialog::historyAsked, this, [this, kind, &dialog] {
        if (showHistoryOver(dialog, kind, dialog.recordId())) dialog.readAgain();
    });
}

bool RecordEditors::showHistory(RecordKind kind, qint64 id)
{
    return showHistoryOver(m_window, kind, id);
}

bool RecordEditors::showHistoryOver(QWidget& over, RecordKind kind, qint64 id)
{
    frmHistory window(m_platform, m_session, m_folder, &over);
    window.showHistory(kind, id);
    if (!window.hasRestored()) return false;
    tellOfChange(kind, {id});
    Q_EMIT saved(kind, id, window.recordName());
    return true;
}

void RecordEditors::refuseSeveralFiles() const
{
    m_platform.messages.show(FileDrop::severalText());
}

/// A user who cancels after a save that failed half-way must still see what it wrote.
void RecordEditors::finish(RecordKind kind, const RecordDialog& dialog)
{
    if (!dialog.hasWritten()) return;
    Q_EMIT changed(kind, dialog.recordId());
    if (dialog.result() == QDialog::Accepted) Q_EMIT saved(kind, dialog.recordId(), dialog.recordName());
}

void RecordEditors::tellOfChange(RecordKind kind, const std::vector<qint64>& ids)
{
    if (ids.empty()) return;
    if (kind == RecordKind::Event) Q_EMIT eventSaved(startOfEvent(ids.front()));
    Q_EMIT changed(kind, ids.front());
}

/// Returns std::nullopt for an event that is not shown any more.
std::optional<QDateTime> RecordEditors::startOfEvent(qint64 id) const
{
    try {
        const auto loaded = EventStore(m_session, m_platform.clock).load(id);
        const bool isShown = loaded.isFound &&
                             loaded.record.stored->known.status.compare(u"DELETED", Qt::CaseInsensitive) != 0;
        return isShown ? EventStore::getStartDate(loaded.record) : std::nullopt;
    } catch (const Error&) {
        // reading the list fails in the same way and says so
        return std::nullopt;
    }
}

void RecordEditors::remove(RecordKind kind, const std::vector<ListEntry>& records)
{
    if (records.empty() || !mayDelete(kind, records)) return;
    AutomaticBackups(m_platform, m_session.fileName(), m_folder)
        .beforeChange(static_cast<qint64>(records.size()));
    const QStringList names = deleteRecords(kind, records);
    if (names.isEmpty()) return;
    Q_EMIT changed(kind, -1);
    Q_EMIT deleted(kind, names);
}

bool RecordEditors::mayDelete(RecordKind kind, const std::vector<ListEntry>& records)
{
    if (records.size() == 1) {
        const QString question =
            kind == RecordKind::Document ? tr("Are you sure you want to delete the Document \"%1\"?")
            : kind == RecordKind::Event  ? tr("Are you sure you want to delete the Event \"%1\"?")
                                         : tr("Are you sure you want to delete the Organization \"%1\"?");
        return m_platform.messages.ask(question.arg(records.front().display), Question::Loss);
    }
    const int count = static_cast<int>(records.size());
    return m_platform.messages.ask(
        kind == RecordKind::Document
            ? tr("Are you sure you want to delete the %n selected Documents?", nullptr, count)
        : kind == RecordKind::Event
            ? tr("Are you sure you want to delete the %n selected Events?", nullptr, count)
            : tr("Are you sure you want to delete the %n selected Organizations?", nullptr, count),
        Question::Loss);
}

/// The message after several records were deleted: how many, and which.
QString RecordEditors::deletionText(RecordKind kind, const QStringList& names)
{
    constexpr qsizetype mostNamed = 10;
    const int count = static_cast<int>(names.size());
    QString text = kind == RecordKind::Document ? tr("%n Documents successfully deleted.", nullptr, count)
                   : kind == RecordKind::Event  ? tr("%n Events successfully deleted.", nullptr, count)
                                               : tr("%n Organizations successfully deleted.", nullptr, count);
    for (const QString& name : names.first(std::min(names.size(), mostNamed)))
        text += u'\n' + name;
    if (names.size() > mostNamed)
        text += u'\n' + tr("… and %n more.", nullptr, static_cast<int>(names.size() - mostNamed));
    return text;
}

/// Stops at the first failure; what was deleted before it stays deleted. Returns the names of what was.
QStringList RecordEditors::deleteRecords(RecordKind kind, const std::vector<ListEntry>& records)
{
    QString said;
    QStringList names;
    JournalStep step;
    runProcedure(m_platform.messages, QStringLiteral("delete") + recordNames(kind).record, [&] {
        for (const ListEntry& record : records) {
            said = deleteRecord(kind, record.key, &step);
            names << record.display;
        }
    });
    if (!names.isEmpty()) m_platform.messages.show(records.size() == 1 ? said : deletionText(kind, names));
    return names;
}

QString RecordEditors::deleteRecord(RecordKind kind, qint64 id, JournalStep* step)
{
    switch (kind) {
    case RecordKind::Document:
        return DocumentStore(m_session, m_folder, m_platform.clock).deleteDocument(id, step);
    case RecordKind::Event:
        return EventStore(m_session, m_platform.clock).deleteEvent(id, step);
    case RecordKind::Organization:
        break;
    }
    return OrganizationStore(m_session, m_folder, m_platform.clock).deleteOrganization(id, step);
}
