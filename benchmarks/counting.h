// One callgrind dump for each thing measured, with its name.
#pragma once

#include <valgrind/callgrind.h>

#include <string>

/// Acts so often and dumps what that cost; the same beforehand, uncounted, for lookups and first
/// allocations.
template <typename Act>
void countActs(const std::string &name, int times, Act act)
{
    const auto actOften = [&] {
        for (int i = 0; i < times; ++i)
            act();
    };
    actOften();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    actOften();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}
