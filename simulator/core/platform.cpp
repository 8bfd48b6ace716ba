#include "platform.h"

#include "signaltap.h"

#include "mcusrv.h"

#include <vector>

namespace mcusim {

QVector<Parameter> parametersOf(const QMetaMethod &method)
{
    QVector<Parameter> parameters;
    const QList<QByteArray> names = method.parameterNames();
    for (int i = 0; i < method.parameterCount(); ++i) {
        const int type = method.parameterType(i) == QMetaType::UChar ? int(QMetaType::Int)
                                                                     : method.parameterType(i);
        parameters.append({type, QString::fromLatin1(names[i])});
    }
    return parameters;
}

QVector<Platform::Entry> Platform::commands() const
{
    QVector<Entry> entries{{"init", {}, {}}};
    const QList<QMetaMethod> commands =
        substitute::declaredMethods(mcu::McuSrv::staticMetaObject, QMetaMethod::Slot);
    for (const QMetaMethod &method : commands)
        entries.append({QString::fromLatin1(method.name()), parametersOf(method), {}});
    return entries;
}

void Platform::report(const QMetaMethod &signal, QVariantList values)
{
    // Not QMetaMethod::invoke(), which ends at ten arguments.
    std::vector<void *> arguments{nullptr};
    for (QVariant &value : values)
        arguments.push_back(value.data());
    mcu::McuSrv::instance()->qt_metacall(QMetaObject::InvokeMetaMethod, signal.methodIndex(),
                                         arguments.data());
}

} // namespace mcusim
