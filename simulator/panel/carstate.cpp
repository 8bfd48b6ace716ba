#include "carstate.h"

#include "catalogue.h"

namespace mcupanel {

using namespace mcusim;

namespace {

/// These signals are emitted only for a change. That a first report equals the value at start is
/// known from the report alone.
const QHash<QString, QString> changes{
    {"taillineStateSgl/parking", "McuService.parkingChanged/state"},
    {"taillineStateSgl/reverse", "McuService.reverseChanged/state"},
    {"taillineStateSgl/headlight", "McuService.headlightChanged/state"},
    {"taillineStateSgl/mute", "McuService.muteLineStateChanged/state"},
};
const QString steeringAngle = "McuService.syncSteeringAngleInforUpdate/steering_angle";
const QString steeringPercent = "McuVechicleBridge.steeringAngleChanged/percent";
constexpr int invalidAngle = 65535;
constexpr int straightAhead = 50; // percent at start

} // namespace

void CarState::hear(const Event &event)
{
    m_time = event.time;
    const QString prefix = event.what->name + '/';
    if (event.what->record) {
        const QVector<Field> shown = fields(event);
        for (const Field &field : shown)
            set(prefix + field.name, field.value.toInt());
        if (number(steeringAngle).value_or(invalidAngle) != invalidAngle &&
            !number(steeringPercent))
            set(steeringPercent, straightAhead);
        return;
    }
    for (int i = 0; i < event.values.size(); ++i) {
        const QString name = prefix + event.what->parameters[i].name;
        if (event.what->kind == Kind::Signal)
            set(name, event.values[i]);
        else if (event.what->kind == Kind::Report && changes.contains(name))
            set(changes[name], event.values[i]);
    }
}

void CarState::set(const QString &name, const QVariant &value)
{
    QVariant &known = m_values[name];
    if (known.isValid() && known == value)
        return;
    known = value;
    m_changed.insert(name);
}

std::optional<QString> CarState::text(const QString &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->toString());
}

std::optional<int> CarState::number(const QString &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->toInt());
}

} // namespace mcupanel
