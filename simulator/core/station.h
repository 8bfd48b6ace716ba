// The factory test station at the desk: sends packets through the substitute link and holds what
// comes back against a test.
#pragma once

#include "stationsequence.h"

#include "signaltap.h"
#include "virtualclock.h"

#include <functional>

namespace mcusim {

struct StationResult {
    QStringList faults;  ///< a line for each; empty when the test passed
    qint64 duration = 0; ///< virtual milliseconds
};

/// Lives once in a process. The library must have been started.
class Station {
public:
    enum class Sender { Station, Unit };
    /// Told of every chunk and packet as it passes.
    using Listener = std::function<void(qint64 time, Sender sender, const QByteArray &bytes)>;
    /// Told of every signal at the applications.
    using SignalListener =
        std::function<void(qint64 time, const QString &name, const QVariantList &)>;

    Station(substitute::VirtualClock *clock, Listener listener, SignalListener signalListener);
    ~Station();

    StationResult run(const StationTest &test);

private:
    struct Signal {
        QString name;
        QVariantList values;
    };

    void send(const QByteArray &chunk);
    void hear(const QString &signal, const QVariantList &values);
    QStringList faults(const StationTest &test) const;

    substitute::VirtualClock *m_clock;
    Listener m_listener;
    SignalListener m_signalListener;
    substitute::SignalTap m_application;
    const StationTest *m_test = nullptr;
    bool m_replied = false;
    QVector<QByteArray> m_answers;
    QVector<Signal> m_signals;
};

} // namespace mcusim
