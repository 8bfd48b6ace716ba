// Control of the substitute MCU link (libmcusrv.so.1): its command log, the answers of its queries,
// and the injection of reports. The library never includes this header.
#pragma once

#include "substitutelog.h"

#include <QMetaMethod>
#include <QStringList>
#include <QVariant>

namespace substitute {

/// The thread that emits an injected signal.
enum class Emitter {
    Caller,      ///< the thread that calls inject()
    ReaderThread ///< the link's reader thread; inject() returns before the signal is emitted
};

/// A method as text with its parameter names: "keyEventSgl(int key, int state)".
QString describe(const QMetaMethod &method);

} // namespace substitute

namespace substitute::link {

/// The commands and init() calls that the link has received since the start or the last clear, with
/// the link's names ("SetVolume"). Queries are not logged.
CallLog &log();

/// Sets the answer of the query of this name ("getVersion1"). Returns false, with one line in
/// *error, for an unknown query or a value of the wrong type. The default answers are an empty
/// text, 0 and false.
bool setAnswer(const QString &query, const QVariant &value, QString *error = nullptr);
/// The current answer of a query; invalid for an unknown query.
QVariant answer(const QString &query);
/// The names of the queries, in declaration order.
QStringList queries();

/// Emits a link signal with the given arguments: a boolean for bool, a text for QString, a byte
/// array for QByteArray, and for int a 32-bit integer, also as a double without fraction (JSON has
/// no other numbers). If the signal is unknown, or the number or a type of the arguments is wrong,
/// emits nothing and returns false, with one line in *error that lists what is expected.
bool inject(const QString &signal, const QVariantList &arguments, QString *error = nullptr,
            Emitter emitter = Emitter::Caller);
/// Waits until the reader thread has emitted all its signals. Signals that still wait when the
/// application object is destroyed are dropped.
void drainReaderThread();

/// Signals and commands of the link in declaration order, for lists and help texts.
QList<QMetaMethod> signalMethods();
QList<QMetaMethod> commandMethods();

/// Clears log and answers, as in a new process; the listener of the log stays.
void reset();

} // namespace substitute::link
