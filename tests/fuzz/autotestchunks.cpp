// Fuzz target: a factory station that starts, stops and sends chunks as the input says. What comes
// of each step is compared with a plain model, which keeps every byte and searches it anew, and
// reads from dids.txt what each packet does.
//
// The input is a row of steps: byte 0 stops, byte 1 starts, byte n sends the next n - 2 bytes.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "packettext.h"
#include "standarderror.h"
#include "testkit.h"

#include <QFile>
#include <QHash>

#include <numeric>

namespace {

/// The actions of dids.txt by the beginnings of packets.
QHash<QString, QString> readActions()
{
    QFile file(DIDS);
    if (!file.open(QFile::ReadOnly))
        qFatal("cannot read %s", DIDS);
    QHash<QString, QString> rows;
    for (const QString &line : QString::fromLatin1(file.readAll()).split('\n'))
        rows[line.section(' ', 0, 0)] = line.section(' ', 1).trimmed();
    return rows;
}

/// An action for a packet; nothing when it needs a payload that is not there.
QStringList filled(QString action, const QByteArray &packet)
{
    if (action.isEmpty() || (action.contains("tail") && packet.size() < 7))
        return {};
    for (int offset = 5; offset < 8; ++offset) {
        const int direct = offset < packet.size() ? quint8(packet[offset]) : 0;
        const int wrapped = quint8(packet[offset % packet.size()]);
        action.replace(QString("b%1").arg(offset), QString::number(direct));
        action.replace(QString("w%1").arg(offset), QString::number(wrapped));
    }
    return {action.replace("tail", testkit::show(packet.mid(6, packet.size() - 7)))};
}

/// A packet as it stands on standard error.
QString traffic(const char *mark, const QByteArray &packet)
{
    return mark + QString::fromLatin1(' ' + packet.toHex(' ').toUpper() + '\n');
}

/// What comes of a step: the last line logged, the traffic on standard error, what applications and
/// the station receive.
struct Outcome {
    QString logged;
    QString traffic;
    QStringList effects;

    QString text() const { return logged + '\n' + traffic + effects.join(' '); }
};

class Model {
public:
    Outcome play(int step, const QByteArray &chunk)
    {
        if (step > 1)
            return isOn ? receive(chunk) : Outcome{};
        isOn = step == 1;
        if (!isOn)
            m_stream.clear();
        return {isOn ? "start!!!" : "stop!!!", {}, {}};
    }

    bool isOn = false;
    bool isInKeyTest = false;

private:
    Outcome receive(const QByteArray &chunk)
    {
        m_stream += chunk;
        const int sync = m_stream.indexOf("\xff\x55");
        if (sync < 0)
            return {m_stream.isEmpty() ? "recv data 0." : "not found sync id.", {}, {}};
        m_stream.remove(0, sync);
        const int total = m_stream.size() > 3 ? (quint8(m_stream[2]) + 4) % 256 : INT_MAX;
        if (m_stream.size() < total)
            return {"package is not entire.", {}, {}};
        const QByteArray packet = m_stream.left(total);
        m_stream.remove(0, total);
        if (total > 3 && std::accumulate(packet.begin() + 2, packet.end(), 0) % 256 == 0)
            return take(packet);
        return {"packet verification failed !!! \"" + packet.toHex() + '"', {}, {}};
    }
    Outcome take(const QByteArray &packet)
    {
        static const QHash<QString, QString> actions = readActions();
        const QByteArray type = packet.mid(3, 1).toHex();
        const QByteArray did = type + ':' + packet.mid(4, 1).toHex();
        const QByteArray payload = packet.mid(5, packet.size() - 6);
        const QByteArray first = did + ':' + payload.left(1).toHex();
        Outcome outcome{QString::number(quint8(packet[3])), traffic("[AT]<<", packet), {}};
        if (!actions.contains(did)) {
            if (type == "21" || type == "22" || type == "2e")
                outcome.logged = QString::number(packet.size() > 4 ? quint8(packet[4]) : 0);
            return outcome;
        }
        outcome.effects = filled(actions.value(first, actions[did]), packet);
        if (did == "2e:f4")
            outcome.logged = QString::number(quint8(packet[5]));
        if (did == "2e:3c")
            isInKeyTest = first == "2e:3c:01";
        if (type == "2e" && did != "2e:f6") {
            const QByteArray answer =
                testkit::packet(0x6e, packet[4], did == "2e:f7" ? QByteArray("\0\1", 2) : payload);
            outcome.traffic += traffic("[AT]>>", answer);
            outcome.effects += testkit::packetText(answer);
        }
        return outcome;
    }

    QByteArray m_stream;
};

/// A handler of the factory test, bound to the substitute link through the facade.
class Station {
public:
    Station()
    {
        static const bool bound = m_service->init();
        Q_UNUSED(bound)
        substitute::link::log().clear();
        substitute::link::log().setListener([this](const substitute::Call &call) {
            const QByteArray sent = call.arguments.value(1).toByteArray();
            const bool isPacket = call.arguments.value(0) == sent.size();
            m_effects += isPacket ? QString(testkit::packetText(sent)) : call.name;
        });
        QObject::connect(
            m_service, &mcu::McuService::headlightChanged, &handler,
            [this](int state) { m_effects += testkit::show("headlightChanged", {state}); });
    }
    Station(const Station &) = delete;
    Station &operator=(const Station &) = delete;
    ~Station() { substitute::link::log().setListener(nullptr); }

    Outcome play(int step, QByteArray chunk)
    {
        m_log.take();
        if (step == 0)
            handler.stop();
        else if (step == 1)
            handler.start();
        else
            m_service->notifyAutoTestPackage(chunk.size(), chunk.data());
        const QStringList logged = m_log.takeTexts();
        return {logged.value(logged.size() - 1), m_error.take(), std::exchange(m_effects, {})};
    }

    mcu::AutoTestHandler handler;

private:
    mcu::McuService *m_service = mcu::McuService::instance();
    QStringList m_effects;
    const substitute::SignalTap m_tap{
        &handler, [this](const QMetaMethod &signal, const QVariantList &arguments) {
            m_effects += testkit::show(signal.name(), arguments);
        }};
    testkit::LogCapture m_log;
    testkit::StandardError m_error;
};

void run(const QByteArray &input)
{
    Station station;
    Model model;
    for (int next = 0; next < input.size();) {
        const int step = quint8(input[next++]);
        const QByteArray chunk = input.mid(next, qMax(step - 2, 0));
        next += chunk.size();
        Outcome received = station.play(step, chunk);
        const Outcome expected = model.play(step, chunk);
        if (expected.effects.contains(
                "6e:f7:0001")) // what it does to the settings is seen elsewhere
            received = {expected.logged, expected.traffic,
                        received.effects.mid(received.effects.size() - 1)};
        const bool isSame = station.handler.isInAutotestMode() == model.isOn &&
                            station.handler.isKeyDetect() == model.isInKeyTest &&
                            station.handler.isInKeyTest() == model.isInKeyTest;
        if (isSame && received.text() == expected.text())
            continue;
        std::printf("%s at %d: %s\ninstead of %s\n", input.toHex().constData(), next,
                    qPrintable(received.text()), qPrintable(expected.text()));
        std::fflush(stdout);
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size);

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication application(argc, nullptr);
    run(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
