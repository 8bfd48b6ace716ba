// The facade as an object: what its meta-object offers, what it is before init(), and how init()
// wires it to the link.
#include "connectedfacade.h"

#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>

using testkit::ConnectedFacade;
using testkit::show;
using testkit::words;

namespace {

QStringList connectionSteps; ///< what init() did, in order

/// The wiring in its order: a signal of the link, the facade's signal (=>) or slot (->) that it
/// reaches, and all that comes of it when its arguments are 1, 2, 3 ... (a relay carries them on).
/// %8 and %32 stand for the arguments as a record of bytes or of 32-bit fields.
constexpr char wiringText[] = R"(
shallowSleepSgl => shallowSleep
mcuVersionSgl -> onMcuVersion
mcuNeedRenewSgl => mcuNeedRenew
factoryResetSgl => reset
ampOverloadStuChangedSgl => ampOverloadStuChanged
selTrackNumSgl => selTrackNum
eqTypeChangedSgl => eqTypeChanged
sourceChangedSgl => sourceChanged
systemSnidChanged -> onSystemSnidChanged snidChanged("1")
wheelStudyStateSgl => wheelStudyState
wheelStudyKeysSgl => wheelStudyKeys
requestActionSgl => requestAction
sysBootStateSgl => sysBootState
radioStatusChangedSgl => radioStatusChanged
radioCurrChInfoChangedSgl => radioCurrChInfoChanged
radioScanChInfoChangedSgl => radioScanChInfoChanged
datetimeInfoSgl -> onDatetimeSync DateTimeManager.setDateTime(1,2,3,4,5,6,false) McuUpdateDateTime()
taillineStateSgl -> onTaillineState parkingChanged(1) reverseChanged(2) headlightChanged(3) muteLineStateChanged(4) dspStateChanged(5) bridge.reverseChanged(true,0)
requestAppVerSgl -> onRequestAppVer requestBtAddress()
setupInfo1StateSgl -> onSetupInfo1State syncSetupInfo1()
setupInfoStateSgl -> onSetupInfoState syncSetupInfo()
usbPowerStatusSgl -> onUsbPowerStatus usbPowerStatus(1)
keyEventSgl -> onKeyEvent keyEvent(1,2) keyReleased(1)
syncDestCodeSgl -> onSetDest syncDestCode(1)
reportAcChangedSgl -> onReportAcChanged syncACInforUpdate(%8)
reportAVMChangedSgl -> onReportAVMChanged reverseChanged(2) syncAVMInforUpdate(%8)
reportVehicleSpeedChangedSgl -> onReportVehicleSpeedChanged bridge.carSpeedChanged(1) syncVehicleSpeedInforUpdate(%32) syncSpeedUpdate(1)
reportSteeringAngleChangedSgl -> onReportSteeringAngleChanged syncSteeringAngleInforUpdate(%32) bridge.steeringAngleChanged(0)
reportFeatureCodeChangedSgl -> onReportFeatureCodeChanged syncFeatureCodeInforUpdate(%8)
reportFeatureVelroCodeChangedSgl -> onReportFeatureVelroCodeChanged syncFeatureCodeInforUpdate(0x31)
reportHuChangedSgl -> onReportHuChanged syncHuInforUpdate(%8)
reportAmbChangedSgl -> onReportAmbChanged syncAmbInforUpdate(%8)
reportPdcChangedSgl -> onReportPdcChanged syncPdcInforUpdate(%8) bridge.radarDistanceChanged()
reportTpmsChangedSgl -> onReportTpmsChanged syncTpmsInforUpdate(%8)
reportVehicleBodyChangedSgl -> onReportVehicleBodyChanged bridge.turnlightChanged(1) bridge.doorChanged(2) syncVehicleBodyInforUpdate(%8)
reportMeterSettingChangedSgl -> onReportMeterSettingChanged syncMeterSettingInforUpdate(%8)
reportVehicleFaultChangedSgl -> onReportVehicleFaultChanged syncVehicleFaultInforUpdate(%8)
ampStatusChangedSgl -> onAmpStatusChanged syncAmpStatusUpdate(%8)
avmCalibrationCmdChangedSgl -> onAvmCalibrationCmdChanged syncAvmCalibrationCmdUpdate(%8)
setAmpEditionSgl -> onSetAmpEdition
setEcuEditionSgl -> onsetEcuEdition syncEcuEdition()
reportTruckTpmsLearnChangedSgl -> onReportTruckTpmsLearnChanged syncTruckTpmsLearnInforUpdate(%8)
reportTruckDmsChangedSgl -> onReportTruckDmsChanged syncTruckDmsInforUpdate(%8)
reportTruckRsr1ChangedSgl -> onReportTruckRsr1Changed syncTruckRsr1InforUpdate(%8)
reportTruckSecurityChangedSgl -> onReportTruckSecurityChanged syncTruckSecurityInforUpdate(%8)
reportTruckVehicleHealthChangedSgl -> onReportTruckVehicleHealthChanged syncTruckVehicleHealthInforUpdate(0x010002030405060708090a0b0c0d)
reportTruckRpasChangedSgl -> onReportTruckRpasChanged syncTruckRpasInforUpdate(%8)
reportTruckTpmsThresholdChangedSgl -> onReportTruckTpmsThresholdChanged syncTruckTpmsThresholdUpdate(%8)
reportTruckTpmsCtiChangedSgl -> onReportTruckTpmsCtiChanged syncTruckTpmsCtiInforUpdate(%8)
reportDtcFlagChangedSgl -> onReportDtcFlagChanged syncDtcFlagInforUpdate(%32)
reportTruckTpmsTemperatureChangedSgl -> onReportTruckTpmsTemperatureChanged syncTruckTpmsTemperatureUpdate(0x0100020003000400050006000700080009000a000b000c000d000e000f0010001100)
reportTruckTpmsPressureChangedSgl -> onReportTruckTpmsPressureChanged syncTruckTpmsPressureUpdate(%8)
reportTruckVehicleAlertsChangedSgl -> onReportTruckVehicleAlertsChanged syncTruckVehicleAlertsInforUpdate(%8)
reportTruckPerformanceParametersChangedSgl -> onReportTruckPerformanceParametersChanged syncTruckPerformanceParametersInforUpdate(0x01000000020000000300040506000700080009000a0b0c000d000e00)
reportTruckVehicleParametersChanged -> onReportTruckVehicleParametersChanged syncTruckVehicleParametersInforUpdate(0x010002000300040005000600070008090a0b0c00)
audioVolumeSgl -> onAudioVolume audioVolumeChanged(1,2,3) audioVolumeChanged(true,2,3)
volumeTurnSgl -> onVolumeTurn volumeTurn(1)
tunerWorkStatusSgl -> onDabWorkStatus radio.tunerStateChanged(1) radioStatusChanged(1)
autoTestPkgChanged -> onAutoTestPkgChanged autoTestPkgChanged(0x31)
autoTestStatusChanged -> onAutoTestStatusChanged autoTestStatusChanged(1)
serialNumberChanged -> onSerialNumberChanged serialNumChanged("1")
stwAdcStatusChanged -> onStwAdcStatusChanged stwAdcStatusChanged()
stwAdcValue -> onStwAdcValueChanged stwAdcValueChanged(1)
stwCarTypeChanged -> onStwCarTypeChanged
gpsAntennaChanged -> onGpsAntennaChanged gpsAntennaChanged(1)
dabAntennaChanged -> onDabAntennaChanged dabAntennaChanged(1)
)";
const QStringList wiring = QString(wiringText).split('\n', Qt::SkipEmptyParts);

