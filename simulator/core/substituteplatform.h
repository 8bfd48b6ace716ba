// The substitute platform: it notifies of every command, and its state and answers can be set.
#pragma once

#include "platform.h"

namespace mcusim {

/// One at a time in a process, as the substitutes themselves.
class SubstitutePlatform : public Platform {
public:
    /// Which thread the link reports from.
    enum class Reports { MainThread, ReaderThread };

    explicit SubstitutePlatform(Reports reports = Reports::MainThread) : m_reports(reports) {}

    QVector<Entry> settings() const override;
    QVector<Entry> calls() const override;
    void listen(Listener listener) override;
    void report(const QMetaMethod &signal, QVariantList values) override;

private:
    Reports m_reports;
};

} // namespace mcusim
