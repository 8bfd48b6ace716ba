// Taps on the application side, listeners on the platform side.
#include "desk.h"

#include "catalogue.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "platformsubstitute.h"

#include <QFile>

#include <algorithm>

namespace mcusim {

namespace {

namespace link = substitute::link;
namespace platform = substitute::platform;

QVector<Setting> makeSettings()
{
    QVector<Setting> table;
    for (const QString &query : link::queries()) {
        table.append({query,
                      {{link::answer(query).userType(), QStringLiteral("answer")}},
                      [query](const QVariantList &arguments) {
                          link::setAnswer(query, arguments.first());
                      }});
    }
    table.append({QStringLiteral("forceTime"),
                  {{QMetaType::Bool, QStringLiteral("force")}},
                  [](const QVariantList &arguments) {
                      platform::setForceTime(arguments.first().toBool());
                  }});
    table.append({QStringLiteral("mcu_upgrade_status"),
                  {{QMetaType::Bool, QStringLiteral("upgrading")}},
                  [](const QVariantList &arguments) {
                      platform::setSetting(QStringLiteral("mcu_upgrade_status"),
                                           arguments.first().toBool());
                  }});
    return table;
}

/// The file that a surround-view renderer puts down for its release semaphore. A desk has no
/// renderer, and without the file the library would complain at every parking report.
void putDownReleaseFile()
{
    QFile file(QStringLiteral("/tmp/avmrenderserver_releaseuart"));
    if (!file.exists())
        file.open(QIODevice::WriteOnly);
}

} // namespace

const QVector<Setting> &settings()
{
    static const QVector<Setting> table = makeSettings();
    return table;
}

Desk::Desk(substitute::VirtualClock *clock, Link link, Listener listener)
    : m_clock(clock), m_link(link), m_listener(std::move(listener))
{
    putDownReleaseFile();
    link::log().setListener(
        [this](const substitute::Call &call) { tell(Kind::Command, call.name, call.arguments); });
    platform::log().setListener(
        [this](const substitute::Call &call) { tell(Kind::Platform, call.name, call.arguments); });
    for (const ApplicationObject &object : applicationObjects()) {
        const QString prefix = QString::fromLatin1(object.name) + '.';
        m_taps.push_back(std::make_unique<substitute::SignalTap>(
            object.instance(),
            [this, prefix](const QMetaMethod &signal, const QVariantList &arguments) {
                tell(Kind::Signal, prefix + QString::fromLatin1(signal.name()), arguments);
            }));
    }
}

Desk::~Desk()
{
    link::log().setListener({});
    platform::log().setListener({});
}

void Desk::start() { mcu::McuService::instance()->init(); }

void Desk::play(const Event &input)
{
    Event event = input;
    event.time = m_clock->now();
    switch (input.kind) {
    case Kind::Report:
        m_listener(event);
        link::inject(input.name, input.arguments, nullptr,
                     m_link == Link::ReaderThread ? substitute::Emitter::ReaderThread
                                                  : substitute::Emitter::Caller);
        if (m_link == Link::ReaderThread)
            link::drainReaderThread();
        break;
    case Kind::Call:
        call(event);
        break;
    case Kind::Setting:
        m_listener(event);
        for (const Setting &setting : settings()) {
            if (setting.name == input.name)
                setting.apply(input.arguments);
        }
        break;
    default:
        break;
    }
    m_clock->settle();
}

void Desk::call(Event &event)
{
    const auto &table = operations();
    const auto operation =
        std::find_if(table.begin(), table.end(),
                     [&event](const Operation &candidate) { return candidate.name == event.name; });
    if (!operation->answers)
        m_listener(event);
    event.result = operation->call(event.arguments);
    if (operation->answers)
        m_listener(event);
}

void Desk::tell(Kind kind, const QString &name, const QVariantList &arguments)
{
    m_listener({m_clock->now(), kind, name, arguments, {}, 0});
}

} // namespace mcusim
