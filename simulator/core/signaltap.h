// Listens to every signal of an object at once, as the simulator and the tests do to see what
// applications receive.
#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QVariantList>

#include <atomic>
#include <functional>

namespace substitute {

/// Calls the listener for each signal that a class of the source declares, its own one unless
/// another is given, in the order of emission, in the emitting thread. QObject's own signals are
/// left out. While isHeard is false, the listener is not called and an emission costs next to
/// nothing.
class SignalTap : public QObject {
public:
    using Listener = std::function<void(const QMetaMethod &signal, const QVariantList &arguments)>;

    SignalTap(const QObject *source, Listener listener)
        : SignalTap(source, source->metaObject(), std::move(listener), &always)
    {
    }
    SignalTap(const QObject *source, const QMetaObject *declaring, Listener listener,
              const std::atomic<bool> *isHeard);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    static const std::atomic<bool> always;

    Q_NEVER_INLINE int tell(QMetaObject::Call call, int id, void **arguments);

    const QMetaObject *m_source;
    Listener m_listener;
    const std::atomic<bool> *m_isHeard;
};

/// The methods of a type that a class declares itself, in declaration order.
QList<QMetaMethod> declaredMethods(const QMetaObject &metaObject, QMetaMethod::MethodType type);
inline QList<QMetaMethod> declaredSignals(const QMetaObject &metaObject)
{
    return declaredMethods(metaObject, QMetaMethod::Signal);
}

} // namespace substitute
