// Types and bytes of the media and phone records.
#include "mediarecords_p.h"

#include <QtEndian>

namespace mcu::mediarecords {

namespace {

enum Type : int {
    SourceState = 0x30,
    RadioFrequency = 0x31,
    ThirdTrackText = 0x32,
    SecondTrackText = 0x33,
    FirstTrackText = 0x34,
    BluetoothState = 0x50,
    BluetoothDevice = 0x51,
    CallState = 0x52,
    CallNumber = 0x53,
    CallName = 0x54,
    CallTime = 0x55
};

/// The low byte of each number.
template <typename... Numbers>
QByteArray lowBytes(Numbers... numbers)
{
    const std::array bytes{char(numbers)...};
    return QByteArray(bytes.data(), int(bytes.size()));
}

} // namespace

MediaRecord sourceState(int source) { return {SourceState, lowBytes(source, 0, 0, 0)}; }

MediaRecord radioFrequency(int frequency)
{
    QByteArray data(sizeof(qint32), '\0');
    qToLittleEndian(qint32(frequency), data.data());
    return {RadioFrequency, data};
}

std::array<MediaRecord, 3> trackTexts(const QString &first, const QString &second,
                                      const QString &third)
{
    // Kept: in descending order of the codes; the display expects this.
    return {{{FirstTrackText, first.toUtf8()},
             {SecondTrackText, second.toUtf8()},
             {ThirdTrackText, third.toUtf8()}}};
}

MediaRecord bluetoothState(bool connected) { return {BluetoothState, lowBytes(connected)}; }

MediaRecord bluetoothDevice(const QString &name) { return {BluetoothDevice, name.toUtf8()}; }

MediaRecord callState(int state) { return {CallState, lowBytes(state)}; }

MediaRecord callNumber(const QString &number) { return {CallNumber, number.toUtf8()}; }

MediaRecord callName(const QString &name) { return {CallName, name.toUtf8()}; }

MediaRecord callTime(int first, int second, int third)
{
    return {CallTime, lowBytes(first, second, third)};
}

} // namespace mcu::mediarecords
