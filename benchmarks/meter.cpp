// Measures other programs for benchmarks/simulator:
//
//     meter run COMMAND...     seconds, seconds of processor time and resident KiB at the peak
//     meter bare SECONDS RATE  a line at each moment, by nothing but clock_nanosleep
//     meter follow             how late the played lines of a recording arrive here
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double now()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

int run(char **command)
{
    const double start = now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) < 0)
        return 1;
    const double processor = double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                             double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    std::fprintf(stderr, "%.3f %.3f %ld\n", now() - start, processor, usage.ru_maxrss);
    return status == 0 ? 0 : 1;
}

int bare(double seconds, double rate)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const double start = now();
    std::puts("{\"metadata\":{\"version\":1}}");
    for (int i = 0; i < int(seconds * rate); ++i) {
        const double due = start + i / rate;
        const timespec wakeUp{time_t(due), long((due - double(time_t(due))) * 1e9)};
        while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &wakeUp, nullptr) == EINTR) {
        }
        std::printf("{\"timestamp\":%.3f,\"name\":\"stwAdcValue\",\"value\":%d}\n", i / rate, i);
    }
    return 0;
}

int follow()
{
    std::vector<double> late; // milliseconds
    char line[4096];
    while (std::fgets(line, sizeof line, stdin)) {
        const double arrived = now();
        const char *timestamp = std::strstr(line, "{\"timestamp\":");
        if (timestamp && std::strstr(line, ",\"name\":"))
            late.push_back(1000 * (arrived - std::atof(timestamp + 13)));
    }
    if (late.size() < 100)
        return 1;
    // No line can come early: the one that came soonest after its moment tells when it all began.
    const double start = *std::min_element(late.begin(), late.end());
    for (double &value : late)
        value -= start;
    const auto median = [](std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    };
    const auto tenth = std::ptrdiff_t(late.size() / 10);
    const double drift =
        median({late.end() - tenth, late.end()}) - median({late.begin(), late.begin() + tenth});
    const double first = late.front();
    const double middle = median(late);
    std::sort(late.begin(), late.end());
    std::printf("%zu %.3f %.3f %.3f %.3f\n", late.size(), first, middle,
                late[late.size() * 99 / 100], drift);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "run" && argc > 2)
        return run(argv + 2);
    if (mode == "bare" && argc == 4)
        return bare(std::atof(argv[2]), std::atof(argv[3]));
    if (mode == "follow")
        return follow();
    std::fputs("usage: meter run COMMAND... | bare SECONDS RATE | follow\n", stderr);
    return 2;
}
