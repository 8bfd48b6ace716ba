// The surround-view renderer of the soak: a process of its own with a real FIFO and a real
// semaphore. In the process of the library, the names that the library uses lead to those.
#pragma once

#include <QByteArray>

namespace soak {

/// From now on the library writes to this FIFO, and its semaphore is one of this process, which is
/// removed when the process ends.
void replaceRenderer(const QByteArray &fifo);

/// The renderer for the process `key`: makes its FIFO, releases the UART and prints a line for each
/// good frame. Goes at a SIGTERM and then takes the FIFO with it and claims the UART. Returns 1
/// after a bad frame.
int runRenderer(const char *fifo, int key);

} // namespace soak
