// Fuzz target: the packet codec of the factory test alone, compared with a model that keeps all
// bytes in one string.
//
// The input is a sequence of steps: byte 0 searches a packet, byte 1 takes the packet at the front,
// byte n appends the next n - 2 bytes.
#include "autotestpacket_p.h"
#include "target.h"

#include <numeric>
#include <string>

namespace {

using namespace mcu;
using fuzz::expect;

int sumOf(const std::string &bytes, std::size_t from)
{
    const auto add = [](int sum, char byte) { return (sum + quint8(byte)) % 256; };
    return std::accumulate(bytes.begin() + qptrdiff(from), bytes.end(), 0, add);
}

/// What applications and handlers do with a packet.
void check(const QByteArray &packet, const std::string &expected)
{
    expect(packet.toStdString() == expected, "packet");
    const int size = packet.size();
    for (int offset = 0; offset < size + 3; ++offset) {
        const int byte = offset < size ? quint8(expected[std::size_t(offset)]) : 0;
        expect(wire::byteAt(packet, offset) == byte, "byte");
    }
    for (int number = 0; number < 3; ++number) {
        const auto wrapped = std::size_t(number + 5) % std::max<std::size_t>(expected.size(), 1);
        const int byte = size > 0 ? quint8(expected[wrapped]) : 0;
        expect(wire::wrappedPayloadByte(packet, number) == byte, "wrapped byte");
    }
    const bool isGood = size > 0 && sumOf(expected, std::size_t(std::min(size - 1, 2))) == 0;
    expect(wire::verifiPackageCheckSum(packet.constData(), size) == isGood, "checksum");
    if (isGood && size > 5 && expected.compare(0, 2, "\xff\x55") == 0) {
        const QByteArray again =
            wire::build(quint8(packet[3]), quint8(packet[4]), packet.mid(5, size - 6));
        expect(again == packet, "packet built again");
    }
}

void search(wire::ReceiveBuffer &buffer, std::string &stream)
{
    const std::size_t pair = stream.find("\xff\x55");
    const bool isThere = pair != std::string::npos;
    expect(buffer.searchSyncId() == isThere, "packet is found");
    // The last byte may be the first half of a pair.
    stream.erase(0, isThere ? pair : std::max<std::size_t>(stream.size(), 1) - 1);
}

void take(wire::ReceiveBuffer &buffer, std::string &stream)
{
    QByteArray packet;
    const std::size_t total = stream.size() > 3 ? (quint8(stream[2]) + 4u) % 256 : SIZE_MAX;
    const bool isWhole = stream.size() >= total;
    expect(buffer.checkPackageIsEntire(packet) == isWhole, "whole packet");
    if (!isWhole)
        return;
    check(packet, stream.substr(0, total));
    stream.erase(0, total);
}

/// A packet with any payload comes back from a stream.
void passOn(const QByteArray &payload)
{
    const int size = std::min(payload.size(), wire::maxPayload);
    const QByteArray packet = wire::build(wire::WriteRequest, 5, payload);
    expect(packet.size() == size + 6 && packet.mid(5, size) == payload.left(size), "payload");
    constexpr int longestReceived = 249;
    if (size > longestReceived)
        return;
    wire::ReceiveBuffer buffer;
    buffer.append(packet);
    QByteArray received;
    expect(buffer.searchSyncId() && buffer.checkPackageIsEntire(received) && received == packet &&
               buffer.isEmpty() &&
               wire::verifiPackageCheckSum(received.constData(), received.size()),
           "packet that was built");
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static const bool isSilent = (fuzz::silence(), true);
    Q_UNUSED(isSilent)
    const QByteArray input = fuzz::bytesOf(data, size);
    wire::ReceiveBuffer buffer;
    std::string stream;
    for (int next = 0; next < input.size();) {
        const int step = quint8(input[next++]);
        if (step == 0) {
            search(buffer, stream);
        } else if (step == 1) {
            take(buffer, stream);
        } else {
            const int length = std::min(step - 2, input.size() - next);
            const char *chunk = input.constData() + next;
            next += length;
            buffer.append(QByteArray::fromRawData(chunk, length));
            stream.append(chunk, std::size_t(length));
        }
        expect(buffer.size() == qint64(stream.size()), "number of waiting bytes");
    }
    passOn(input);
    return 0;
}
