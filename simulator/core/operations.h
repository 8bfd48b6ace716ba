// What an application can call, by name: one table for scenarios, lists and tests.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

#include <functional>

namespace mcusim {

/// A parameter or a setting's value: its type as scenarios write it and its name.
struct Parameter {
    int type; ///< QMetaType; QVariantList stands for a list of ints
    QString name;
    int length = 0; ///< of a list; 0 for any
};

/// A public operation of one of the library's objects.
struct Operation {
    QString name; ///< "McuService.SetVolume"
    QVector<Parameter> parameters;
    int result; ///< QMetaType of what it returns; Void for nothing
    /// Calls it on an object of its class; null stands for the one that applications use.
    std::function<QVariant(QObject *object, const QVariantList &arguments)> call;
};

/// All of them, in the order of the headers.
const QVector<Operation> &operations();

} // namespace mcusim
