// The surround-view renderer of the soak: a process of its own with a real FIFO and a real
// semaphore. In the process of the library, the names that the library uses lead to those.
#pragma once

#include <QByteArray>

namespace soak {

/// The FIFO to which the library writes from now on; its folder also names the semaphore.
void setRendererNode(const QByteArray &fifo);
/// Removes FIFO and semaphore.
void removeRenderer();

/// The renderer: makes its FIFO, releases the UART and prints a line for each good frame. Goes at a
/// SIGTERM and then takes the FIFO with it and claims the UART. Returns 1 after a bad frame.
int runRenderer(const char *fifo, int key);

} // namespace soak
