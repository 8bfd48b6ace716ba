// What an application can call, by name: one table for scenarios, lists and tests.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

#include <functional>

namespace mcusim {

/// A parameter or a setting's value: its type as scenarios write it and its name.
struct Parameter {
    int type; ///< QMetaType; QVariantList stands for five ints
    QString name;
};

/// A public operation of one of the library's objects.
struct Operation {
    QString name; ///< "McuService.SetVolume"
    QVector<Parameter> parameters;
    bool answers; ///< gives a result
    std::function<QVariant(const QVariantList &arguments)> call;
};

/// All of them, in the order of the headers.
const QVector<Operation> &operations();

} // namespace mcusim
