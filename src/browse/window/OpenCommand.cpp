#include "browse/window/OpenCommand.h"

#include "browse/list/ListPane.h"
#include "browse/list/RowIconKeys.h"
#include "files/FileOpener.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "state/ProgramState.h"
#include "views/SearchKind.h"
#include "widgets/WaitCursor.h"

namespace {

constexpr std::size_t mostUnasked = 5;
constexpr qsizetype mostTold = 10;

} // namespace

QString OpenCommand::hindrance() const
{
    if (m_list.kind() == ViewKind::Events) return tr("An event has no file to open.");
    return m_list.selectedCount() == 0 ? tr("Select a record first.") : QString();
}

QString OpenCommand::question(std::size_t count) const
{
    const int files = static_cast<int>(count);
    return m_list.kind() == ViewKind::Documents
               ? tr("Are you sure you want to open %n documents?", nullptr, files)
               : tr("Are you sure you want to open %n charts?", nullptr, files);
}

QString OpenCommand::openFile(ViewKind kind, const SelectedRecord& record) const
{
    const FileOpener opener({m_platform.volumes, m_platform.shell, m_state.session, m_state.folder,
                             ProgramFolders::documents, ProgramFolders::organizationCharts});
    return kind == ViewKind::Documents ? opener.openDoc(record.fileLocation, record.iconKey)
                                       : opener.openOrgChart(record.identifier, record.iconKey);
}

void OpenCommand::run() const
{
    const std::size_t count = m_list.selectedCount();
    if (count > mostUnasked && !m_platform.messages.ask(question(count), Question::Harmless)) return;
    open(m_list.kind(), [this] { return m_list.selectedRecords(); });
}

void OpenCommand::openRecord(ViewKind kind, qint64 identifier) const
{
    open(kind, [&] { return recordOf(kind, identifier); });
}

/// The record as a row of its list would show it; without a file if it is gone.
std::vector<SelectedRecord> OpenCommand::recordOf(ViewKind kind, qint64 identifier) const
{
    SQLObject query = standardQuery(m_state.queries, kind);
    query.WhereClause = QStringLiteral("WHERE %1.%1ID = %2").arg(recordNames(kind).record).arg(identifier);
    RecordList list(kind);
    RecordSet rows = m_state.session.read(query.sqlStr());
    list.beginReading(rows);
    if (!rows.next()) return {{identifier, {}, {}, {}}};
    list.append(rows);
    RowIconKeys icons(m_state.session, m_state.folder.folderPath(ProgramFolders::documents));
    return {{identifier, list.text(0, 0), list.fileLocation(0), icons.key(list, 0)}};
}

void OpenCommand::open(ViewKind kind, const std::function<std::vector<SelectedRecord>()>& read) const
{
    QStringList failures;
    const QString procedure =
        kind == ViewKind::Documents ? QStringLiteral("openDoc") : QStringLiteral("openOrgChart");
    runProcedure(m_platform.messages, procedure, [&] {
        const WaitCursor wait;
        for (const SelectedRecord& record : read())
            failures << openFile(kind, record);
    });
    failures.removeAll(QString());
    // a disc that is missing is missing for all of them
    failures.removeDuplicates();
    if (failures.isEmpty()) return;
    const qsizetype untold = failures.size() - mostTold;
    if (untold > 0)
        failures = failures.first(mostTold) << tr("… and %n more.", nullptr, static_cast<int>(untold));
    m_platform.messages.show(failures.join(u'\n'));
}
