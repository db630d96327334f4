// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/PrintCommand.h"

#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"
#include "browse/window/ShownView.h"
#include "platform/Procedure.h"
#include "print/frmPrint.h"
#include "state/ProgramState.h"

PrintCommand::PrintCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                           QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuRecordPrint, &QAction::triggered, this, &PrintCommand::run);
}

void PrintCommand::run()
{
    QString outcome;
    runProcedure(m_platform.messages, QStringLiteral("printView"), [&] {
        frmPrint window(m_platform,
                        {m_view.state().session, m_view.list().model(), m_view.caption(), m_view.selected(),
                         m_view.graphic(), m_view.noGraphic()},
                        &m_view.window());
        window.exec();
        outcome = window.outcome();
    });
    Q_EMIT done(outcome);
}
