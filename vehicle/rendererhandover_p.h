// Writes to the surround-view renderer, which is another process: queries whether it has released
// the UART, then writes to its node. No error is returned and nothing blocks.
#pragma once

#include "radarframe_p.h"

namespace mcu {

/// Whether the renderer's release semaphore is above 0. `keyFile` identifies the semaphore, which
/// is created if it is missing and never changed. Errors are written to standard error.
bool isUartReleased(const char *keyFile);

/// Writes the image to `node`, a FIFO that the renderer reads, if the UART is released. If there is
/// no renderer or it is busy, the image is dropped.
void handOverToRenderer(const RadarImage &image, const char *keyFile, const char *node);

/// Writes the image to an open descriptor. Without a reader, or in a file that may not be so large,
/// the image is dropped and no signal is raised. The application's signal mask and its pending
/// signals do not change.
void writeWithoutSignal(int descriptor, const RadarImage &image);

} // namespace mcu
