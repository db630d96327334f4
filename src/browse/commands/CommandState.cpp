// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/CommandState.h"

#include <QAction>
#include <QVariant>

namespace {

constexpr auto ownToolTip = "ownToolTip";

} // namespace

void renameCommand(QAction& command, const QString& text, const QString& toolTip)
{
    command.setText(text);
    command.setToolTip(toolTip);
    command.setProperty(ownToolTip, toolTip);
}

void enableUnless(QAction& command, const QString& hindrance)
{
    if (!command.property(ownToolTip).isValid()) command.setProperty(ownToolTip, command.toolTip());
    const QString toolTip = command.property(ownToolTip).toString();
    command.setEnabled(hindrance.isEmpty());
    command.setToolTip(hindrance.isEmpty() ? toolTip : toolTip + u'\n' + hindrance);
}
