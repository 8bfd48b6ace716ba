// Runs the fuzz target of the factory test without a fuzzer, with the same inputs on every run:
// every packet with a short payload, and streams of complete and broken packets in chunks of random
// lengths.
#include "packettext.h"
#include "target.h"

#include <QRandomGenerator>

namespace {

void replay(const QByteArray &input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const quint8 *>(input.constData()),
                           std::size_t(input.size()));
}

/// The step that sends a chunk.
QByteArray step(const QByteArray &chunk) { return char(chunk.size() + 2) + chunk; }

void replayEveryPacket()
{
    for (int did = 0; did < 256; ++did) {
        QByteArray input("\x01");
        for (const int type : {0x22, 0x2e, 0x21, 0x00, 0x23, 0x62, 0x6e}) {
            for (const char *payload : {"", "\x11", "\x11\x12\x13", "\x01", "\x01\x80"})
                input += step(testkit::packet(type, did, payload));
        }
        replay(input);
    }
}

/// A complete packet, a packet with a wrong byte, or a part of a packet.
QByteArray anyPiece(QRandomGenerator &random)
{
    static const QByteArrayList pieces =
        QByteArrayList{"ff", "55", "00", "ff55fd", "ff55fe", "ff55ff", "ff55032e", "ff55022105ff"};
    if (random.bounded(3) == 0)
        return QByteArray::fromHex(pieces[random.bounded(pieces.size())]);
    QByteArray payload(random.bounded(random.bounded(9) ? 4 : 250), '\0');
    for (char &byte : payload)
        byte = char(random.bounded(256));
    const int did = random.bounded(2) ? 0x05 : random.bounded(256);
    QByteArray packet = testkit::packet("\x22\x2e\x2e\x21"[random.bounded(4)], did, payload);
    if (random.bounded(8) == 0)
        packet[random.bounded(packet.size())] = char(random.bounded(256));
    return packet;
}

void replayStreams()
{
    QRandomGenerator random(1);
    for (int round = 0; round < 600; ++round) {
        QByteArray stream;
        while (stream.size() < 300)
            stream += anyPiece(random);
        QByteArray input("\x01");
        const int longest = 2 + random.bounded(60);
        for (int next = 0; next < stream.size();) {
            const QByteArray chunk = stream.mid(next, random.bounded(longest));
            next += chunk.size();
            input += step(chunk);
            if (random.bounded(40) == 0)
                input += char(random.bounded(2));
        }
        replay(input);
    }
}

} // namespace

int main()
{
    replayEveryPacket();
    replayStreams();
    return 0;
}
