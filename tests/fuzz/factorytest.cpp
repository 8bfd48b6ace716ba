// Fuzz target: a factory station that starts, stops and sends chunks as the input says. The effects
// of each step are compared with a simple model, which searches all stored bytes in each step and
// reads the action of each packet from dids.txt.
//
// The input is a sequence of steps: byte 0 stops, byte 1 starts, byte n sends the next n - 2 bytes.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "packettext.h"
#include "standarderror.h"
#include "target.h"
#include "testkit.h"

#include <QFile>
#include <QHash>

#include <numeric>

namespace {

/// The actions of dids.txt by type and DID of the packet.
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

/// The action with the values of a packet; empty if it needs a payload and there is none.
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

/// A packet as it is written to standard error.
QString traffic(const char *mark, const QByteArray &packet)
{
    return mark + QString::fromLatin1(' ' + packet.toHex(' ').toUpper());
}

/// The command that sends a packet.
QString sent(const QByteArray &packet)
{
    return testkit::show("sendAutoTestPkgToMcu", {packet.size(), packet});
}

/// Computes the effects of each step: the last log line, the packets on standard error, the signals
/// and the packets to the station.
class Model {
public:
    QStringList play(int step, const QByteArray &chunk)
    {
        if (step > 1)
            return isOn ? receive(chunk) : QStringList{""};
        isOn = step == 1;
        if (!isOn)
            m_stream.clear();
        return {isOn ? "start!!!" : "stop!!!"};
    }

    bool isOn = false;
    bool isInKeyTest = false;

private:
    QStringList receive(const QByteArray &chunk)
    {
        m_stream += chunk;
        const int sync = m_stream.indexOf("\xff\x55");
        if (sync < 0)
            return {m_stream.isEmpty() ? "recv data 0." : "not found sync id."};
        m_stream.remove(0, sync);
        const int total = m_stream.size() > 3 ? (quint8(m_stream[2]) + 4) % 256 : INT_MAX;
        if (m_stream.size() < total)
            return {"package is not entire."};
        const QByteArray packet = m_stream.left(total);
        m_stream.remove(0, total);
        if (total > 3 && std::accumulate(packet.begin() + 2, packet.end(), 0) % 256 == 0)
            return take(packet);
        return {"packet verification failed !!! \"" + packet.toHex() + '"'};
    }
    QStringList take(const QByteArray &packet)
    {
        static const QHash<QString, QString> actions = readActions();
        const QByteArray type = packet.mid(3, 1).toHex();
        const QByteArray did = type + ':' + packet.mid(4, 1).toHex();
        const QByteArray payload = packet.mid(5, packet.size() - 6);
        const QByteArray first = did + ':' + payload.left(1).toHex();
        const bool isKnown = actions.contains(did);
        // The last number in the log is the type, or an unknown DID, or the selected adapter.
        const bool isLogged = !isKnown && (type == "21" || type == "22" || type == "2e");
        const int offset = isLogged ? 4 : did == "2e:f4" ? 5 : 3;
        const int logged = offset < packet.size() ? quint8(packet[offset]) : 0;
        QStringList all{QString::number(logged), traffic("[AT]<<", packet)};
        if (!isKnown)
            return all;
        const QStringList heard = filled(actions.value(first, actions[did]), packet);
        if (did == "2e:3c")
            isInKeyTest = first == "2e:3c:01";
        if (type != "2e" || did == "2e:f6")
            return all + heard;
        const QByteArray answer =
            testkit::packet(0x6e, packet[4], did == "2e:f7" ? QByteArray("\0\1", 2) : payload);
        return all + QStringList{traffic("[AT]>>", answer)} + heard + QStringList{sent(answer)};
    }

    QByteArray m_stream;
};

/// A handler of the factory test, connected to the substitute link through the facade.
class Station {
public:
    Station()
    {
        static const bool bound = m_service->init();
        Q_UNUSED(bound)
        substitute::link::log().clear();
        m_trace.listen(&handler);
        m_trace.listen(substitute::link::log());
        QObject::connect(
            m_service, &mcu::McuService::headlightChanged, &handler,
            [this](int state) { m_trace.note(testkit::show("headlightChanged", {state})); });
    }

    QStringList play(int step, QByteArray chunk)
    {
        m_log.take();
        const QString traffic = testkit::standardErrorOf([&] {
            if (step == 0)
                handler.stop();
            else if (step == 1)
                handler.start();
            else
                m_service->notifyAutoTestPackage(chunk.size(), chunk.data());
        });
        const QStringList logged = m_log.takeTexts();
        return QStringList{logged.value(logged.size() - 1)} +
               traffic.split('\n', Qt::SkipEmptyParts) + m_trace.take();
    }

    mcu::AutoTestHandler handler;

private:
    mcu::McuService *m_service = mcu::McuService::instance();
    testkit::Trace m_trace;
    testkit::LogCapture m_log;
};

void run(const QByteArray &input)
{
    Station station;
    Model model;
    for (int next = 0; next < input.size();) {
        const int step = quint8(input[next++]);
        const QByteArray chunk = input.mid(next, qMax(step - 2, 0));
        next += chunk.size();
        QStringList received = station.play(step, chunk);
        QStringList expected = model.play(step, chunk);
        // The effects of the audio settings are tested elsewhere (scripts/audiosettings.txt).
        if (expected.last() == sent(testkit::packetOf("6e:f7:0001"))) {
            received = received.mid(received.size() - 1);
            expected = expected.mid(expected.size() - 1);
        }
        const bool isSame = received == expected &&
                            station.handler.isInAutotestMode() == model.isOn &&
                            station.handler.isKeyDetect() == model.isInKeyTest &&
                            station.handler.isInKeyTest() == model.isInKeyTest;
        if (isSame)
            continue;
        std::printf("%s at %d: %s instead of %s\n", input.toHex().constData(), next,
                    qPrintable(received.join(' ')), qPrintable(expected.join(' ')));
        std::fflush(stdout);
        std::abort();
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication application(argc, nullptr);
    run(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
