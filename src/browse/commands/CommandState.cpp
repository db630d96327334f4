// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/commands/CommandState.h"

#include <QAction>
#include <QVariant>

namespace {

constexpr auto ownToolTip = "ownToolTip";

} // namespace

void enableUnless(QAction& command, const QString& hindrance)
{
    if (!command.property(ownToolTip).isValid()) command.setProperty(ownToolTip, command.toolTip());
    const QString toolTip = command.property(ownToolTip).toString();
    command.setEnabled(hindrance.isEmpty());
    command.setToolTip(hindrance.isEmpty() ? toolTip : toolTip + u'\n' + hindrance);
}
