// The only way in which the probe speaks to the user of the application: one line.
#pragma once

#include "refusal.h"
#include "values.h"

#include <cstdio>

namespace mcusim::probe {

inline void complain(const Refusal &refusal)
{
    std::fprintf(stderr, "mcuprobe: %s\n", printable(refusal.text()).toUtf8().constData());
}

} // namespace mcusim::probe
