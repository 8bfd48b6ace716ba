// Conversion of parking distances for the surround-view renderer: from the MCU's sensor codes to
// distances, and from distances to the bytes that the renderer reads. Plain values, no I/O.
#pragma once

#include <QtGlobal>

#include <array>

namespace mcu {

/// One value per sensor of a bumper, from left to right.
using RadarDistances = std::array<int, 4>;

/// One write to the renderer: the 20 bytes of the frame, then zeros that the renderer ignores.
using RadarImage = std::array<quint8, 50>;

/// Distance for a sensor code: 10000 (no obstacle) for code 0, else code * 5 + 25, limited to the
/// range of int.
int radarDistance(int code);

/// Distances for the four sensor codes of a bumper.
RadarDistances radarDistances(const int *codes);

/// The bytes to write for these distances. The frame has the low byte of each.
RadarImage radarImage(const RadarDistances &front, const RadarDistances &rear);

} // namespace mcu
