// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/RelatedCommands.h"

#include "browse/commands/CommandState.h"
#include "browse/list/ListPane.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "views/ViewHistory.h"
#include "widgets/IconSet.h"
#include "widgets/WaitCursor.h"

#include <QAction>
#include <QMenu>

RelatedCommands::RelatedCommands(Messages& messages, RelatedViews views, ViewHistory& history, ListPane& list,
                                 QObject* parent)
    : QObject(parent), m_messages(messages), m_views(views), m_history(history), m_list(list)
{
    const QString documents = QStringLiteral("view-list-text");
    const QString events = QStringLiteral("view-calendar");
    const QString organizations = QStringLiteral("view-institution");
    using enum RelatedCommand;
    add(DocumentEvents, "popDocListViewEvents", tr("View &Events"), events,
        tr("Shows the events of this document"), Qt::Key_E);
    add(DocumentOrganization, "popDocListViewOrgs", tr("View Source Or&ganization"), organizations,
        tr("Shows the organization that this document comes from"), Qt::Key_O);
    add(EventDocuments, "popEventListViewDocs", tr("View &Documents"), documents,
        tr("Shows the documents of this event"), Qt::Key_D);
    add(EventOrganizations, "popEventListViewOrgs", tr("View Or&ganizations"), organizations,
        tr("Shows the organizations of this event"), Qt::Key_O);
    add(OrganizationDocuments, "popOrgListViewDocs", tr("View &Documents"), documents,
        tr("Shows the documents that come from this organization"), Qt::Key_D);
    add(OrganizationEvents, "popOrgListViewEvents", tr("View &Events"), events,
        tr("Shows the events of this organization"), Qt::Key_E);
}

void RelatedCommands::add(RelatedCommand command, const char* name, const QString& text, const QString& icon,
                          const QString& statusTip, Qt::Key key)
{
    auto* action = new QAction(IconSet::themeIcon(icon), text, this);
    action->setObjectName(QString::fromUtf8(name));
    action->setStatusTip(statusTip);
    // two commands can share a key: only those of the listed kind are enabled
    action->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | key));
    action->setToolTip(statusTip);
    connect(action, &QAction::triggered, this, [this, command] { follow(command); });
    m_actions.at(static_cast<std::size_t>(command)) = action;
}

QList<QAction*> RelatedCommands::actions(RecordKind source) const
{
    QList<QAction*> found;
    for (std::size_t i = 0; i < count; ++i) {
        if (RelatedViews::sourceKind(static_cast<RelatedCommand>(i)) == source) found << m_actions[i];
    }
    return found;
}

void RelatedCommands::addTo(QMenu& menu)
{
    m_menu = &menu;
    for (QAction* action : m_actions)
        menu.addAction(action);
}

void RelatedCommands::enable(const QString& hindrance)
{
    const std::size_t selected = m_list.selectedCount();
    QString reason = hindrance;
    if (reason.isEmpty() && selected == 0) reason = tr("Select a record first.");
    if (reason.isEmpty() && selected > 1) reason = tr("Select a single record.");
    for (std::size_t i = 0; i < count; ++i) {
        const bool isOfKind = RelatedViews::sourceKind(static_cast<RelatedCommand>(i)) == m_list.kind();
        m_actions[i]->setVisible(isOfKind);
        enableUnless(*m_actions[i], reason);
        if (!isOfKind) m_actions[i]->setEnabled(false);
    }
    if (m_menu != nullptr) enableUnless(*m_menu->menuAction(), hindrance);
}

void RelatedCommands::follow(RelatedCommand command)
{
    const auto selected = m_list.selectedRecords();
    if (selected.size() != 1) return;
    RelatedOutcome outcome;
    const QString procedure = m_actions.at(static_cast<std::size_t>(command))->objectName();
    const bool isFollowed = runProcedure(m_messages, procedure, [&] {
        const WaitCursor wait;
        outcome = m_views.follow(command, {selected.front().identifier, selected.front().name});
    });
    if (!isFollowed) return;
    if (outcome.view) {
        m_history.addView(*outcome.view);
    } else if (m_messages.ask(outcome.question, Question::Harmless)) {
        Q_EMIT additionWanted(outcome.addition);
    }
}
