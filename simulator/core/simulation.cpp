#include "simulation.h"

#include "mcuservice.h"
#include "mcusrv.h"
#include "values.h"

#include <algorithm>

namespace mcusim {

Simulation::Simulation(const Catalogue &names, Platform &platform, Clock &clock)
    : m_names(names), m_platform(platform), m_clock(clock)
{
}

Simulation::~Simulation() { m_platform.listen({}); }

void Simulation::start()
{
    listenToPlatform();
    mcu::McuService::instance()->init();
    // Only now, as applications do: the manager has a command for the link when it is made.
    for (const ApplicationObject &object : applicationObjects())
        listenTo(object.instance(), object.metaObject);
}

void Simulation::attach(const mcu::McuSrv *link)
{
    m_hearsLink = true;
    listenToPlatform();
    listenTo(link, &mcu::McuSrv::staticMetaObject);
}

void Simulation::attach(const QObject *object) { listenTo(object, object->metaObject()); }

void Simulation::addSink(Sink *sink)
{
    const std::lock_guard lock(m_mutex);
    m_sinks.push_back(sink);
    m_isHeard = true;
}

void Simulation::removeSink(Sink *sink)
{
    const std::lock_guard lock(m_mutex);
    m_sinks.erase(std::remove(m_sinks.begin(), m_sinks.end(), sink), m_sinks.end());
    m_isHeard = !m_sinks.empty();
}

void Simulation::listenToPlatform()
{
    m_platform.listen([this](Kind kind, const QString &name, const QVariantList &values) {
        tell(kind, name, values);
    });
}

void Simulation::listenTo(const QObject *object, const QMetaObject *metaObject)
{
    QVector<const Signature *> signatures(metaObject->methodCount());
    for (const Signature &signature : m_names.all()) {
        if (signature.method.enclosingMetaObject() == metaObject)
            signatures[signature.method.methodIndex()] = &signature;
    }
    auto tap = std::make_unique<substitute::SignalTap>(
        object, metaObject,
        [this, signatures](const QMetaMethod &signal, const QVariantList &values) {
            tell(signatures[signal.methodIndex()], values);
        },
        &m_isHeard);
    const std::lock_guard lock(m_mutex);
    m_taps.push_back(std::move(tap));
}

QString Simulation::play(const Event &input)
{
    if (!input.isInput())
        return QString(info(input.what->kind).title) + " cannot be played: it comes out";
    if (!input.what->takes(input.values))
        return input.what->text() + " cannot take " + QString::fromUtf8(writtenValue(input.values));
    if (input.what->kind != Kind::Report || !m_hearsLink)
        tell(input.what, input.values);
    ++m_playing;
    const QVariant result = input.what->play(input.values);
    if (input.what->answer)
        tell(input.what->answer, {result});
    // What a sink plays from inside another input is part of that.
    if (--m_playing == 0)
        m_clock.settle();
    return {};
}

void Simulation::tell(const Signature *what, const QVariantList &values)
{
    if (!m_isHeard)
        return;
    const std::lock_guard lock(m_mutex);
    const Event event{m_clock.now(), what, values, 0};
    for (Sink *sink : m_sinks)
        sink->hear(event);
}

void Simulation::tell(Kind kind, const QString &name, const QVariantList &values)
{
    if (!m_isHeard)
        return;
    const std::lock_guard lock(m_mutex);
    const Signature *what = m_names.find(kind, name, values);
    for (const Signature &known : m_unlisted) {
        if (!what && known.kind == kind && known.name == name && known.takes(values))
            what = &known;
    }
    if (!what) {
        // Nobody can name it in a scenario, but nothing that comes is lost.
        Signature &unlisted = m_unlisted.emplace_back();
        unlisted.kind = kind;
        unlisted.name = name;
        for (const QVariant &value : values)
            unlisted.parameters.append({value.userType(), QString()});
        what = &unlisted;
    }
    tell(what, values);
}

} // namespace mcusim
