// The commands of mcusim. Each reads its own part of the command line and returns the exit status.
#pragma once

#include <QStringList>

namespace mcusim {

/// Exit statuses of all commands.
enum Exit { Passed = 0, Failed = 1, Unusable = 2, Interrupted = 130 };

int playCommand(const QStringList &arguments);
int listCommand(const QStringList &arguments);
int stationCommand(const QStringList &arguments);
int updatesCommand(const QStringList &arguments);
int textCommand(const QStringList &arguments);
int recordsCommand(const QStringList &arguments);

} // namespace mcusim
