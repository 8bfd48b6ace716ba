// Fuzz target: a factory station that starts, stops and sends chunks as the input says. What comes
// of each chunk is compared with a plain model, which keeps every byte and searches it anew.
//
// The input is a row of steps: byte 0 stops, byte 1 starts, byte n sends the next n - 2 bytes.
#include "factorystation.h"

namespace {

/// All but the audio settings: those write files.
const QByteArray knownWrites =
    QByteArray::fromHex("0102030405060708090a0b0c0d10212330313233343537383"
                        "93a3b3c3d3e46508485"
                        "90a0a1b0b1e0f0f1f2f3f4f5");

/// The packet that a chunk lets through, good or not, or nothing.
QByteArray cut(QByteArray &stream, const QByteArray &chunk)
{
    stream += chunk;
    const int sync = stream.indexOf("\xff\x55");
    stream.remove(0, qMax(sync, 0));
    const int total = stream.size() > 3 ? (quint8(stream[2]) + 4) % 256 : INT_MAX;
    if (sync < 0 || stream.size() < total)
        return {};
    const QByteArray packet = stream.left(total);
    stream.remove(0, total);
    return packet;
}

/// A good packet as "2e:05:02", and its answer.
QString answerTo(const QString &packet)
{
    const bool isAnswered = packet.startsWith("2e:") &&
                            knownWrites.contains(QByteArray::fromHex(packet.mid(3, 2).toLatin1()));
    return isAnswered ? QString("6e").append(packet.mid(2)) : QString();
}

void run(const QByteArray &input)
{
    testkit::FactoryStation station;
    bool isOn = true;
    QByteArray stream;
    for (int next = 0; next < input.size();) {
        const int step = quint8(input[next++]);
        if (step < 2) {
            station.play(step ? "start" : "stop");
            isOn = step == 1;
            stream = isOn ? stream : QByteArray();
            continue;
        }
        const QByteArray chunk = input.mid(next, step - 2);
        next += chunk.size();
        const QString packet = isOn ? testkit::describe(cut(stream, chunk)) : QString();
        QStringList effects = station.send(chunk).split(' ', Qt::SkipEmptyParts);
        if (packet.startsWith("2e:f7:"))
            continue;
        const QString answer =
            effects.isEmpty() || effects.last().contains('(') ? QString() : effects.takeLast();
        if (answer != answerTo(packet) || effects.size() > 1)
            qFatal("%s: %s", qPrintable(packet), qPrintable(answer));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size);

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication application(argc, nullptr);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    QLoggingCategory::defaultCategory()->setEnabled(QtCriticalMsg, false);
    run(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
