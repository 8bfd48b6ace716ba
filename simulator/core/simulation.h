// The library on a link: what is played goes in, and all that comes out goes to the sinks, in
// order.
#pragma once

#include "catalogue.h"
#include "clock.h"
#include "signaltap.h"

#include <memory>
#include <vector>

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

    /// Sinks hear in the order in which they were added, and must stay.
    void addSink(Sink *sink) { m_sinks.push_back(sink); }

    /// Starts the library as a host application does and listens from then on. Nothing has touched
    /// the library before.
    void start();
    /// Listens to a library that the application around it starts.
    void attach();

    /// Does an input at the present moment: the sinks hear of it first, then of what comes out.
    /// Says in one line why it cannot; empty when it is done. A sink may play, too.
    QString play(const Event &input);

private:
    void listenToPlatform();
    void listenToApplications();
    void tell(const Signature *what, const QVariantList &values);
    void tell(Kind kind, const QString &name, const QVariantList &values);

    const Catalogue &m_names;
    Platform &m_platform;
    Clock &m_clock;
    std::vector<Sink *> m_sinks;
    std::vector<std::unique_ptr<substitute::SignalTap>> m_taps;
    std::deque<Signature> m_unlisted; ///< what the catalogue does not have
    int m_playing = 0;
};

} // namespace mcusim
