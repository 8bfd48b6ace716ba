#include "simulation.h"

#include "mcuservice.h"
#include "values.h"

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
    // After init(), as in an application: the manager sends a command when it is created.
    listenToApplications();
}

void Simulation::attach()
{
    listenToPlatform();
    listenToApplications();
}

void Simulation::listenToPlatform()
{
    m_platform.listen([this](Kind kind, const QString &name, const QVariantList &values) {
        tell(kind, name, values);
    });
}

void Simulation::listenToApplications()
{
    for (const ApplicationObject &object : applicationObjects()) {
        QVector<const Signature *> signatures(object.metaObject->methodCount());
        for (const Signature &signature : m_names.all()) {
            if (signature.method.enclosingMetaObject() == object.metaObject)
                signatures[signature.method.methodIndex()] = &signature;
        }
        m_taps.push_back(std::make_unique<substitute::SignalTap>(
            object.instance(),
            [this, signatures](const QMetaMethod &signal, const QVariantList &values) {
                tell(signatures[signal.methodIndex()], values);
            }));
    }
}

QString Simulation::play(const Event &input)
{
    if (!input.isInput())
        return QString(info(input.what->kind).title) + " cannot be played: it comes out";
    if (!input.what->takes(input.values))
        return input.what->text() + " cannot take " + QString::fromUtf8(writtenValue(input.values));
    tell(input.what, input.values);
    ++m_playing;
    const QVariant result = input.what->play(input.values);
    if (input.what->answer)
        tell(input.what->answer, {result});
    // An input that a sink plays during another one belongs to that one.
    if (--m_playing == 0)
        m_clock.settle();
    return {};
}

void Simulation::tell(const Signature *what, const QVariantList &values)
{
    const Event event{m_clock.now(), what, values, 0};
    for (Sink *sink : m_sinks)
        sink->hear(event);
}

void Simulation::tell(Kind kind, const QString &name, const QVariantList &values)
{
    const Signature *what = m_names.find(kind, name, values);
    for (const Signature &known : m_unlisted) {
        if (!what && known.kind == kind && known.name == name && known.takes(values))
            what = &known;
    }
    if (!what) {
        // It has no name for scenarios, but no output is lost.
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