/// The numbers 1 to count as a record of fields that wide, as show() shows it.
QString countedRecord(int count, int width)
{
    QByteArray image(count * width, 0);
    for (int number = 1; number <= count; ++number)
        image[(number - 1) * width] = char(number);
    return show(image);
}

} // namespace

// The linker leads every connection in text form that is made here to the second of these, and the
// first to Qt (see the CMake file).
QMetaObject::Connection connectByQt(
    const QObject *, const char *, const QObject *, const char *,
    Qt::ConnectionType) asm("__real__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE");
QMetaObject::Connection connectNoted(
    const QObject *, const char *, const QObject *, const char *,
    Qt::ConnectionType) asm("__wrap__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE");

QMetaObject::Connection connectNoted(const QObject *sender, const char *signal,
                                     const QObject *receiver, const char *member,
                                     Qt::ConnectionType type)
{
    connectionSteps.append(QString("%1 %2 > %3 %4%5")
                               .arg(sender->metaObject()->className(), signal,
                                    receiver->metaObject()->className(), member,
                                    type == Qt::AutoConnection ? "" : " not automatic"));
    return connectByQt(sender, signal, receiver, member, type);
}

class tst_Facade : public QObject {
    Q_OBJECT

public:
    explicit tst_Facade(substitute::VirtualClock *clock) : m_clock(clock) {}

private:
    substitute::VirtualClock *m_clock;

private Q_SLOTS:
    void hasItsSignalsAndSlots()
    {
        QFile file(FACADE_METHODS);
        QVERIFY(file.open(QFile::ReadOnly));
        const QList<QByteArray> wanted = file.readAll().trimmed().split('\n');
        const QMetaObject &facade = mcu::McuService::staticMetaObject;
        QCOMPARE(facade.methodCount() - facade.methodOffset(), wanted.size());
        for (int i = 0; i < wanted.size(); ++i) {
            const QMetaMethod method = facade.method(facade.methodOffset() + i);
            QCOMPARE(substitute::describe(method).toLatin1(), wanted[i]);
            QCOMPARE(method.methodType(), i < 88 ? QMetaMethod::Signal : QMetaMethod::Slot);
            QCOMPARE(method.access(), QMetaMethod::Public);
            QCOMPARE(method.typeName(), "void");
        }
    }

