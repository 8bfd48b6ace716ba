// Status of DAB, tuner, antennas and the factory test on its way through the facade.
#include "connectedfacade.h"

#include <climits>

using testkit::ConnectedFacade;
using testkit::show;
using testkit::words;

namespace {

/// Bits of the antenna states: GPS connected, GPS abnormal, DAB connected, DAB abnormal.
QString antennas(mcu::McuService &s)
{
    return show("", {int(s.gpsAntennaIsConnected()), int(s.gpsAntennaIsAbnormal()),
                     int(s.dabAntennaIsConnected()), int(s.dabAntennaIsAbnormal())});
}

} // namespace

class tst_Notifications : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void broadcastsDab()
    {
        ConnectedFacade facade;
        testkit::LogCapture log;
        facade.service.notifyDabAntStatus(3);
        facade.service.notifyDabToFmLinkStatus(4);
        facade.service.notifyDabSelectFreq(-5);
        facade.service.notifyDabSelectService(INT_MAX);
        facade.service.notifyDabMcuRequest(6, 7);
        QCOMPARE(facade.trace.take(),
                 words("dabAntStatusChanged(3) dabToFmLinkStatusChanged(4) dabSelectFreq(-5) "
                       "dabSelectService(2147483647) dabMcuRequestAction(6,7)"));
        QCOMPARE(log.takeTexts(), (QStringList{"3", "4", "-5", "2147483647", "6 7"}));
    }

    void tunerWorkStatusEndsWithRadioStatus1()
    {
        ConnectedFacade facade;
        for (int status : {3, INT_MIN, 1, 0}) {
            const QStringList emitted = facade.report("tunerWorkStatusSgl", {status});
            QCOMPARE(emitted.value(0), show("radio.tunerStateChanged", {status}));
            QCOMPARE(emitted.mid(1),
                     words(status == 0 ? "radioStatusChanged(0) radioStatusChanged(1)"
                                       : "radioStatusChanged(1)"));
            QCOMPARE(facade.service.radioIsIdle(), status != 0);
        }
    }

    void antennaStatesAreBits()
    {
        struct Case {
            int reported, kept;
            QString bits;
        };
        const Case cases[]{{1, 1, "1,0"},      {1, 1, "1,0"},      {2, 2, "0,1"},
                           {0x103, 3, "1,1"},  {0xfc, 252, "0,0"}, {INT_MAX, 255, "1,1"},
                           {INT_MIN, 0, "0,0"}};
        ConnectedFacade facade;
        testkit::LogCapture log;
        for (const char *antenna : {"gpsAntennaChanged", "dabAntennaChanged"}) {
            for (const Case &c : cases) { // changed or not
                const QStringList emitted = facade.report(antenna, {c.reported});
                QCOMPARE(emitted, QStringList{show(antenna, {c.kept})});
                QCOMPARE(antennas(facade.service),
                         QString(*antenna == 'g' ? "(%1,0,0)" : "(0,0,%1)").arg(c.bits));
            }
        }
        QCOMPARE(log.takeTexts(), QStringList());
    }

    void notedAntennaIsEmittedWhenItDiffers()
    {
        ConnectedFacade facade;
        mcu::McuService &service = facade.service;
        const auto after = [&] { return facade.trace.take().join(' ') + ' ' + antennas(service); };
        testkit::LogCapture log;
        service.notifyAntennaStatus(1, 3);
        QCOMPARE(after(), QString("gpsAntennaChanged(1) dabAntennaChanged(3) (1,0,1,1)"));
        service.notifyAntennaStatus(1, 3);
        QCOMPARE(after(), QString(" (1,0,1,1)"));
        service.notifyAntennaStatus(1, 2);
        QCOMPARE(after(), QString("dabAntennaChanged(2) (1,0,0,1)"));
        service.notifyAntennaStatus(255, 2);
        QCOMPARE(after(), QString("gpsAntennaChanged(255) (1,1,0,1)"));
        QCOMPARE(log.takeTexts(), (QStringList{"1 3", "1 3", "1 2", "255 2"}));
        service.setGpsAntAttach();
        QCOMPARE(after(), QString(" (1,0,0,1)"));
        for (int i = 0; i < 2; ++i) {
            service.setGpsAntShort();
            QCOMPARE(after(), QString("gpsAntennaChanged(2) (0,1,0,1)"));
        }
    }

    void factoryPackageIsKeptAndEmitted()
    {
        ConnectedFacade facade;
        mcu::McuService &service = facade.service;
        const QByteArray reported("\xff\x55\x00\x01", 4);
        QCOMPARE(facade.report("autoTestPkgChanged", {reported}),
                 words("autoTestPkgChanged(0xff550001)"));
        QCOMPARE(service.autoTestPackage(), reported);
        char data[] = {'\x7f', '\0', '\x80', '\x01'};
        for (int length : {3, 0, 3, -1, 3, INT_MIN}) {
            data[0] = '\x7f';
            service.notifyAutoTestPackage(length, data);
            data[0] = 0;
            const QByteArray kept("\x7f\x00\x80", qMax(0, length));
            QCOMPARE(facade.trace.take(), QStringList{show("autoTestPkgChanged", {kept})});
            QCOMPARE(service.autoTestPackage(), kept);
        }
    }

    void factoryStatusIsEmittedWhenItDiffers()
    {
        ConnectedFacade facade;
        for (int status : {0, 1, 2, INT_MIN, 0}) {
            const bool differs = status != facade.service.autoTestStatus();
            const QStringList emitted =
                facade.report("autoTestStatusChanged", {status}).filter("autoTestStatusChanged");
            QCOMPARE(emitted, differs ? QStringList{show("autoTestStatusChanged", {status})}
                                      : QStringList());
            QCOMPARE(facade.service.autoTestStatus(), status);
            facade.service.notifyAutoTestStatus(status);
            QCOMPARE(facade.trace.take(), QStringList());
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Notifications>(argc, argv); }
#include "tst_notifications.moc"
