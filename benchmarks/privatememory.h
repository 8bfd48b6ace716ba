// The memory that a process shares with no other one.
#pragma once

#include <cstdio>

/// Prints the private dirty memory of this process in KiB, if wanted. Returns an exit status.
inline int printPrivateMemory(bool wanted)
{
    std::FILE *file = wanted ? std::fopen("/proc/self/smaps_rollup", "r") : nullptr;
    if (!file)
        return wanted ? 1 : 0;
    char line[256];
    long kib = 0;
    while (std::fgets(line, sizeof line, file) &&
           std::sscanf(line, "Private_Dirty: %ld", &kib) != 1) {
    }
    std::fclose(file);
    return std::printf("%ld\n", kib) > 0 ? 0 : 1;
}
