// The library on a link: plays inputs, and passes inputs and outputs to the sinks, in order.
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

    /// Sinks receive events in the order in which they were added, and must outlive the simulation.
    void addSink(Sink *sink) { m_sinks.push_back(sink); }

    /// Starts the library as a host application does and listens from then on. Nothing of the
    /// library is called or created before.
    void start();
    /// Listens to a library that the application around it starts.
    void attach();

    /// Plays an input at the present moment: the sinks receive it first, then the outputs. Returns
    /// one line with the reason if it cannot be played, else an empty text. Sinks may call it.
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
