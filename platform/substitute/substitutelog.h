// What a substitute platform class writes down: each call it received, in order, for tests and the
// simulator to read.
#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

#include <functional>

namespace substitute {

/// One call that a platform class received. Integers and booleans keep their type, bytes of their
/// own are integers; byte arrays stay byte arrays.
struct Call {
    QString name; ///< "SetVolume", or "AudioService.Att20DB" for the other platform classes
    QVariantList arguments;

    bool operator==(const Call &other) const
    {
        return name == other.name && arguments == other.arguments;
    }
};

/// A log of calls in order. Not thread-safe: commands come from the facade's thread.
class CallLog {
public:
    void append(const QString &name, const QVariantList &arguments);
    /// Appends a call with its arguments as they come.
    template <typename... Arguments>
    void record(const char *name, const Arguments &...arguments)
    {
        append(QString::fromLatin1(name), {QVariant(arguments)...});
    }

    const QList<Call> &calls() const { return m_calls; }
    /// The calls so far, and starts anew.
    QList<Call> take();
    /// Forgets the calls; the listener stays.
    void clear() { m_calls.clear(); }

    /// Told of every call as it arrives; one listener, null to remove it.
    void setListener(std::function<void(const Call &)> listener);

private:
    QList<Call> m_calls;
    std::function<void(const Call &)> m_listener;
};

} // namespace substitute
