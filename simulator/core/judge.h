// Holds what came against what a scenario says must come, as both go by.
#pragma once

#include "event.h"

#include <QStringList>

#include <deque>
#include <optional>
#include <vector>

namespace mcusim {

/// Each expected line must come at its very moment with its values, in the order of the file; what
/// comes besides does not matter. A recording must come back whole: nothing missing, nothing
/// besides, up to its first fault. Keeps what belongs to the present moment and no more.
class Judge : public Sink {
public:
    explicit Judge(bool recording) : m_isRecording(recording) {}

    /// How long after a moment what belongs there may still come.
    virtual qint64 tolerance() const { return 0; }
    /// The next expected line; what comes before its moment has come.
    virtual void expect(const Event &event);
    void hear(const Event &event) override;
    /// Nothing more comes; until this moment all lines are read and have had their time. Whether
    /// what came after the last line of a recording is no fault, since lines may be missing there.
    virtual void finish(qint64 until, bool mayBeCut);

    qint64 met() const { return m_met; }
    qint64 failed() const { return m_failed; }
    bool passed() const { return m_failed == 0; }
    /// Whether more came than what may be cut holds.
    bool isSurplus() const { return m_isSurplus; }
    /// A line for each of the first faults and one for the number of the others.
    QStringList faults() const;
    /// A line for each thing that was not compared.
    virtual QStringList notes() const { return {}; }

protected:
    void addMet(const Event &expected);
    /// `after` is the line after which something came that is not recorded there.
    void addFault(const Event &expected, const std::optional<Event> &received, int after);
    /// Compares an output with the faults, and those that follow with it.
    void remember(const Event &output);

private:
    struct Fault {
        Event expected;                ///< or nothing, when something came that is not recorded
        std::optional<Event> received; ///< in its place
        std::optional<Event> nearest;  ///< the same as expected at the nearest time
        int after = 0;
    };

    void moveTo(qint64 moment);
    void match();
    void closeMoment();
    void compare(Fault &fault, const Event &output) const;

    bool m_isRecording;
    qint64 m_met = 0;
    int m_lastMet = 0; ///< its line
    qint64 m_failed = 0;
    bool m_isSurplus = false;
    std::vector<Fault> m_faults;
    std::deque<Event> m_recent; ///< the last outputs, to look for the nearest

    qint64 m_moment = 0;
    std::deque<Event> m_expected; ///< at this moment and not met yet
    std::vector<quint64> m_came;  ///< at this moment, as fingerprints
    std::size_t m_used = 0;       ///< so many of them are used up
    std::size_t m_searched = 0;   ///< before it there is not the first expected one

    std::deque<Event> m_unrecorded; ///< of a recording: came, and its line is not read yet
};

} // namespace mcusim
