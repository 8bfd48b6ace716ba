// The library on a link: what is played goes in, and all that comes out goes to the sinks, in
// order.
#pragma once

#include "catalogue.h"
#include "clock.h"
#include "signaltap.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace mcu {
class McuSrv;
}

namespace mcusim {

/// One at a time in a process, as the library's objects are.
class Simulation {
public:
    Simulation(const Catalogue &names, Platform &platform, Clock &clock);
    ~Simulation();
    Simulation(const Simulation &) = delete;
    Simulation &operator=(const Simulation &) = delete;

    const Catalogue &names() const { return m_names; }
    Clock &clock() const { return m_clock; }

    /// Sinks hear in the order in which they were added, one event after another whichever thread
    /// it happens in, and must stay until they are removed. While there is none, nothing is tapped.
    void addSink(Sink *sink);
    void removeSink(Sink *sink);
    const std::atomic<bool> &isHeard() const { return m_isHeard; }
    /// From now on no sink hears anything. Waits for nothing, so that it can be called in a process
    /// that was just forked, where a thread that is not there may hold the locks.
    void silence() { m_isHeard = false; }

    /// Starts the library as a host application does and listens from then on. Nothing has touched
    /// the library before.
    void start();
    /// Listens to a library that the application around it starts: to the platform and its link,
    /// whose reports are then told as the link emits them, whoever makes it do so ...
    void attach(const mcu::McuSrv *link);
    /// ... and to one of the objects that applications connect to, once it is there.
    void attach(const QObject *object);

    /// Does an input at the present moment: the sinks hear of it first, then of what comes out.
    /// Says in one line why it cannot; empty when it is done. A sink may play, too.
    QString play(const Event &input);

private:
    void listenToPlatform();
    void listenTo(const QObject *object, const QMetaObject *metaObject);
    void tell(const Signature *what, const QVariantList &values);
    void tell(Kind kind, const QString &name, const QVariantList &values);

    const Catalogue &m_names;
    Platform &m_platform;
    Clock &m_clock;
    std::recursive_mutex m_mutex; ///< guards what follows, up to the playing
    std::vector<Sink *> m_sinks;
    std::atomic<bool> m_isHeard = false;
    std::vector<std::unique_ptr<substitute::SignalTap>> m_taps;
    std::deque<Signature> m_unlisted; ///< what the catalogue does not have
    std::atomic<bool> m_hearsLink = false;
    int m_playing = 0;
};

} // namespace mcusim
