// The library on the substitute platform, with everything that a script can name: what happens goes
// in, what comes of it is noted in order. How it is written stands in script.h.
#pragma once

#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcuvechiclebridge.h"
#include "operations.h"
#include "testkit.h"

#include <QHash>

#include <functional>
#include <memory>
#include <vector>

namespace testkit {

class Stage {
public:
    /// From where reports, audio statuses and what the platform tells come in.
    enum class Inputs { MainThread, OtherThread };

    Stage(substitute::VirtualClock *clock, Inputs inputs);
    ~Stage();

    /// Lets something happen; all that comes of it.
    QStringList play(const QString &stimulus);
    /// The types of what stands between the brackets of a call or a report.
    QVector<int> parameterTypes(const QString &stimulus) const;

private:
    /// Something that can be called, with its object.
    struct Callee {
        QVector<int> types;
        std::function<QVariant(const QVariantList &arguments)> call;
        bool isInput; ///< comes from the other thread when inputs do
    };
    /// Something that can be read at any time.
    struct Reading {
        QString object;
        QString name;
        std::function<QVariant()> read;
    };
    struct Effect {
        QString text;
        QVariantList readings; ///< at that moment; none in another thread
    };

    void add(const QString &name, QObject *object, const QString &prefix);
    QStringList perform(const QString &stimulus);
    QStringList call(const QString &stimulus);
    QStringList readAll(const QString &object) const;
    Callee callee(const QString &stimulus) const;
    void input(const std::function<void()> &action) const;
    void note(const QString &name, const QString &text);
    QVariantList readings() const;
    /// "name=value" for each reading that differs from another one; the value is the first one's.
    QStringList differing(const QVariantList &readings, const QVariantList &others) const;

    substitute::VirtualClock *m_clock;
    Inputs m_inputs;
    bool m_isCallElsewhere = false; ///< what a call does in the other thread takes place there
    QVector<Effect> m_effects;
    QHash<QString, QString> m_reactions; ///< what applications do inside emissions, by their names
    std::vector<Reading> m_readings;
    QHash<QString, QObject *> m_objects;
    mcu::McuService m_unlinkedService;
    mcu::McuRadioInterface m_unlinkedRadio;
    McuVechicleBridge m_unlinkedBridge;
    McuManager m_unlinkedManager{nullptr};
    std::unique_ptr<mcu::McuService> m_service;
    std::unique_ptr<McuManager> m_manager;
    std::vector<std::unique_ptr<substitute::SignalTap>> m_taps;
};

/// The operations that scripts can call: those of the simulator's table, and the bridge's.
const QVector<mcusim::Operation> &scriptOperations();

/// The parts of a text between separators that stand in no quotes and no brackets, trimmed.
QStringList splitOutside(const QString &text, const QString &separator);

} // namespace testkit
