// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/OpenCommand.h"

#include "browse/list/ListPane.h"
#include "browse/list/RowIconKeys.h"
#include "data/DatabaseSession.h"
#include "files/FileOpener.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "views/StandardQueries.h"
#include "widgets/WaitCursor.h"

namespace {

constexpr std::size_t mostUnasked = 5;
constexpr qsizetype mostTold = 10;

} // namespace

QString OpenCommand::hindrance() const
{
    if (m_list.kind() == RecordKind::Event) return tr("An event has no file to open.");
    return m_list.selectedCount() == 0 ? tr("Select a record first.") : QString();
}

QString OpenCommand::question(std::size_t count) const
{
    const int files = static_cast<int>(count);
    return m_list.kind() == RecordKind::Document
               ? tr("Are you sure you want to open %n documents?", nullptr, files)
               : tr("Are you sure you want to open %n charts?", nullptr, files);
}

FileOpener OpenCommand::opener() const
{
    return FileOpener({m_platform.volumes, m_platform.shell, m_session, m_folder, ProgramFolders::documents,
                       ProgramFolders::organizationCharts, m_discFolders});
}

QString OpenCommand::openFile(RecordKind kind, const SelectedRecord& record) const
{
    return kind == RecordKind::Document ? opener().openDoc(record.fileLocation, record.iconKey)
                                        : opener().openOrgChart(record.identifier, record.iconKey);
}

bool OpenCommand::hasFile(RecordKind kind, const SelectedRecord& record)
{
    if (kind == RecordKind::Document) return !record.fileLocation.isEmpty();
    return kind == RecordKind::Organization && record.iconKey == QStringLiteral("Organization_cd");
}

std::optional<QString> OpenCommand::fileInFolder(RecordKind kind, const SelectedRecord& record) const
{
    if (kind == RecordKind::Document) return opener().documentInFolder(record.fileLocation, record.iconKey);
    return opener().orgChartInFolder(record.identifier, record.iconKey);
}

void OpenCommand::run() const
{
    const std::size_t count = m_list.selectedCount();
    if (count > mostUnasked && !m_platform.messages.ask(question(count), Question::Harmless)) return;
    open(m_list.kind(), [this] { return m_list.selectedRecords(); });
}

void OpenCommand::openRecord(RecordKind kind, qint64 identifier) const
{
    open(kind, [&] { return recordOf(kind, identifier); });
}

/// Returns the record as its list would show it, or one without a file if it no longer exists.
std::vector<SelectedRecord> OpenCommand::recordOf(RecordKind kind, qint64 identifier) const
{
    const RecordNames names = recordNames(kind);
    SQLObject query = *m_queries.of(kind);
    query.WhereClause = QStringLiteral("WHERE %1.%2 = %3").arg(names.record, names.key).arg(identifier);
    RecordList list(kind);
    RecordSet rows = m_session.read(query.sqlStr());
    list.beginReading(rows);
    if (!rows.next()) return {{identifier, {}, {}, {}}};
    list.append(rows);
    RowIconKeys icons(m_session, m_folder);
    return {{identifier, list.text(0, 0), list.fileLocation(0), icons.key(list, 0)}};
}

void OpenCommand::open(RecordKind kind, const std::function<std::vector<SelectedRecord>()>& read) const
{
    QStringList failures;
    const QString procedure =
        kind == RecordKind::Document ? QStringLiteral("openDoc") : QStringLiteral("openOrgChart");
    runProcedure(m_platform.messages, procedure, [&] {
        const WaitCursor wait;
        for (const SelectedRecord& record : read())
            failures << openFile(kind, record);
    });
    failures.removeAll(QString());
    // several files can fail for the same reason, such as a missing disc
    failures.removeDuplicates();
    if (failures.isEmpty()) return;
    const qsizetype untold = failures.size() - mostTold;
    if (untold > 0)
        failures = failures.first(mostTold) << tr("… and %n more.", nullptr, static_cast<int>(untold));
    m_platform.messages.show(failures.join(u'\n'));
}
