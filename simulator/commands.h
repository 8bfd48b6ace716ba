// The subcommands of mcusim. Each reads its own part of the command line and gives the exit status.
#pragma once

#include <QStringList>

namespace substitute {
class VirtualClock;
}

namespace mcusim {

/// Exit statuses of all subcommands.
enum Exit { Passed = 0, Failed = 1, Unusable = 2 };

int playCommand(const QStringList &arguments, substitute::VirtualClock *clock);
int listCommand(const QStringList &arguments);

/// One line on standard error, and Unusable.
int unusable(const QString &why);

} // namespace mcusim
