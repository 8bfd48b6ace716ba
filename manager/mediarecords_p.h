// Media and phone information for the MCU's own display, as small typed records. Plain values;
// McuManager sends them.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace mcu::mediarecords {

/// A type code of the MCU and its bytes; the number of bytes is sent too.
struct MediaRecord {
    int type;
    QByteArray data;
};

// Texts are UTF-8 without terminator and length limit. Numbers keep their low bytes.

/// The low byte of the source, then three zeros.
MediaRecord sourceState(int source);
/// 32 bits, little-endian.
MediaRecord radioFrequency(int frequency);
/// Three texts about a track, one record each, in the order in which they are sent.
std::array<MediaRecord, 3> trackTexts(const QString &first, const QString &second,
                                      const QString &third);

/// One byte, 1 or 0.
MediaRecord bluetoothState(bool connected);
MediaRecord bluetoothDevice(const QString &name);
/// One byte.
MediaRecord callState(int state);
MediaRecord callNumber(const QString &number);
MediaRecord callName(const QString &name);
/// One byte each.
MediaRecord callTime(int first, int second, int third);

} // namespace mcu::mediarecords
