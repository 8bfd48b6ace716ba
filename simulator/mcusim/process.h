// What the process shares with its surroundings: standard output and error, signals, and the quiet
// of the library.
#pragma once

#include "refusal.h"

#include <cstdio>

namespace mcusim {

/// Exit statuses of all commands.
enum Exit { Passed = 0, Failed = 1, Unusable = 2, Interrupted = 130 };

/// To begin with: a stream that is closed takes no file's place, and what is written to it is lost
/// as on a full disk. A pipe that nobody reads ends nothing either.
void secureStreams();

/// Standard error as the user sees it, also while the library's own is silenced.
std::FILE *console();

/// "mcusim: ..." on it as one line, with the name of the program, and a line on standard output.
void complain(const QString &why);
void put(const QString &line);

/// "1 report", "2 reports".
QString counted(qint64 count, const char *thing);

/// The status given, or Unusable with a line on standard error when standard output lost something.
int written(int status);

/// The library writes factory packets raw to standard error, and debug lines where they are asked
/// for: neither belongs between the lines of a command.
void silenceLibrary();

/// From now on Ctrl-C, and what else ends a process, is noted instead; the second one ends it.
void noteInterrupts();
bool wasInterrupted();
/// The signal that was noted, for a program started here; 0 for none and for one of the terminal,
/// which has sent it to the program, too.
int interruptToHandOn();
/// Goes on after Ctrl-C; false when something else is to end the process.
bool forgetInterrupt();

/// Columns of the terminal that standard output is, or of COLUMNS; 0 without either.
int terminalWidth();
/// Its lines; 0 when it is none.
int terminalHeight();
/// Whether lines may be coloured.
bool showsColour(std::FILE *stream);

} // namespace mcusim
