// Stands in for the surround-view renderer in a test program that links it: the bridge's two names
// lead here, so that no test meets a semaphore, a node or a renderer of the machine.
#pragma once

#include <QByteArray>

namespace renderer {

/// Releases the UART to the library or takes it back, as at start.
void release(bool released);

/// All bytes written to the renderer's node since the last call.
QByteArray takeWritten();

} // namespace renderer
