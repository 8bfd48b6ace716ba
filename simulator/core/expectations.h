// What a scenario says must come back, held against what came.
#pragma once

#include "scenario.h"

#include <QStringList>

namespace mcusim {

struct Verdict {
    int met = 0;
    QStringList faults; ///< a line for each; empty when all is well

    bool passed() const { return faults.isEmpty(); }
};

/// Each expected line must have come at its very timestamp with its arguments, in the order of the
/// file; what came besides does not matter. A recording must have come back whole: nothing missing,
/// nothing besides.
Verdict judge(const Scenario &scenario, const QList<Event> &outputs);

} // namespace mcusim
