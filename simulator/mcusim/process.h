// What the process shares with its surroundings: standard output and error, signals, and the quiet
// of the library.
#pragma once

#include "commands.h"
#include "refusal.h"

#include <cstdio>

namespace mcusim {

/// Standard error as the user sees it, also while the library's own is silenced.
std::FILE *console();

/// "mcusim: ..." on it as one line.
void complain(const QString &why);

/// The status given, or Unusable with a line on standard error when standard output lost something.
int written(int status);

/// The library writes factory packets raw to standard error, and debug lines where they are asked
/// for: neither belongs between the lines of a command.
void silenceLibrary();

/// From now on Ctrl-C, and what else ends a process, is noted instead; the second one ends it.
void noteInterrupts();
bool wasInterrupted();

/// Columns of the terminal that a stream is, or of COLUMNS; 0 without either.
int terminalWidth(std::FILE *stream);
/// Whether lines may be coloured.
bool showsColour(std::FILE *stream);

} // namespace mcusim
