#include "carstate.h"

#include "catalogue.h"

namespace mcupanel {

using namespace mcusim;

namespace {

/// Signals that are emitted only for a change. A first report that equals the value at start is
/// known from the report alone.
struct Change {
    const char *report;
    const char *reported;
    const char *signal;
    const char *field;
};
constexpr Change changes[]{
    {"taillineStateSgl", "parking", "McuService.parkingChanged", "state"},
    {"taillineStateSgl", "reverse", "McuService.reverseChanged", "state"},
    {"taillineStateSgl", "headlight", "McuService.headlightChanged", "state"},
    {"taillineStateSgl", "mute", "McuService.muteLineStateChanged", "state"},
};

const QString steeringRecord = "McuService.syncSteeringAngleInforUpdate";
const QString steeringPercent = "McuVechicleBridge.steeringAngleChanged";
constexpr int invalidAngle = 65535;
constexpr int straightAhead = 50; // percent at start

} // namespace

void CarState::hear(const Event &event)
{
    m_time = event.time;
    if (event.what->kind == Kind::Report)
        return setUnchanged(event);
    if (event.what->kind != Kind::Signal)
        return;
    if (event.what->record) {
        for (const Field &field : fields(event))
            set(event.what->name, field.name, field.value.toInt());
    } else {
        for (int i = 0; i < event.values.size(); ++i)
            set(event.what->name, event.what->parameters[i].name, event.values[i]);
    }
    if (event.what->name == steeringRecord && !number(steeringPercent + "/percent") &&
        number(steeringRecord + "/steering_angle").value_or(invalidAngle) != invalidAngle)
        set(steeringPercent, "percent", straightAhead);
}

void CarState::setUnchanged(const Event &event)
{
    for (const Change &change : changes) {
        if (event.what->name != QLatin1String(change.report))
            continue;
        for (int i = 0; i < event.values.size(); ++i) {
            if (event.what->parameters[i].name == QLatin1String(change.reported))
                set(change.signal, change.field, event.values[i]);
        }
    }
}

void CarState::set(const QString &signal, const QString &field, const QVariant &value)
{
    QVariant &known = m_values[signal + '/' + field];
    if (known.isValid() && known == value)
        return;
    known = value;
    m_changed.insert(signal);
}

std::optional<int> CarState::number(const QString &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->toInt());
}

std::optional<QString> CarState::text(const QString &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::nullopt : std::optional(found->toString());
}

QString CarState::described(const QString &signal) const
{
    QStringList texts;
    for (auto value = m_values.begin(); value != m_values.end(); ++value) {
        if (value.key().startsWith(signal + '/'))
            texts.append(value.key().section('/', 1) + ' ' + value->toString());
    }
    texts.sort();
    return texts.join(", ");
}

} // namespace mcupanel
