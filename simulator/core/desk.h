// The library on the substitute platform: what is played goes in, and all that comes out is told in
// order.
#pragma once

#include "event.h"
#include "operations.h"

#include "signaltap.h"
#include "virtualclock.h"

#include <functional>
#include <memory>
#include <vector>

namespace mcusim {

/// Something that the desk can set: an answer of the link or a state of the platform.
struct Setting {
    QString name;
    QVector<Parameter> parameters;
    std::function<void(const QVariantList &arguments)> apply;
};
const QVector<Setting> &settings();

/// Lives once in a process, as the library's objects do.
class Desk {
public:
    /// Which thread the link reports from.
    enum class Link { MainThread, ReaderThread };
    using Listener = std::function<void(const Event &event)>;

    Desk(substitute::VirtualClock *clock, Link link, Listener listener);
    ~Desk();

    /// Starts the library as a host application does.
    void start();
    /// Plays an input; the listener is told of it first, then of what comes out. The event must
    /// have been read by readArguments().
    void play(const Event &input);

private:
    void call(const Event &event);
    void tell(Kind kind, const QString &name, const QVariantList &arguments);

    substitute::VirtualClock *m_clock;
    Link m_link;
    Listener m_listener;
    std::vector<std::unique_ptr<substitute::SignalTap>> m_taps;
};

} // namespace mcusim
