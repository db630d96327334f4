// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/ToolBarLabels.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QToolBar>
#include <QToolButton>

ToolBarLabels::ToolBarLabels(QToolBar& bar, QList<QAction*> actions)
    : QObject(&bar), m_bar(bar), m_actions(std::move(actions))
{
    bar.installEventFilter(this);
}

bool ToolBarLabels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::StyleChange ||
        event->type() == QEvent::FontChange) {
        fit();
    }
    return QObject::eventFilter(watched, event);
}

QToolButton& ToolBarLabels::button(QAction& action) const
{
    return dynamic_cast<QToolButton&>(*m_bar.widgetForAction(&action));
}

void ToolBarLabels::fit()
{
    const auto fits = [this] {
        m_bar.layout()->invalidate();
        return m_bar.layout()->sizeHint().width() <= m_bar.width();
    };
    for (QAction* action : m_actions)
        button(*action).setToolButtonStyle(m_bar.toolButtonStyle());
    for (QAction* action : m_actions) {
        if (fits()) return;
        button(*action).setToolButtonStyle(Qt::ToolButtonIconOnly);
    }
}
