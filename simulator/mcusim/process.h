// The process as the commands use it: standard streams, signals, the terminal, and a library that
// is silent.
#pragma once

#include "refusal.h"

#include <cstdio>

class QFile;

namespace mcusim {

/// Exit statuses of all commands.
enum Exit { Passed = 0, Failed = 1, Unusable = 2, Interrupted = 130 };

/// Called first. A closed standard stream is opened, so that no file takes its place; writing to it
/// fails as on a full disk. Writing to a pipe without a reader or beyond a limit fails, too, and
/// does not end the process.
void secureStreams();

/// Standard error as the user sees it, also while the library's own is silenced.
std::FILE *console();

/// "mcusim: ..." on it as one line, with the name of the program, and a line on standard output.
void complain(const QString &why);
void put(const QString &line);

/// The bytes of a file after its open(), at most 1 MiB. Throws a Refusal with the name.
QByteArray contentOf(QFile &file, const QString &name);

/// "1 report", "2 reports".
QString counted(qint64 count, const char *thing);

/// The status given, or Unusable with a line on standard error when standard output lost something.
int written(int status);

/// Hides the library's debug lines and the raw factory packets that it writes to standard error.
void silenceLibrary();

/// From now on the first Ctrl-C, SIGTERM or SIGHUP is only noted; the second one ends the process.
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