    void answersBeforeInit()
    {
        substitute::link::reset();
        substitute::link::setAnswer("getVersion1", "asked too early");
        mcu::McuService s;
        testkit::Emissions emissions(&s);
        QVariantList zeros, falses, texts;
        zeros << s.snIdChecksum() << s.startUpState() << s.parkingState() << s.reverseState()
              << s.headlightState() << s.muteLineState() << s.dspState() << s.getDemo()
              << s.autoTestStatus() << s.getVehicleSpeed() << s.getAmpStatus()
              << s.getFeatureDataStatus() << s.getCANDataSignal();
        falses << s.isNeedRenew() << s.isReverseFromMcuSrv() << s.isMuteFromMcuSrv() << s.isAttOn()
               << s.isUsbOverCurrent() << s.isDateTimeReady() << s.getBttestState()
               << s.radioIsIdle() << s.gpsAntennaIsConnected() << s.gpsAntennaIsAbnormal()
               << s.dabAntennaIsConnected() << s.dabAntennaIsAbnormal() << s.getCANDataReady();
        texts << s.test_version() << s.user_version() << s.SOC_version() << s.HARD_version()
              << s.serialNumber() << s.snIdName() << s.getAmpSwEdition() << s.getAmpHwEdition()
              << s.getEcuSwEdition() << s.getEcuHwEdition() << s.autoTestPackage()
              << s.getReportFeatureCodeChanged() << s.getVelroReportFeatureCodeChanged();
        QCOMPARE(zeros.count(0), 13);
        QCOMPARE(falses.count(false), 13);
        QCOMPARE(texts.count(QString()), 13);
        QCOMPARE(s.getDest(), 256);
        QCOMPARE(s.sxmExist(), 1);
        QCOMPARE(s.getNeedSyncTimeState(), true);

        s.sendVehicleSpeed(1);
        s.onKeyEvent(1, 0);
        QCOMPARE(emissions.take(), words("keyEvent(1,0) keyPressed(1)"));
        QVERIFY(substitute::link::log().calls().isEmpty());
    }

    void bindsInOrder()
    {
        QStringList wanted{"link init()", "mcu::McuRadioInterface"};
        for (const QString &line : wiring) {
            const QStringList row = line.split(' ');
            const QString signal = ConnectedFacade::linkSignal(row[0].toLatin1()).methodSignature();
            wanted.append(
                QString("mcu::McuSrv 2%1 > mcu::McuService %2%3%4")
                    .arg(signal, row[1] == "=>" ? "2" : "1", row[2], signal.mid(row[0].size())));
        }
        wanted.append("QTimer 2timeout() > mcu::McuService 1onCheckCanbusTmrDelay()");

        connectionSteps.clear();
        substitute::link::log().setListener([](const substitute::Call &call) {
            connectionSteps.append("link " + show(call.name, call.arguments));
        });
        mcu::McuService service;
        QVERIFY(service.init());
        substitute::link::log().setListener(nullptr);
        QVERIFY(connectionSteps.filter(", ").isEmpty()); // blanks would cost time

        // The radio interface's own connections count as one step.
        connectionSteps.replaceInStrings(QRegularExpression(".*(mcu::McuRadioInterface).*"), "\\1");
        connectionSteps.removeDuplicates();
        QCOMPARE(connectionSteps.size(), 69);
        QCOMPARE(connectionSteps, wanted);
    }

    void linkSignalHasItsEffectAlone()
    {
        for (const QMetaMethod &signal : substitute::link::signalMethods()) {
            const QVariantList arguments = testkit::countedArguments(signal);
            const QStringList row =
                wiring.filter(QRegularExpression('^' + signal.name() + ' ')).value(0).split(' ');
            QStringList effect = row.mid(3);
            effect.replaceInStrings("%8", countedRecord(arguments.size(), 1));
            effect.replaceInStrings("%32", countedRecord(arguments.size(), 4));
            if (row.value(1) == "=>")
                effect = QStringList{show(row[2], arguments)};
            ConnectedFacade facade;
            QStringList seen = facade.report(signal.name(), arguments);
            if (effect.isEmpty()) // what the radio interface takes is no business of the facade's
                seen = seen.filter(QRegularExpression("^(?!radio\\.)"));
            QCOMPARE(signal.name() + ' ' + seen.join(' '), signal.name() + ' ' + effect.join(' '));
        }
    }

    void givesRadioTheSameLink()
    {
        ConnectedFacade facade;
        mcu::McuRadioInterface::instance()->tune(87500);
        facade.service.sendVehicleSpeed(30);
        QCOMPARE(facade.trace.take(), words("link.tune(87500) link.sendVehicleSpeed(30)"));
    }

    void deliversTwiceAfterSecondInit()
    {
        ConnectedFacade facade;
        QVERIFY(facade.service.init());
        QCOMPARE(facade.trace.take(), words("link.init()"));
        QCOMPARE(facade.report("factoryResetSgl()"), words("reset() reset()"));
        // The timer checks twice each time, so a hold of six checks ends after three intervals.
        const QStringList emission = words("syncVehicleFaultInforUpdate(0x0101010101010101)");
        QCOMPARE(facade.reportAny("reportVehicleFaultChangedSgl"), emission);
        m_clock->advance(149);
        QCOMPARE(facade.trace.take(), QStringList());
        m_clock->advance(1);
        QCOMPARE(facade.trace.take(), emission);
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Facade>(argc, argv); }
#include "tst_facade.moc"
