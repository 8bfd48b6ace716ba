// Runs a test on virtual time: the answers have their time limit, and no one waits for it.
#include "station.h"

#include "autotesthandler.h"
#include "catalogue.h"
#include "linksubstitute.h"
#include "platformsubstitute.h"

#include <algorithm>

namespace mcusim {

namespace {

namespace link = substitute::link;

/// Panel keys arrive from the platform's dispatcher with this kind.
constexpr int panelKey = 1;

QString packetText(const QByteArray &bytes)
{
    StationPacket packet;
    bool goodChecksum = false;
    if (!takeApart(bytes, &packet, &goodChecksum))
        return QStringLiteral("no packet: ") + QString::fromLatin1(bytes.toHex(' '));
    return packet.text() + QLatin1String(goodChecksum ? "" : " with a bad checksum");
}

} // namespace

Station::Station(substitute::VirtualClock *clock, Listener listener, SignalListener signalListener)
    : m_clock(clock), m_listener(std::move(listener)), m_signalListener(std::move(signalListener)),
      m_application(mcu::AutoTestHandler::instance(),
                    [this](const QMetaMethod &signal, const QVariantList &values) {
                        hear(QString::fromLatin1(signal.name()), values);
                    })
{
    link::log().setListener([this](const substitute::Call &call) {
        if (call.name != QLatin1String("sendAutoTestPkgToMcu"))
            return;
        m_answers.append(call.arguments.last().toByteArray());
        m_listener(m_clock->now(), Sender::Unit, m_answers.last());
    });
}

Station::~Station() { link::log().setListener({}); }

StationResult Station::run(const StationTest &test)
{
    m_test = &test;
    m_replied = false;
    m_answers.clear();
    m_signals.clear();
    const qint64 start = m_clock->now();

    if (test.status >= 0)
        link::inject(QStringLiteral("autoTestStatusChanged"), {test.status});
    for (const QByteArray &chunk : test.chunks)
        send(chunk);
    for (const QVariantList &key : test.keys)
        link::inject(QStringLiteral("keyEventSgl"), key);
    for (const QVariantList &key : test.panelKeys)
        substitute::platform::pressPanelKey(key[0].toInt(), key[1].toInt(), panelKey);
    m_clock->settle();

    // A test that expects nothing waits its time out, to see that nothing comes.
    const qint64 end = start + test.within;
    while (m_clock->now() < end &&
           (test.answers.isEmpty() || m_answers.size() < test.answers.size())) {
        const qint64 due = m_clock->nextDue();
        m_clock->advanceTo(due < 0 ? end : std::min(due, end));
    }
    StationResult result{faults(test), m_clock->now() - start};
    m_test = nullptr;
    return result;
}

void Station::send(const QByteArray &chunk)
{
    m_listener(m_clock->now(), Sender::Station, chunk);
    link::inject(QStringLiteral("autoTestPkgChanged"), {chunk});
    m_clock->settle();
}

void Station::hear(const QString &signal, const QVariantList &values)
{
    m_signals.append({signal, values});
    m_signalListener(m_clock->now(), signal, values);
    if (!m_test || !m_test->replies || m_replied)
        return;
    m_replied = true;
    mcu::AutoTestHandler::instance()->sendReadInfo(m_test->reply.did, m_test->reply.payload);
}

QStringList Station::faults(const StationTest &test) const
{
    QStringList found;
    const int common = std::min(test.answers.size(), m_answers.size());
    for (int i = 0; i < common; ++i) {
        if (test.answers[i].bytes() != m_answers[i])
            found.append(QStringLiteral("expected %1, got %2")
                             .arg(test.answers[i].text(), packetText(m_answers[i])));
    }
    for (int i = common; i < test.answers.size(); ++i)
        found.append(QStringLiteral("no answer within %1 ms, expected %2")
                         .arg(test.within)
                         .arg(test.answers[i].text()));
    for (int i = common; i < m_answers.size(); ++i)
        found.append(QStringLiteral("unexpected answer %1").arg(packetText(m_answers[i])));

    const auto expected = [&test](const Signal &signal) {
        return signal.name == test.signal && signal.values == test.values;
    };
    if (!test.signal.isEmpty() && std::none_of(m_signals.begin(), m_signals.end(), expected)) {
        QStringList values;
        for (const QVariant &value : test.values)
            values.append(shown(value));
        found.append(QStringLiteral("applications did not receive %1(%2)")
                         .arg(test.signal, values.join(QStringLiteral(", "))));
    }
    return found;
}

} // namespace mcusim
