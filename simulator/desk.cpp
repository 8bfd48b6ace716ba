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
    const auto add = [&table](const char *name, QVector<Parameter> parameters, auto apply) {
        table.append({QString::fromLatin1(name), std::move(parameters), apply});
    };
    add("forceTime", {{QMetaType::Bool, "force"}},
        [](const QVariantList &values) { platform::setForceTime(values[0].toBool()); });
    add("mcu_upgrade_status", {{QMetaType::Bool, "upgrading"}}, [](const QVariantList &values) {
        platform::setSetting(QStringLiteral("mcu_upgrade_status"), values[0].toBool());
    });
    add("audioEvents", {{QMetaType::QVariantList, "events"}}, [](const QVariantList &values) {
        QList<int> events;
        for (const QVariant &event : values[0].toList())
            events.append(event.toInt());
        platform::setAudioEvents(events);
    });
    add("mainAudioMuted", {{QMetaType::Bool, "muted"}},
        [](const QVariantList &values) { platform::setMainAudioMuted(values[0].toBool()); });
    add("attenuated", {{QMetaType::Bool, "attenuated"}},
        [](const QVariantList &values) { platform::setAttenuated(values[0].toBool()); });
    add("panelKey", {{QMetaType::Int, "key"}, {QMetaType::Int, "state"}, {QMetaType::Int, "kind"}},
        [](const QVariantList &values) {
            platform::pressPanelKey(values[0].toInt(), values[1].toInt(), values[2].toInt());
        });
    add("currentDisplay", {{QMetaType::Int, "display"}},
        [](const QVariantList &values) { platform::setCurrentDisplay(values[0].toInt()); });
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
}

Desk::~Desk()
{
    link::log().setListener({});
    platform::log().setListener({});
}

void Desk::start()
{
    mcu::McuService::instance()->init();
    // Only now, as applications do: the manager has a command for the link when it is made.
    for (const ApplicationObject &object : applicationObjects()) {
        const QString prefix = QString::fromLatin1(object.name) + '.';
        m_taps.push_back(std::make_unique<substitute::SignalTap>(
            object.instance(),
            [this, prefix](const QMetaMethod &signal, const QVariantList &arguments) {
                tell(Kind::Signal, prefix + QString::fromLatin1(signal.name()), arguments);
            }));
    }
}

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
        m_listener(event);
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

void Desk::call(const Event &event)
{
    const auto &table = operations();
    const auto operation =
        std::find_if(table.begin(), table.end(), [&event](const Operation &candidate) {
            return candidate.name == event.name &&
                   candidate.parameters.size() == event.arguments.size();
        });
    const QVariant result = operation->call(nullptr, event.arguments);
    if (result.isValid())
        tell(Kind::Answer, event.name, {result});
}

void Desk::tell(Kind kind, const QString &name, const QVariantList &arguments)
{
    m_listener({m_clock->now(), kind, name, arguments, 0});
}

} // namespace mcusim
