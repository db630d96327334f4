// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/CommandStates.h"

#include "browse/commands/CommandState.h"
#include "browse/commands/MainCommands.h"
#include "browse/commands/OpenCommand.h"
#include "browse/commands/RecordCommands.h"
#include "browse/commands/RelatedCommands.h"
#include "browse/list/ListPane.h"
#include "browse/window/BrowsePage.h"
#include "browse/window/OpenDatabase.h"
#include "browse/window/StatusLine.h"
#include "browse/window/ViewPages.h"
#include "state/ProgramState.h"

void CommandStates::refresh() const
{
    const bool showsList = m_at.pages.showsList();
    const QString noList = showsList ? QString() : tr("This page has no list of records.");
    enableViewCommands(noList);
    const bool isSelected = showsList && m_at.list.selectedCount() > 0;
    const QString nothingSelected = isSelected ? QString() : tr("Select a record first.");
    enableUnless(*m_at.commands.mnuRecordCopy, showsList ? nothingSelected : noList);
    enableUnless(*m_at.commands.mnuRecordOpen, showsList ? m_at.open.hindrance() : noList);
    enableDatabaseCommands();
    m_at.related.enable(noList);
    m_at.records.enable(m_at.database.unwritable(), noList);
    m_at.status.showSelected(showsList ? m_at.list.selectedCount() : 0);
    m_at.commands.mnuViewDetails->setChecked(m_at.browse.showsDetails());
    m_at.commands.mnuViewHideGraphic->setChecked(m_at.browse.hidesGraphic());
    m_at.commands.mnuViewGraphicRight->setChecked(m_at.browse.side() == Qt::Horizontal);
    m_at.commands.mnuViewGraphicBelow->setChecked(m_at.browse.side() == Qt::Vertical);
}

void CommandStates::enableViewCommands(const QString& noList) const
{
    const MainCommands& commands = m_at.commands;
    for (QAction* action :
         {commands.mnuViewRefresh, commands.mnuSearchFilter, commands.mnuSearchShowAll,
          commands.mnuSearchAdvanced, commands.mnuViewGraphicRight, commands.mnuViewGraphicBelow,
          commands.mnuViewHideGraphic, commands.mnuViewDetails}) {
        enableUnless(*action, noList);
    }
    const bool showsEvents = m_at.list.kind() == RecordKind::Event;
    const QString noTimeline = !showsEvents                 ? tr("The timeline is shown with events only.")
                               : m_at.browse.hidesGraphic() ? tr("The graphic is hidden.")
                                                            : QString();
    enableUnless(*commands.mnuNavigateGoToDate, noList.isEmpty() ? noTimeline : noList);
    const bool isWhole = !noList.isEmpty() || !m_at.list.isFilling();
    const QString noOutput = isWhole ? noList : tr("The list is still being read.");
    for (QAction* action : {commands.mnuRecordExport, commands.mnuRecordPrint})
        enableUnless(*action, noOutput);
    const bool isHidden = noOutput.isEmpty() && m_at.browse.hidesGraphic();
    for (QAction* action : {commands.mnuViewCopyPicture, commands.mnuViewSavePicture})
        enableUnless(*action, isHidden ? tr("The graphic is hidden.") : noOutput);
}

void CommandStates::enableDatabaseCommands() const
{
    const QString noDatabase = m_at.state.session.isOpen() ? QString() : tr("No database is open.");
    for (QAction* action : {m_at.commands.mnuRecordLists, m_at.commands.mnuViewDeleted,
                            m_at.commands.mnuBackUp, m_at.commands.mnuCheckCollection})
        enableUnless(*action, noDatabase);
}
