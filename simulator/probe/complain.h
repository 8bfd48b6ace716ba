// The only way in which the probe speaks to the user of the application: one line.
#pragma once

#include "refusal.h"

#include <cstdio>

namespace mcusim::probe {

inline void complain(const Refusal &refusal)
{
    std::fprintf(stderr, "mcuprobe: %s\n", refusal.what());
}

} // namespace mcusim::probe
