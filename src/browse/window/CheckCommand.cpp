// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/CheckCommand.h"

#include "browse/window/DatabaseCommands.h"
#include "check/frmCheck.h"
#include "editors/RecordEditors.h"
#include "state/ProgramState.h"

CheckCommand::CheckCommand(const Platform& platform, const ProgramState& state, DatabaseCommands& databases,
                           RecordEditors& editors, std::function<QString()> unwritable)
    : m_platform(platform),
      m_state(state),
      m_databases(databases),
      m_editors(editors),
      m_unwritable(std::move(unwritable))
{
}

void CheckCommand::run(QWidget& window)
{
    const auto view = [this](RecordKind kind, qint64 identifier, QWidget& over) {
        m_editors.viewOver(over, kind, identifier);
    };
    frmCheck dialog({m_platform, m_state.session.fileName(), m_state.folder, m_unwritable, view}, &window);
    std::optional<DamagedDatabase::Instead> instead;
    QObject::connect(&dialog, &frmCheck::damageFound, &dialog, [&](const QString& cause) {
        instead = m_databases.tellOfDamage(cause);
        if (instead) dialog.accept();
    });
    dialog.showCheck();
    if (instead) m_databases.openInstead(*instead);
}
