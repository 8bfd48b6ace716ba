// The inspection side of the substitute MCU link (libmcusrv.so.1): read its command log, set what
// its queries answer, and inject what the MCU would report. Product code never sees this header.
#pragma once

#include "substitutelog.h"

#include <QMetaMethod>
#include <QStringList>
#include <QVariant>

namespace substitute {

/// From which thread an injected signal is emitted.
enum class Emitter {
    Caller,      ///< the thread that calls inject()
    ReaderThread ///< the link's own reader thread; inject() returns before it has run
};

/// A method as text, with the parameter names: "keyEventSgl(int key, int state)".
QString describe(const QMetaMethod &method);

} // namespace substitute

namespace substitute::link {

/// Every command and init() that the link received since the start or the last clear. Commands by
/// the link's names ("SetVolume"). Queries are not commands and are not logged.
CallLog &log();

/// Sets the answer of a query by its name ("getVersion1"); false, with one line in *error, for a
/// name that is no query or a value that does not fit. Before that queries answer with empty texts,
/// 0 and false.
bool setAnswer(const QString &query, const QVariant &value, QString *error = nullptr);
/// What a query answers now; invalid for a name that is no query.
QVariant answer(const QString &query);
/// The names of the queries that can be given an answer, in declaration order.
QStringList queries();

/// Emits a link signal with the given arguments: a boolean for bool, a text for QString, a byte
/// array for QByteArray, and for int an integer of 32 bits, also as a double without fraction (JSON
/// has no other numbers). False, with one line in *error that lists what is expected, when the
/// signal is unknown or the number or a type of the arguments is wrong; nothing is emitted then.
bool inject(const QString &signal, const QVariantList &arguments, QString *error = nullptr,
            Emitter emitter = Emitter::Caller);
/// Waits until the reader thread has emitted all it was given. Signals that are still waiting when
/// the application object goes are dropped.
void drainReaderThread();

/// Signals and commands of the link in declaration order, for lists and help texts.
QList<QMetaMethod> signalMethods();
QList<QMetaMethod> commandMethods();

/// Forgets log and answers, as in a fresh process; a listener of the log stays.
void reset();

} // namespace substitute::link
