// What goes in during the soak, and the account of what comes out of it. Each item has its number
// in its values, so that one that is missing, doubled or out of order is noticed.
#pragma once

#include "simulation.h"
#include "substituteplatform.h"

#include <deque>

namespace soak {

/// The items of one kind, such as the reports of one link signal.
class Flow {
public:
    using Values = std::function<QVariantList(qint64 number)>;

    struct Counts {
        qint64 sent = 0;
        qint64 received = 0;
        qint64 replaced = 0; ///< held back until a later one took its place
        qint64 lost = 0;
        qint64 surplus = 0; ///< what came besides: twice, late or with other values
    };

    /// `values` are those that must come out. Of a limited kind, some are replaced and the last one
    /// may come again.
    Flow(const char *group, const QString &name, Values values, bool isLimited = false)
        : m_group(group), m_name(name), m_values(std::move(values)), m_isLimited(isLimited)
    {
    }

    QVariantList values(qint64 number) const { return m_values(number); }
    /// The values of the next item, which goes in now.
    QVariantList next() { return m_values(++m_counts.sent); }
    /// Takes an item that came out; false when it is none of those that are due.
    bool hear(const QVariantList &values);
    void refuse() { ++m_counts.surplus; }

    /// What has not come yet counts as lost.
    Counts counts() const;
    bool isComplete() const { return m_last == m_counts.sent; }
    const char *group() const { return m_group; }
    const QString &name() const { return m_name; }

private:
    const char *m_group;
    QString m_name;
    Values m_values;
    bool m_isLimited;
    qint64 m_last = 0; ///< number of the last item that came out
    Counts m_counts;
};

/// All reports of the link at the rates of a drive, factory sessions, commands and queries. Starts
/// the library as an application does; one in a process.
class Traffic : public mcusim::Sink {
public:
    /// Who emits the reports.
    enum class Emitter { Caller, LinkThread };

    explicit Traffic(Emitter emitter);

    /// Sends what is due until this moment, in milliseconds.
    void advanceTo(qint64 moment);
    /// Begins or ends a session of the factory test, in which packets are answered.
    void switchFactoryTest();
    /// Another kind of traffic, whose items come out as events of this name.
    Flow &add(mcusim::Kind kind, const QString &heard, Flow flow);

    void hear(const mcusim::Event &event) override;
    bool isComplete() const;
    /// Prints a line for each group and for each kind with a fault; false if there is one.
    bool print() const;

private:
    struct Source {
        const mcusim::Signature *what;
        Flow *flow; ///< null for what does not come out
        qint64 period = 0;
        qint64 due = 0;
    };

    void addReport(const mcusim::Signature &report);
    void addOperation(const mcusim::Signature &operation);
    void send(Source &source);
    void sendPackets();

    Emitter m_emitter;
    mcusim::SubstitutePlatform m_platform;
    const mcusim::Catalogue m_names{m_platform};
    mcusim::RealTime m_time;
    mcusim::Simulation m_simulation{m_names, m_platform, m_time};
    std::deque<Flow> m_flows; // never moved
    QHash<const mcusim::Signature *, QVector<Flow *>> m_heard;
    std::vector<Source> m_reports;
    std::vector<Source> m_operations; ///< called one after another
    std::size_t m_nextOperation = 0;
    qint64 m_operationDue = 0;
    Source m_status{nullptr, nullptr};
    Source m_chunks{nullptr, nullptr};
    Flow *m_answers = nullptr;
    qint64 m_unheard = 0; ///< items that do not come out
};

} // namespace soak
