// Runs a test in virtual time, so that the time limits of answers cost no real time.
#include "station.h"

#include "autotesthandler.h"
#include "values.h"

#include <algorithm>

namespace mcusim {

namespace {

/// Panel keys arrive from the platform's dispatcher with this kind.
constexpr int panelKey = 1;

QString packetText(const QByteArray &bytes)
{
    StationPacket packet;
    bool goodChecksum = false;
    if (!takeApart(bytes, &packet, &goodChecksum))
        return "no packet: " + QString::fromLatin1(bytes.toHex(' '));
    return packet.text(Sender::Unit) + QLatin1String(goodChecksum ? "" : " with a bad checksum");
}

} // namespace

Station::Station(Simulation &simulation) : m_simulation(simulation) { simulation.addSink(this); }

void Station::play(const char *name, const QVariantList &values, Kind kind)
{
    const Signature *what = m_simulation.names().find(kind, QString(name), values);
    m_simulation.play({0, what, values, 0});
}

StationResult Station::run(const StationTest &test)
{
    Clock &clock = m_simulation.clock();
    m_test = &test;
    m_replied = m_signalCame = false;
    m_answers.clear();
    const qint64 start = clock.now();

    if (test.status >= 0)
        play("autoTestStatusChanged", {test.status});
    for (const QByteArray &chunk : test.chunks)
        play("autoTestPkgChanged", {chunk});
    for (const QVariantList &key : test.keys)
        play("keyEventSgl", key);
    for (const QVariantList &key : test.panelKeys)
        play("panelKey", key + QVariantList{panelKey}, Kind::Setting);

    // A test that expects nothing waits its time out, to see that nothing comes.
    const qint64 end = start + test.within;
    while (clock.now() < end &&
           (test.answers.isEmpty() || m_answers.size() < test.answers.size()) &&
           clock.advanceOnce(end)) {
    }
    StationResult result{faults(test), clock.now() - start};
    m_test = nullptr;
    return result;
}

void Station::hear(const Event &event)
{
    if (!m_test)
        return;
    if (event.what->kind == Kind::Command &&
        event.what->name == QLatin1String("sendAutoTestPkgToMcu"))
        m_answers.append(event.values.last().toByteArray());
    if (event.what->method.enclosingMetaObject() != &mcu::AutoTestHandler::staticMetaObject)
        return;
    m_signalCame = m_signalCame || (m_test->signal && event.sameAs(*m_test->signal));
    if (m_test->reply && !m_replied) {
        m_replied = true;
        play("AutoTestHandler.sendReadInfo", {m_test->reply->did, m_test->reply->payload},
             Kind::Call);
    }
}

QStringList Station::faults(const StationTest &test) const
{
    QStringList found;
    const int common = std::min(test.answers.size(), m_answers.size());
    for (int i = 0; i < common; ++i) {
        if (test.answers[i].bytes() != m_answers[i])
            found.append("expected " + test.answers[i].text(Sender::Unit) + ", got " +
                         packetText(m_answers[i]));
    }
    const QString hint = mcu::AutoTestHandler::instance()->isInAutotestMode()
                             ? QString()
                             : "; the test mode is off: \"status\":1 switches it on";
    for (int i = common; i < test.answers.size(); ++i)
        found.append("no answer within " + QString::number(test.within) + " ms, expected " +
                     test.answers[i].text(Sender::Unit) + hint);
    for (int i = common; i < m_answers.size(); ++i)
        found.append("unexpected answer " + packetText(m_answers[i]));
    if (test.signal && !m_signalCame)
        found.append("applications did not receive " + test.signal->text() + hint);
    return found;
}

} // namespace mcusim
