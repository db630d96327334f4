#include "browse/OpenCommand.h"

#include "app/ProgramState.h"
#include "browse/ListPane.h"
#include "files/FileOpener.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"

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
    const QString what = m_list.kind() == ViewKind::Documents ? tr("documents") : tr("charts");
    return tr("Are you sure you want to open %1 %2?").arg(count).arg(what);
}

QString OpenCommand::open(const SelectedRecord& record) const
{
    const FileOpener opener({m_platform.volumes, m_platform.shell, m_state.session, m_state.folder,
                             m_state.folders.documents, m_state.folders.organizationCharts});
    return m_list.kind() == ViewKind::Documents ? opener.openDoc(record.fileLocation, record.iconKey)
                                                : opener.openOrgChart(record.identifier, record.iconKey);
}

void OpenCommand::run() const
{
    const std::size_t count = m_list.selectedCount();
    if (count > mostUnasked && !m_platform.messages.ask(question(count), Question::Harmless)) return;
    QStringList failures;
    const QString procedure =
        m_list.kind() == ViewKind::Documents ? QStringLiteral("openDoc") : QStringLiteral("openOrgChart");
    runProcedure(m_platform.messages, procedure, [&] {
        const WaitCursor wait;
        for (const SelectedRecord& record : m_list.selectedRecords())
            failures << open(record);
    });
    failures.removeAll(QString());
    // a disc that is missing is missing for all of them
    failures.removeDuplicates();
    if (failures.isEmpty()) return;
    const qsizetype untold = failures.size() - mostTold;
    if (untold > 0) failures = failures.first(mostTold) << tr("… and %1 more.").arg(untold);
    m_platform.messages.show(failures.join(u'\n'));
}
