// What the panel shows and drives: the library in its own process, or a running application.
#pragma once

#include "liveclient.h"
#include "simulation.h"
#include "substituteplatform.h"

#include <QObject>
#include <QTimer>

namespace mcupanel {

class Target {
public:
    explicit Target(mcusim::Clock &clock) : m_clock(clock) {}
    virtual ~Target() = default;

    /// For people: "library in this window", "dashboard.4711".
    virtual QString title() const = 0;
    virtual void addSink(mcusim::Sink *sink) = 0;
    /// Starts to tell the sinks.
    virtual void start() = 0;
    /// Does an input. Says in one line why it cannot; empty when it is done or sent.
    virtual QString play(const mcusim::Event &input) = 0;

    const mcusim::Catalogue &names() const { return m_names; }
    mcusim::Clock &clock() const { return m_clock; }
    /// Called with one line for what was refused, missed or has ended.
    std::function<void(const QString &why)> onTrouble = [](const QString &) {};

private:
    mcusim::Clock &m_clock;

protected:
    mcusim::SubstitutePlatform m_platform;

private:
    mcusim::Catalogue m_names{m_platform};
};

class OwnLibrary : public Target {
public:
    explicit OwnLibrary(mcusim::Clock &clock)
        : Target(clock), m_simulation(names(), m_platform, clock)
    {
    }

    QString title() const override { return "library in this window"; }
    void addSink(mcusim::Sink *sink) override { m_simulation.addSink(sink); }
    void start() override { m_simulation.start(); }
    QString play(const mcusim::Event &input) override { return m_simulation.play(input); }

private:
    mcusim::Simulation m_simulation;
};

class RunningApplication : public Target, private QObject {
public:
    /// Throws a Refusal when there is no such application.
    RunningApplication(const QString &name, mcusim::Clock &clock);

    QString title() const override { return m_client.process().text(); }
    void addSink(mcusim::Sink *sink) override { m_client.addSink(sink); }
    void start() override;
    QString play(const mcusim::Event &input) override;

private:
    void receive();

    mcusim::LiveClient m_client;
    QTimer m_reading;
    bool m_hasEnded = false;
};

} // namespace mcupanel
