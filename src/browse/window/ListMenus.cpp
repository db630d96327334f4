#include "browse/window/ListMenus.h"

#include "browse/window/MainCommands.h"
#include "browse/window/RelatedCommands.h"

#include <QMenu>

ListMenus::ListMenus(const MainCommands& commands, const RelatedCommands& related, QWidget& window)
    : QObject(&window)
{
    const auto add = [&](ViewKind kind, const char* name, QAction* addRecord) {
        auto* menu = new QMenu(&window);
        menu->setObjectName(QString::fromUtf8(name));
        menu->setToolTipsVisible(true);
        if (kind != ViewKind::Events) menu->addAction(commands.mnuRecordOpen);
        menu->addActions(
            {commands.mnuRecordView, commands.mnuRecordEdit, addRecord, commands.mnuRecordDelete});
        menu->addSeparator();
        menu->addActions(related.actions(kind));
        menu->addSeparator();
        menu->addAction(commands.mnuRecordCopy);
        menu->addSeparator();
        menu->addActions({commands.mnuViewRefresh, commands.mnuSearchShowAll});
        m_menus[kind] = menu;
    };
    add(ViewKind::Documents, "popDocList", commands.mnuRecordAddNewDocument);
    add(ViewKind::Events, "popEventList", commands.mnuRecordAddNewEvent);
    add(ViewKind::Organizations, "popOrgList", commands.mnuRecordAddNewOrganization);
}

void ListMenus::popUp(ViewKind kind, const QPoint& position)
{
    const auto menu = m_menus.find(kind);
    if (menu != m_menus.end()) menu->second->popup(position);
}
