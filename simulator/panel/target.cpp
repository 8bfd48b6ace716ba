#include "target.h"

#include "scenario.h"

#include <QSocketNotifier>

namespace mcupanel {

using namespace mcusim;

RunningApplication::RunningApplication(const QString &name, Clock &clock)
    : Target(clock), m_client(names(), findProcess(name))
{
    // All that the window shows; the rest need not be sent.
    m_client.limitTo({"signal", "command", "taillineStateSgl"}, {});
    m_client.onAnswer = [this](int, const QString &why) {
        if (!why.isEmpty())
            onTrouble(why);
    };
    m_client.onMissed = [this](qint64 count) {
        onTrouble(QString::number(count) + " events missed");
    };
}

void RunningApplication::start()
{
    auto *notifier = new QSocketNotifier(m_client.descriptor(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        receive();
        notifier->setEnabled(!m_hasEnded);
    });
    m_reading.setSingleShot(true);
    connect(&m_reading, &QTimer::timeout, this, [this] { receive(); });
}

QString RunningApplication::play(const Event &input)
{
    if (m_hasEnded)
        return title() + " has ended";
    m_client.send(writtenEvent(input));
    // What came while it was sent is read already, so the descriptor does not tell of it.
    m_reading.start();
    return {};
}

void RunningApplication::receive()
{
    if (m_hasEnded)
        return;
    QString why = title() + " has ended";
    try {
        m_hasEnded = !m_client.receive();
    } catch (const Refusal &refusal) {
        m_hasEnded = true;
        why = refusal.text();
    }
    if (m_hasEnded)
        onTrouble(why);
}

} // namespace mcupanel
