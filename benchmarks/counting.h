// Writes one callgrind dump per measured row, with the name of the row.
#pragma once

#include <valgrind/callgrind.h>

#include <string>

/// Calls `act` so many times and dumps the cost. The same number of calls before that is not
/// counted: it does the lookups and the first allocations.
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
