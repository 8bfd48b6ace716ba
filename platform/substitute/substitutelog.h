// The log of a substitute platform class: each call that it receives, in order. Tests and the
// simulator read it.
#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

#include <functional>
#include <mutex>

namespace substitute {

/// One call that a platform class received. The arguments keep their types, except that a single
/// byte becomes an integer.
struct Call {
    QString name; ///< "SetVolume", or "AudioService.Att20DB" for the other platform classes
    QVariantList arguments;

    bool operator==(const Call &other) const
    {
        return name == other.name && arguments == other.arguments;
    }
};

/// A log of calls in their order. Calls may come from two threads, as the commands of the audio
/// status do, and the log may be cleared meanwhile; all else is for one thread.
class CallLog {
public:
    void append(const QString &name, const QVariantList &arguments);
    /// Appends a call with these arguments.
    template <typename... Arguments>
    void record(const char *name, const Arguments &...arguments)
    {
        append(QString::fromLatin1(name), {QVariant(arguments)...});
    }

    const QList<Call> &calls() const { return m_calls; }
    /// Returns the calls and clears the log.
    QList<Call> take();
    /// Clears the log; the listener stays.
    void clear() { take(); }

    /// Sets the function that is called with every call as it arrives. There is one listener; null
    /// removes it.
    void setListener(std::function<void(const Call &)> listener);

private:
    std::mutex m_mutex; ///< guards the calls, not the listener
    QList<Call> m_calls;
    std::function<void(const Call &)> m_listener;
};

} // namespace substitute
