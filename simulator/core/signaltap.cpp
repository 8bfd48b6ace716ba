// A receiver without a meta-object of its own: each signal of the source is connected to a made-up
// method number, from which the signal is found again when the call arrives.
#include "signaltap.h"

namespace substitute {

const std::atomic<bool> SignalTap::always = true;

SignalTap::SignalTap(const QObject *source, const QMetaObject *declaring, Listener listener,
                     const std::atomic<bool> *isHeard)
    : m_source(declaring), m_listener(std::move(listener)), m_isHeard(isHeard)
{
    const QList<QMetaMethod> declared = declaredSignals(*m_source);
    for (const QMetaMethod &signal : declared) {
        const int method = QObject::staticMetaObject.methodCount() + signal.methodIndex();
        QMetaObject::connect(source, signal.methodIndex(), this, method, Qt::DirectConnection);
    }
}

int SignalTap::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    return m_isHeard->load(std::memory_order_relaxed) ? tell(call, id, arguments) : -1;
}

// Apart, so that a silent emission does not prepare for all this.
int SignalTap::tell(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const QMetaMethod signal = m_source->method(id);
    QVariantList values;
    for (int i = 0; i < signal.parameterCount(); ++i)
        values.append(QVariant(signal.parameterType(i), arguments[i + 1]));
    m_listener(signal, values);
    return -1;
}

QList<QMetaMethod> declaredMethods(const QMetaObject &metaObject, QMetaMethod::MethodType type)
{
    QList<QMetaMethod> methods;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        if (metaObject.method(i).methodType() == type)
            methods.append(metaObject.method(i));
    }
    return methods;
}

} // namespace substitute
