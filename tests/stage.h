// The library on the substitute platform, with everything that a script can name. Plays an input
// and records its effects in order. script.h describes how they are written.
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
    /// The thread of reports, audio statuses and inputs of the platform.
    enum class Inputs { MainThread, OtherThread };

    Stage(substitute::VirtualClock *clock, Inputs inputs);
    ~Stage();

    /// Plays an input and returns all its effects.
    QStringList play(const QString &stimulus);
    /// The types of the arguments of a call or a report.
    QVector<int> parameterTypes(const QString &stimulus) const;

private:
    /// An operation, slot or signal with its object.
    struct Callee {
        QVector<int> types;
        std::function<QVariant(const QVariantList &arguments)> call;
        bool isInput; ///< called in the thread of the inputs
    };
    /// A getter, which can be read at any time.
    struct Reading {
        QString object;
        QString name;
        std::function<QVariant()> read;
    };
    struct Effect {
        QString text;
        QVariantList readings; ///< the readings at this moment; none in another thread
    };

    void add(const QString &name, QObject *object, const QString &prefix);
    QStringList perform(const QString &stimulus);
    QStringList call(const QString &stimulus);
    QStringList readAll(const QString &object) const;
    Callee callee(const QString &stimulus) const;
    void input(const std::function<void()> &action) const;
    void note(const QString &name, const QString &text);
    QVariantList readings() const;
    /// "name=value", with the value of `readings`, for each reading that differs from `others`.
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

/// The parts of a text between the separators that are outside quotes and brackets, trimmed.
QStringList splitOutside(const QString &text, const QString &separator);

} // namespace testkit
