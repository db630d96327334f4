// SPDX-License-Identifier: GPL-3.0-or-later

#include "Command.h"

namespace console {

// each in a file of its own
Command checkCommand();
Command backupCommand();
Command restoreCommand();
Command importCommand();
Command upgradeCommand();
Command listCommand();
Command searchCommand();
Command showCommand();
Command historyCommand();
Command exportCommand();

const std::vector<Command>& allCommands()
{
    static const std::vector<Command> all{
        checkCommand(), backupCommand(), restoreCommand(), importCommand(),  upgradeCommand(),
        listCommand(),  searchCommand(), showCommand(),    historyCommand(), exportCommand()};
    return all;
}

} // namespace console
