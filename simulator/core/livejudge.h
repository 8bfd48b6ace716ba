// Holds what came against a recording of a real application, whose clock, platform and own calls
// are not there when it is played.
#pragma once

#include "judge.h"

#include <QMap>
#include <QSet>

namespace mcusim {

/// Application signals and commands must come with the recorded values, at their moments give or
/// take a tolerance. What follows from inputs must come in the recorded order; what timers do may
/// come before or after what is near it. The rate-limited records depend on the phase of a timer:
/// their last value before each quiet time is compared.
///
/// What was reported before the recording began is not known, unless the application's start is
/// recorded. Until a name has come back once, what is missing or besides is then a note and no
/// fault, except for vehicle records, which no earlier state holds back. Nor is a signal of an
/// object that the application may not have made yet, as nothing of it is recorded so far.
class LiveJudge : public Judge {
public:
    static constexpr qint64 usualTolerance = 500;

    struct Rules {
        qint64 tolerance = usualTolerance;
        /// Nothing may come besides what is recorded.
        bool isWhole = true;
        /// Without it, recorded commands that do not come are taken for the application's own, and
        /// answers are not compared: they may be its platform's.
        bool hasApplication = false;
    };

    explicit LiveJudge(const Rules &rules) : Judge(true), m_rules(rules) {}

    qint64 tolerance() const override { return m_rules.tolerance; }
    void expect(const Event &event) override;
    void hear(const Event &event) override;
    void finish(qint64 until, bool mayBeCut) override;
    QStringList notes() const override;

private:
    /// Recorded, or come, and without its counterpart yet.
    struct Open {
        Event event;
        quint64 order = 0;  ///< of what follows from inputs, among all of it that comes; else 0
        int after = 0;      ///< the last line read before it came
        bool isSure = true; ///< the application had the object that it comes from
    };
    using Opens = std::deque<Open>;
    /// The last of a rate-limited record since a quiet time.
    struct Held {
        Open recorded; // without an event: nothing
        Open received;
        qint64 latest = 0; ///< of these and of the reports
    };

    bool isJudged(const Event &event) const;
    bool hasObject(const Event &event) const;
    Held &heldOf(const Event &event);
    bool isNear(const Event &a, const Event &b) const;
    bool meets(const Event &recorded, const Open &received) const;
    void meet(const Event &recorded, const Open &received);
    void closeUntil(qint64 time);
    void settle(Held &held);
    static Open takeFirst(Opens &opens);
    void closeRecorded(const Open &open);
    void closeReceived(const Open &open);
    bool isExcused(const Event &event);

    Rules m_rules;
    Opens m_recorded;
    Opens m_received;
    QMap<const Signature *, Held> m_held;
    qint64 m_inputTime = -1; ///< of the last input
    int m_read = 0;          ///< the last line
    quint64 m_order = 0;
    int m_metLine = 0; ///< the last line met of what follows from inputs, and its order
    quint64 m_metOrder = 0;

    bool m_fromStart = false;
    QSet<const QMetaObject *> m_objects;     ///< of which something is recorded
    QMap<const Signature *, qint64> m_known; ///< when what was met came first
    QMap<const Signature *, int> m_excused;
    qint64 m_ownCommands = 0;
};

} // namespace mcusim
