// Everything that a scenario can name, with its parameters: link signals and commands, application
// signals, operations and settings. Knows how their values are written.
#pragma once

#include "event.h"
#include "operations.h"

#include <QJsonValue>
#include <QMetaMethod>
#include <QObject>

namespace mcusim {

/// Something with a name and parameters.
struct Signature {
    QString name;
    QVector<Parameter> parameters;

    /// "SetVolume(int level)".
    QString text() const;
};

/// The objects that applications connect to: "McuService" and so on.
struct ApplicationObject {
    const char *name;
    QObject *(*instance)();
    const QMetaObject *metaObject;
};
const QVector<ApplicationObject> &applicationObjects();

/// All names of a kind in the order of the interface; overloads one after another.
QVector<Signature> catalogue(Kind kind);

Signature signature(const QMetaMethod &method, const QString &prefix = {});

/// Reads the "value" of a line for the named thing: several arguments are an array, one may stand
/// alone, none is no value. False with one line in *error that says what is expected.
bool readArguments(Kind kind, const QString &name, const QJsonValue &value, QVariantList *arguments,
                   QString *error);

/// The names of an event's arguments, empty where a parameter has none.
QStringList argumentNames(const Event &event);

/// The fields of a vehicle record, "KeyState=1", when the event is a signal that carries one.
QStringList recordFields(const Event &event);

/// The other way round: arguments as a "value" is written. Bytes are "0x" text.
QJsonValue writtenArguments(const QVariantList &arguments);

/// One argument as a person reads it.
QString shown(const QVariant &value);

} // namespace mcusim
