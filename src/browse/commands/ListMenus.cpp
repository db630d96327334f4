// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/ListMenus.h"

#include "browse/commands/MainCommands.h"
#include "browse/commands/RelatedCommands.h"

#include <QMenu>

ListMenus::ListMenus(const MainCommands& commands, const RelatedCommands& related, QWidget& window)
    : QObject(&window)
{
    const auto add = [&](RecordKind kind, const char* name, QAction* addRecord) {
        auto* menu = new QMenu(&window);
        menu->setObjectName(QString::fromUtf8(name));
        menu->setToolTipsVisible(true);
        if (kind != RecordKind::Event) menu->addAction(commands.mnuRecordOpen);
        menu->addActions(
            {commands.mnuRecordView, commands.mnuRecordEdit, addRecord, commands.mnuRecordDelete});
        menu->addSeparator();
        menu->addActions(related.actions(kind));
        menu->addAction(commands.mnuRecordHistory);
        menu->addSeparator();
        menu->addAction(commands.mnuRecordCopy);
        menu->addSeparator();
        menu->addActions({commands.mnuViewRefresh, commands.mnuSearchShowAll});
        m_menus[kind] = menu;
    };
    add(RecordKind::Document, "popDocList", commands.mnuRecordAddNewDocument);
    add(RecordKind::Event, "popEventList", commands.mnuRecordAddNewEvent);
    add(RecordKind::Organization, "popOrgList", commands.mnuRecordAddNewOrganization);
}

void ListMenus::popUp(RecordKind kind, const QPoint& position)
{
    m_menus.at(kind)->popup(position);
}
