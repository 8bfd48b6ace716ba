// Life cycle of the facade and its connections to the link: which link signal is connected to which
// signal of the facade (a relay) or slot (which stores it first).
#include "mcuservice.h"

#include "debug.h"
#include "mcuradiointerface.h"
#include "mcuservice_p.h"

#include "mcusrv.h"

#include <QHash>
#include <QMetaMethod>
#include <QStringBuilder>

namespace mcu {

namespace {

/// A connection from a signal of the link to a method of the facade with the same arguments: a
/// signal (a relay) or a slot. No target is overloaded.
struct Wire {
    const char *linkSignal;
    const char *target;
};

constexpr Wire wiring[]{
    {"shallowSleepSgl", "shallowSleep"},
    {"mcuVersionSgl", "onMcuVersion"},
    {"mcuNeedRenewSgl", "mcuNeedRenew"},
    {"factoryResetSgl", "reset"},
    {"ampOverloadStuChangedSgl", "ampOverloadStuChanged"},
    {"selTrackNumSgl", "selTrackNum"},
    {"eqTypeChangedSgl", "eqTypeChanged"},
    {"sourceChangedSgl", "sourceChanged"},
    {"systemSnidChanged", "onSystemSnidChanged"},
    {"wheelStudyStateSgl", "wheelStudyState"},
    {"wheelStudyKeysSgl", "wheelStudyKeys"},
    {"requestActionSgl", "requestAction"},
    {"sysBootStateSgl", "sysBootState"},
    {"radioStatusChangedSgl", "radioStatusChanged"},
    {"radioCurrChInfoChangedSgl", "radioCurrChInfoChanged"},
    {"radioScanChInfoChangedSgl", "radioScanChInfoChanged"},
    {"datetimeInfoSgl", "onDatetimeSync"},
    {"taillineStateSgl", "onTaillineState"},
    {"requestAppVerSgl", "onRequestAppVer"},
    {"setupInfo1StateSgl", "onSetupInfo1State"},
    {"setupInfoStateSgl", "onSetupInfoState"},
    {"usbPowerStatusSgl", "onUsbPowerStatus"},
    {"keyEventSgl", "onKeyEvent"},
    {"syncDestCodeSgl", "onSetDest"},
    {"reportAcChangedSgl", "onReportAcChanged"},
    {"reportAVMChangedSgl", "onReportAVMChanged"},
    {"reportVehicleSpeedChangedSgl", "onReportVehicleSpeedChanged"},
    {"reportSteeringAngleChangedSgl", "onReportSteeringAngleChanged"},
    {"reportFeatureCodeChangedSgl", "onReportFeatureCodeChanged"},
    {"reportFeatureVelroCodeChangedSgl", "onReportFeatureVelroCodeChanged"},
    {"reportHuChangedSgl", "onReportHuChanged"},
    {"reportAmbChangedSgl", "onReportAmbChanged"},
    {"reportPdcChangedSgl", "onReportPdcChanged"},
    {"reportTpmsChangedSgl", "onReportTpmsChanged"},
    {"reportVehicleBodyChangedSgl", "onReportVehicleBodyChanged"},
    {"reportMeterSettingChangedSgl", "onReportMeterSettingChanged"},
    {"reportVehicleFaultChangedSgl", "onReportVehicleFaultChanged"},
    {"ampStatusChangedSgl", "onAmpStatusChanged"},
    {"avmCalibrationCmdChangedSgl", "onAvmCalibrationCmdChanged"},
    {"setAmpEditionSgl", "onSetAmpEdition"},
    {"setEcuEditionSgl", "onsetEcuEdition"},
    {"reportTruckTpmsLearnChangedSgl", "onReportTruckTpmsLearnChanged"},
    {"reportTruckDmsChangedSgl", "onReportTruckDmsChanged"},
    {"reportTruckRsr1ChangedSgl", "onReportTruckRsr1Changed"},
    {"reportTruckSecurityChangedSgl", "onReportTruckSecurityChanged"},
    {"reportTruckVehicleHealthChangedSgl", "onReportTruckVehicleHealthChanged"},
    {"reportTruckRpasChangedSgl", "onReportTruckRpasChanged"},
    {"reportTruckTpmsThresholdChangedSgl", "onReportTruckTpmsThresholdChanged"},
    {"reportTruckTpmsCtiChangedSgl", "onReportTruckTpmsCtiChanged"},
    {"reportDtcFlagChangedSgl", "onReportDtcFlagChanged"},
    {"reportTruckTpmsTemperatureChangedSgl", "onReportTruckTpmsTemperatureChanged"},
    {"reportTruckTpmsPressureChangedSgl", "onReportTruckTpmsPressureChanged"},
    {"reportTruckVehicleAlertsChangedSgl", "onReportTruckVehicleAlertsChanged"},
    {"reportTruckPerformanceParametersChangedSgl", "onReportTruckPerformanceParametersChanged"},
    // Kept: the link declares this one signal without "Sgl".
    {"reportTruckVehicleParametersChanged", "onReportTruckVehicleParametersChanged"},
    {"audioVolumeSgl", "onAudioVolume"},
    {"volumeTurnSgl", "onVolumeTurn"},
    {"tunerWorkStatusSgl", "onDabWorkStatus"},
    {"autoTestPkgChanged", "onAutoTestPkgChanged"},
    {"autoTestStatusChanged", "onAutoTestStatusChanged"},
    {"serialNumberChanged", "onSerialNumberChanged"},
    {"stwAdcStatusChanged", "onStwAdcStatusChanged"},
    {"stwAdcValue", "onStwAdcValueChanged"},
    {"stwCarTypeChanged", "onStwCarTypeChanged"},
    {"gpsAntennaChanged", "onGpsAntennaChanged"},
    {"dabAntennaChanged", "onDabAntennaChanged"},
};

// The characters that SIGNAL() and SLOT() put before a method.
constexpr char signalCode = '0' + QSIGNAL_CODE;
constexpr char slotCode = '0' + QSLOT_CODE;

/// The parameter types of a method, "(int,int)". QMetaMethod::methodSignature() has them too, but
/// would add an eighth to the cost of init().
QByteArray argumentList(const QMetaMethod &method)
{
    QByteArray list;
    list.reserve(128);
    list += '(';
    for (int i = 0; i < method.parameterCount(); ++i) {
        if (i > 0)
            list += ',';
        list += QMetaType::typeName(method.parameterType(i));
    }
    list += ')';
    return list;
}

} // namespace

McuService *McuService::instance()
{
    static McuService service;
    return &service;
}

McuService::McuService(QObject *parent)
    : QObject(parent), m_data(std::make_unique<McuServicePrivate>())
{
    m_data->owner = this;
}

McuService::~McuService() = default;

bool McuService::init()
{
    // Kept: log filters match this line by a signature with the result type void.
    if (isDebugLogged())
        debugLine({__FILE__, __LINE__, "void mcu::McuService::init()"});
    return connectService();
}

bool McuService::connectService()
{
    m_link = McuSrv::instance();
    m_link->init();
    McuRadioInterface::instance()->setMcuSrv(m_link);
    serviceConnectedSignals();

    QTimer &timer = m_data->canCheckTimer;
    timer.setInterval(50);
    timer.setSingleShot(false);
    connect(&timer, SIGNAL(timeout()), this, SLOT(onCheckCanbusTmrDelay()));
    timer.start();
    return true;
}

void McuService::serviceConnectedSignals()
{
    QHash<QByteArray, QMetaMethod> methods;
    for (int i = staticMetaObject.methodOffset(); i < staticMetaObject.methodCount(); ++i) {
        const QMetaMethod method = staticMetaObject.method(i);
        methods.insert(method.name(), method);
    }

    for (const Wire &wire : wiring) {
        const QMetaMethod target = methods.value(wire.target);
        const bool relay = target.methodType() == QMetaMethod::Signal;
        const QByteArray arguments = argumentList(target);
        const QByteArray signal = signalCode % (wire.linkSignal % arguments);
        const QByteArray member = (relay ? signalCode : slotCode) % (wire.target % arguments);
        connect(m_link, signal, this, member);
    }
}

} // namespace mcu
