// Real time: what comes and goes around an application while its link reports.
#pragma once

#include "traffic.h"
#include "vitals.h"

namespace soak {

/// Runs so many rounds. In each of them, everything comes, works and goes, and a sample is taken
/// when all is gone. `program` is this program, `mcusim` is for the probe's clients; the probe must
/// be loaded. False if something fails that no count and no sample shows.
bool runLive(Traffic &traffic, Vitals &vitals, int seconds, int rounds, const QString &program,
             const QString &mcusim);

} // namespace soak
