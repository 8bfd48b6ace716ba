// The factory test station: sends packets through a simulation and compares what comes back with a
// test.
#pragma once

#include "simulation.h"
#include "stationsequence.h"

namespace mcusim {

struct StationResult {
    QStringList faults;  ///< one line each; empty when the test passed
    qint64 duration = 0; ///< virtual milliseconds
};

/// A source and a sink of the simulation that it is made with.
class Station : public Sink {
public:
    explicit Station(Simulation &simulation);

    /// Once the simulation has started.
    StationResult run(const StationTest &test);
    void hear(const Event &event) override;

private:
    void play(const char *name, const QVariantList &values, Kind kind = Kind::Report);
    QStringList faults(const StationTest &test) const;

    Simulation &m_simulation;
    const StationTest *m_test = nullptr;
    bool m_replied = false;
    QVector<QByteArray> m_answers;
    bool m_signalCame = false;
};

} // namespace mcusim
