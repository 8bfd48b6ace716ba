// A facade bound to the substitute link, and all that comes of what the link reports to it.
#pragma once

#include "linksubstitute.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcuvechiclebridge.h"
#include "platformsubstitute.h"
#include "testkit.h"

namespace testkit {

/// What an application and the platform see of a facade of its own: the facade's emissions by their
/// names, the bridge's and the radio interface's as "bridge." and "radio.", commands to the link as
/// "link.", and calls of the platform services by the names of their log.
class ConnectedFacade {
public:
    ConnectedFacade()
    {
        substitute::link::reset();
        substitute::platform::reset();
        forgetVehicle();
        service.init();
        substitute::link::log().clear();
        trace.listen(&service);
        trace.listen(McuVechicleBridge::instance(), QStringLiteral("bridge."));
        trace.listen(mcu::McuRadioInterface::instance(), QStringLiteral("radio."));
        trace.listen(substitute::link::log(), QStringLiteral("link."));
        trace.listen(substitute::platform::log());
    }

    /// What comes at once of a signal of the link.
    QStringList report(const char *signal, const QVariantList &arguments)
    {
        QString error;
        if (!substitute::link::inject(QString::fromLatin1(signal), arguments, &error))
            qFatal("%s", qPrintable(error));
        return trace.take();
    }

    /// The same for a text like keyEventSgl(7,0).
    QStringList report(const QString &call)
    {
        const QMetaMethod signal = linkSignal(call.section('(', 0, 0).toLatin1());
        QVariantList arguments;
        for (const QString &text : call.section('(', 1).chopped(1).split(',', Qt::SkipEmptyParts)) {
            arguments.append(text);
            arguments.last().convert(signal.parameterType(arguments.size() - 1));
        }
        return report(signal.name(), arguments);
    }
    /// A report that gives every parameter the value 1.
    QStringList reportAny(const QByteArray &signal)
    {
        const int count = linkSignal(signal).parameterCount();
        return report(signal, QVector<QVariant>(count, 1).toList());
    }
    /// The interface of a report.
    static QMetaMethod linkSignal(const QByteArray &name)
    {
        const QList<QMetaMethod> all = substitute::link::signalMethods();
        const auto isNamed = [&](const QMetaMethod &method) { return method.name() == name; };
        const auto found = std::find_if(all.begin(), all.end(), isNamed);
        return found == all.end() ? QMetaMethod() : *found;
    }

    mcu::McuService service;
    Trace trace;

private:
    /// The bridge is one for the process: puts it back to its values at start.
    static void forgetVehicle()
    {
        McuVechicleBridge *bridge = McuVechicleBridge::instance();
        bridge->notifyHeadlightUpdate(false, 0);
        bridge->notifyParkingUpdate(false, 0);
        bridge->notifyReverseUpdate(false, 0);
        bridge->notifyTurnLightUpdate(0);
        bridge->notifyCarSpeedUpdate(0);
        bridge->notifyDoorUpdate(0);
        bridge->notifySteeringAngleUpdate(7380);
    }
};

/// The parts of a text between blanks, as a list to compare with.
inline QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Plays a script to a facade of its own and verifies what comes of each line, in full:
///
///     keyEventSgl(7,0) keyEvent(7,0) keyPressed(7) -- what is logged
///
/// Lines without "--" leave the log open.
inline void verifyReports(const char *script)
{
    ConnectedFacade facade;
    LogCapture capture;
    for (const QString &line : QString::fromUtf8(script).split('\n', Qt::SkipEmptyParts)) {
        const int log = line.indexOf(" --");
        const QStringList row = line.left(log).split(' ', Qt::SkipEmptyParts);
        QCOMPARE(row[0] + ": " + facade.report(row[0]).join(' '),
                 row[0] + ": " + row.mid(1).join(' '));
        const QString logged = capture.takeTexts().join('\n');
        if (log >= 0)
            QCOMPARE(logged, line.mid(log + 4));
    }
}

} // namespace testkit
