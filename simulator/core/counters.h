// Counts what passes.
#pragma once

#include "event.h"

#include <QMap>

namespace mcusim {

class Counters : public Sink {
public:
    void hear(const Event &event) override;

    qint64 count(Kind kind) const { return m_counts[int(kind)]; }
    /// Reports after which nothing left the library at once, by name.
    QMap<QString, qint64> unanswered() const;

private:
    qint64 m_counts[std::size(kinds)] = {};
    QMap<const Signature *, qint64> m_unanswered;
    const Signature *m_waiting = nullptr; ///< a report, and nothing has left the library since
    qint64 m_time = 0;                    ///< of the last event
};

} // namespace mcusim
