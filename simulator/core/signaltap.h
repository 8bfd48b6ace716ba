// Listens to every signal of an object at once, as the simulator and the tests do to see what
// applications receive.
#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QVariantList>

#include <functional>

namespace substitute {

/// Calls the listener for each signal that the source's own class declares, in the order of
/// emission, in the emitting thread. QObject's own signals are left out.
class SignalTap : public QObject {
public:
    using Listener = std::function<void(const QMetaMethod &signal, const QVariantList &arguments)>;

    SignalTap(const QObject *source, Listener listener);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    const QMetaObject *m_source;
    Listener m_listener;
};

/// The methods of a type that a class declares itself, in declaration order.
QList<QMetaMethod> declaredMethods(const QMetaObject &metaObject, QMetaMethod::MethodType type);
inline QList<QMetaMethod> declaredSignals(const QMetaObject &metaObject)
{
    return declaredMethods(metaObject, QMetaMethod::Signal);
}

} // namespace substitute
