// The state of the car as applications know it: the last values of all application signals. A plain
// value, without widgets.
#pragma once

#include "event.h"

#include <QHash>
#include <QSet>
#include <QVariant>

#include <optional>

namespace mcupanel {

/// A value is named by its signal and its field: "McuService.syncTpmsInforUpdate/FLTirePres". The
/// fields of a signal with a vehicle record are those of the record.
class CarState : public mcusim::Sink {
public:
    void hear(const mcusim::Event &event) override;

    /// Nothing before the first report.
    std::optional<int> number(const QString &name) const;
    std::optional<QString> text(const QString &name) const;

    /// The names of all values that differ from those at the last call.
    QSet<QString> takeChanged() { return std::exchange(m_changed, {}); }
    /// The moment of the last event, in milliseconds.
    qint64 time() const { return m_time; }

private:
    void set(const QString &name, const QVariant &value);

    QHash<QString, QVariant> m_values;
    QSet<QString> m_changed;
    qint64 m_time = 0;
};

} // namespace mcupanel
