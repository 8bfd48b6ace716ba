// Replaces the surround-view renderer in a test program that links it. The library's node and
// semaphore are then the program's own, so that tests do not depend on those of the machine.
#pragma once

#include <QByteArray>

#include <functional>

namespace renderer {

/// The renderer as the library finds it, with the values at start.
struct State {
    bool hasKeyFile = true;
    bool hasSemaphore = true;
    int semaphore = 0;            ///< above 0: the UART is released; -1: the query fails
    std::function<void()> opened; ///< called when the library has opened the node
};
State &state();

/// The path that replaces the library's node, in a private folder; nothing is there at first.
QByteArray node();

} // namespace renderer
