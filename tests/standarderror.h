// What a program writes to its standard error itself, past the message logger.
#pragma once

#include <QByteArray>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace testkit {

/// What an action writes to the stream, which is put back afterwards.
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
