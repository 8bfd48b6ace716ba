// The last step to the surround-view renderer, a process of its own: ask whether it has released
// the UART, and write to its node. Every outcome is silent to the caller and nothing blocks.
#pragma once

#include "radarframe_p.h"

namespace mcu {

/// True while the renderer's release semaphore is above 0. `keyFile` names the semaphore, which is
/// created if missing and never changed. Trouble with either is told on standard error.
bool isUartReleased(const char *keyFile);

/// Writes the image to `node`, a FIFO that the renderer reads, if the UART is released. Nothing is
/// retried: without a renderer, or with a busy one, the image is lost and the next brings news.
void handOverToRenderer(const RadarImage &image, const char *keyFile, const char *node);

/// Writes the image to an open descriptor. A reader that has gone costs the image, but raises no
/// SIGPIPE; the signal set-up of the application is as before.
void writeWithoutSignal(int descriptor, const RadarImage &image);

} // namespace mcu
