// Stands in for the surround-view renderer in a test program that links it: the bridge's names lead
// to a folder and a semaphore of the program's own, so that no test meets those of the machine.
#pragma once

#include <QByteArray>

#include <functional>

namespace renderer {

/// What the library meets, as at start.
struct State {
    bool hasKeyFile = true;
    bool hasSemaphore = true;
    int semaphore = 0;            ///< above 0 the UART is released; -1 is a failed query
    std::function<void()> opened; ///< called when the library has opened the node
};
State &state();

/// The path to which the library's node leads, in a private folder; nothing is there at first.
QByteArray node();

} // namespace renderer
