// Inputs as people type them: a name and its values.
#pragma once

#include "catalogue.h"

namespace mcusim {

/// The words of a line: blanks part them, except in "quotes", [brackets] and {braces}.
QStringList wordsOf(const QString &line);

/// Whether words begin with an input that is known.
bool isInput(const Catalogue &names, const QStringList &words);

/// The input of its words: "keyEventSgl 7 0", "SetVolume 12", "set getVersion1 SW2". The name may
/// lack its class, and the key of its kind may stand before it. Values are JSON, or bare text for a
/// parameter that takes text or bytes. Throws a Refusal.
Event readInput(const Catalogue &names, const QStringList &words);

/// The scenario line to send for a line that is one already ("{...") or in words. Throws a Refusal.
QByteArray lineToSend(const Catalogue &names, const QStringList &words);

} // namespace mcusim
