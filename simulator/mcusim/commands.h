// The subcommands of mcusim. Each reads its own part of the command line and gives the exit status.
#pragma once

#include <QCommandLineOption>
#include <QStringList>

namespace substitute {
class VirtualClock;
}

namespace mcusim {

/// Exit statuses of all subcommands.
enum Exit { Passed = 0, Failed = 1, Unusable = 2 };

int playCommand(const QStringList &arguments, substitute::VirtualClock *clock);
int listCommand(const QStringList &arguments, substitute::VirtualClock *clock);
int stationCommand(const QStringList &arguments, substitute::VirtualClock *clock);
int updatesCommand(const QStringList &arguments, substitute::VirtualClock *clock);
int textCommand(const QStringList &arguments, substitute::VirtualClock *clock);

/// Without the help on Qt's own options, which are of no use here.
QCommandLineOption helpOption();

/// The status given, or Unusable with a line on standard error when standard output lost something.
int written(int status);

/// One line on standard error, and Unusable.
int unusable(const QString &why);

} // namespace mcusim
