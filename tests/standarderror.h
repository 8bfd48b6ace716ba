// Catches output that a program writes to standard error without the message logger.
#pragma once

#include <QByteArray>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace testkit {

/// The output of an action to standard error, which is restored afterwards.
template <typename Action>
QByteArray standardErrorOf(const Action &action)
{
    char *text = nullptr;
    std::size_t size = 0;
    FILE *const before = std::exchange(stderr, open_memstream(&text, &size));
    action();
    std::fclose(std::exchange(stderr, before));
    const QByteArray written(text, int(size));
    std::free(text);
    return written;
}

} // namespace testkit
