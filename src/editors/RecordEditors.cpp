#include "editors/RecordEditors.h"

#include "editors/FileDrop.h"
#include "editors/frmDocument.h"
#include "editors/frmEvent.h"
#include "editors/frmOrganization.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"

#include <QStringList>

#include <algorithm>

namespace {

/// The word for one record of a kind in the names of procedures.
QString kindWord(ViewKind kind)
{
    switch (kind) {
    case ViewKind::Documents:
        return QStringLiteral("Document");
    case ViewKind::Events:
        return QStringLiteral("Event");
    case ViewKind::Organizations:
        return QStringLiteral("Organization");
    default:
        return {};
    }
}

} // namespace

RecordEditors::RecordEditors(const Platform& platform, ProgramState& state, QWidget& window)
    : QObject(&window), m_platform(platform), m_state(state), m_window(window)
{
}

void RecordEditors::addDocument(const std::optional<clsFieldInfo>& preset, const QString& file)
{
    frmDocument dialog(m_platform, m_state, &m_window);
    dialog.addDocument(preset, file);
    finish(ViewKind::Documents, dialog);
}

void RecordEditors::addEvent(const std::optional<clsFieldInfo>& preset)
{
    frmEvent dialog(m_platform, m_state, &m_window);
    if (dialog.addEvent(preset)) Q_EMIT eventSaved(dialog.getStartDate());
    finish(ViewKind::Events, dialog);
}

void RecordEditors::addOrganization()
{
    frmOrganization dialog(m_platform, m_state, &m_window);
    dialog.addOrganization();
    finish(ViewKind::Organizations, dialog);
}

void RecordEditors::add(ViewKind kind, const std::optional<clsFieldInfo>& preset)
{
    if (kind == ViewKind::Documents) addDocument(preset);
    if (kind == ViewKind::Events) addEvent(preset);
    if (kind == ViewKind::Organizations) addOrganization();
}

void RecordEditors::edit(ViewKind kind, qint64 id)
{
    open(kind, id, EditorMode::Edit, m_window);
}

void RecordEditors::view(ViewKind kind, qint64 id)
{
    open(kind, id, EditorMode::View, m_window);
}

void RecordEditors::open(ViewKind kind, qint64 id, EditorMode mode, QWidget& over)
{
    const bool forEditing = mode == EditorMode::Edit;
    if (kind == ViewKind::Documents) {
        frmDocument dialog(m_platform, m_state, &over);
        prepare(kind, dialog);
        forEditing ? dialog.editDocument(id) : dialog.viewDocument(id);
        finish(kind, dialog);
    } else if (kind == ViewKind::Events) {
        frmEvent dialog(m_platform, m_state, &over);
        prepare(kind, dialog);
        const bool isSaved = forEditing ? dialog.editEvent(id) : dialog.viewEvent(id);
        if (isSaved) Q_EMIT eventSaved(dialog.getStartDate());
        finish(kind, dialog);
    } else if (kind == ViewKind::Organizations) {
        frmOrganization dialog(m_platform, m_state, &over);
        prepare(kind, dialog);
        forEditing ? dialog.editOrganization(id) : dialog.viewOrganization(id);
        finish(kind, dialog);
    }
}

/// What a viewed record leads to is shown over it.
void RecordEditors::prepare(ViewKind kind, RecordDialog& dialog)
{
    connect(&dialog, &RecordDialog::recordAsked, this, [this, &dialog](PickListKind asked, qint64 id) {
        open(asked == PickListKind::Documents ? ViewKind::Documents : ViewKind::Organizations, id,
             EditorMode::View, dialog);
    });
    connect(&dialog, &RecordDialog::fileAsked, this,
            [this, kind, &dialog] { Q_EMIT fileAsked(kind, dialog.recordId()); });
}

void RecordEditors::refuseSeveralFiles() const
{
    m_platform.messages.show(FileDrop::severalText());
}

/// A user who leaves after a save that failed half-way has cancelled, but what was written is to be seen.
void RecordEditors::finish(ViewKind kind, const RecordDialog& dialog)
{
    m_state.editCancelled = false;
    if (!dialog.hasWritten()) return;
    Q_EMIT changed(kind, dialog.recordId());
    if (dialog.result() == QDialog::Accepted) Q_EMIT saved(kind, dialog.recordName());
}

void RecordEditors::remove(ViewKind kind, const std::vector<ListEntry>& records)
{
    if (records.empty() || kindWord(kind).isEmpty() || !mayDelete(kind, records)) return;
    if (deleteRecords(kind, records)) Q_EMIT changed(kind, -1);
}

bool RecordEditors::mayDelete(ViewKind kind, const std::vector<ListEntry>& records)
{
    if (records.size() == 1) {
        const QString question =
            kind == ViewKind::Documents ? tr("Are you sure you want to delete the Document \"%1\"?")
            : kind == ViewKind::Events  ? tr("Are you sure you want to delete the Event \"%1\"?")
                                        : tr("Are you sure you want to delete the Organization \"%1\"?");
        return m_platform.messages.ask(question.arg(records.front().display), Question::Loss);
    }
    const int count = static_cast<int>(records.size());
    return m_platform.messages.ask(
        kind == ViewKind::Documents
            ? tr("Are you sure you want to delete the %n selected Documents?", nullptr, count)
        : kind == ViewKind::Events
            ? tr("Are you sure you want to delete the %n selected Events?", nullptr, count)
            : tr("Are you sure you want to delete the %n selected Organizations?", nullptr, count),
        Question::Loss);
}

/// What the user is told after several records were deleted: how many, and which.
QString RecordEditors::deletionText(ViewKind kind, const QStringList& names)
{
    constexpr qsizetype mostNamed = 10;
    const int count = static_cast<int>(names.size());
    QString text = kind == ViewKind::Documents ? tr("%n Documents successfully deleted.", nullptr, count)
                   : kind == ViewKind::Events  ? tr("%n Events successfully deleted.", nullptr, count)
                                               : tr("%n Organizations successfully deleted.", nullptr, count);
    for (const QString& name : names.first(std::min(names.size(), mostNamed)))
        text += u'\n' + name;
    if (names.size() > mostNamed)
        text += u'\n' + tr("… and %n more.", nullptr, static_cast<int>(names.size() - mostNamed));
    return text;
}

/// Stops at the first failure; what was deleted before it stays deleted, and is named. False if nothing was.
bool RecordEditors::deleteRecords(ViewKind kind, const std::vector<ListEntry>& records)
{
    QString said;
    QStringList names;
    runProcedure(m_platform.messages, QStringLiteral("delete") + kindWord(kind), [&] {
        for (const ListEntry& record : records) {
            said = deleteRecord(kind, record.key);
            names << record.display;
        }
    });
    if (names.isEmpty()) return false;
    m_platform.messages.show(records.size() == 1 ? said : deletionText(kind, names));
    return true;
}

QString RecordEditors::deleteRecord(ViewKind kind, qint64 id)
{
    if (kind == ViewKind::Documents)
        return DocumentStore(m_state.session, m_state.folder, m_platform.clock).deleteDocument(id);
    if (kind == ViewKind::Events) return EventStore(m_state.session, m_platform.clock).deleteEvent(id);
    return OrganizationStore(m_state.session, m_state.folder, m_platform.clock).deleteOrganization(id);
}
