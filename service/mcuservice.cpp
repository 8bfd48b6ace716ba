// Life cycle of the facade and its wiring to the link: which link signal reaches which facade
// signal (a relay) or slot (stored first).
#include "mcuservice.h"

#include "debug.h"
#include "mcuradiointerface.h"
#include "mcuservice_p.h"

#include "mcusrv.h"

#include <array>

namespace mcu {

namespace {

/// The argument list of a report with so many ints, "int,int,...", put together by the compiler. In
/// this normalised form, without blanks, a connection takes Qt's fast path.
template <std::size_t Count>
struct IntList {
    static constexpr std::size_t width = sizeof("int,") - 1;
    std::array<char, Count * width> text{};

    constexpr IntList()
    {
        constexpr char item[] = "int,";
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = item[i % width];
        text.back() = '\0';
    }
};

template <std::size_t Count>
constexpr IntList<Count> intList;

template <std::size_t Count>
constexpr const char *ints = intList<Count>.text.data();

constexpr char none[] = "";
constexpr char text[] = "QString";
constexpr char texts[] = "QString,QString";
constexpr char bytes[] = "QByteArray";

// How the moc marks signals and slots in the text form of a connection.
enum class Target : char { Relay = '0' + QSIGNAL_CODE, Slot = '0' + QSLOT_CODE };

/// A connection from the link to the facade; both ends take the same arguments.
struct Wire {
    const char *linkSignal;
    Target kind;
    const char *target;
    const char *arguments;
};

constexpr Wire wiring[]{
    {"shallowSleepSgl", Target::Relay, "shallowSleep", none},
    {"mcuVersionSgl", Target::Slot, "onMcuVersion", texts},
    {"mcuNeedRenewSgl", Target::Relay, "mcuNeedRenew", none},
    {"factoryResetSgl", Target::Relay, "reset", none},
    {"ampOverloadStuChangedSgl", Target::Relay, "ampOverloadStuChanged", ints<1>},
    {"selTrackNumSgl", Target::Relay, "selTrackNum", ints<1>},
    {"eqTypeChangedSgl", Target::Relay, "eqTypeChanged", ints<1>},
    {"sourceChangedSgl", Target::Relay, "sourceChanged", ints<1>},
    {"systemSnidChanged", Target::Slot, "onSystemSnidChanged", text},
    {"wheelStudyStateSgl", Target::Relay, "wheelStudyState", ints<2>},
    {"wheelStudyKeysSgl", Target::Relay, "wheelStudyKeys", text},
    {"requestActionSgl", Target::Relay, "requestAction", ints<1>},
    {"sysBootStateSgl", Target::Relay, "sysBootState", ints<1>},
    {"radioStatusChangedSgl", Target::Relay, "radioStatusChanged", ints<1>},
    {"radioCurrChInfoChangedSgl", Target::Relay, "radioCurrChInfoChanged", ints<3>},
    {"radioScanChInfoChangedSgl", Target::Relay, "radioScanChInfoChanged", ints<3>},
    {"datetimeInfoSgl", Target::Slot, "onDatetimeSync", ints<6>},
    {"taillineStateSgl", Target::Slot, "onTaillineState", ints<5>},
    {"requestAppVerSgl", Target::Slot, "onRequestAppVer", ints<1>},
    {"setupInfo1StateSgl", Target::Slot, "onSetupInfo1State", ints<24>},
    {"setupInfoStateSgl", Target::Slot, "onSetupInfoState", ints<30>},
    {"usbPowerStatusSgl", Target::Slot, "onUsbPowerStatus", ints<1>},
    {"keyEventSgl", Target::Slot, "onKeyEvent", ints<2>},
    {"syncDestCodeSgl", Target::Slot, "onSetDest", ints<2>},
    {"reportAcChangedSgl", Target::Slot, "onReportAcChanged", ints<15>},
    {"reportAVMChangedSgl", Target::Slot, "onReportAVMChanged", ints<6>},
    {"reportVehicleSpeedChangedSgl", Target::Slot, "onReportVehicleSpeedChanged", ints<4>},
    {"reportSteeringAngleChangedSgl", Target::Slot, "onReportSteeringAngleChanged", ints<4>},
    {"reportFeatureCodeChangedSgl", Target::Slot, "onReportFeatureCodeChanged", ints<5>},
    {"reportFeatureVelroCodeChangedSgl", Target::Slot, "onReportFeatureVelroCodeChanged", bytes},
    {"reportHuChangedSgl", Target::Slot, "onReportHuChanged", ints<12>},
    {"reportAmbChangedSgl", Target::Slot, "onReportAmbChanged", ints<6>},
    {"reportPdcChangedSgl", Target::Slot, "onReportPdcChanged", ints<11>},
    {"reportTpmsChangedSgl", Target::Slot, "onReportTpmsChanged", ints<18>},
    {"reportVehicleBodyChangedSgl", Target::Slot, "onReportVehicleBodyChanged", ints<8>},
    {"reportMeterSettingChangedSgl", Target::Slot, "onReportMeterSettingChanged", ints<8>},
    {"reportVehicleFaultChangedSgl", Target::Slot, "onReportVehicleFaultChanged", ints<8>},
    {"ampStatusChangedSgl", Target::Slot, "onAmpStatusChanged", ints<9>},
    {"avmCalibrationCmdChangedSgl", Target::Slot, "onAvmCalibrationCmdChanged", ints<4>},
    {"setAmpEditionSgl", Target::Slot, "onSetAmpEdition", texts},
    {"setEcuEditionSgl", Target::Slot, "onsetEcuEdition", texts},
    {"reportTruckTpmsLearnChangedSgl", Target::Slot, "onReportTruckTpmsLearnChanged", ints<11>},
    {"reportTruckDmsChangedSgl", Target::Slot, "onReportTruckDmsChanged", ints<7>},
    {"reportTruckRsr1ChangedSgl", Target::Slot, "onReportTruckRsr1Changed", ints<11>},
    {"reportTruckSecurityChangedSgl", Target::Slot, "onReportTruckSecurityChanged", ints<15>},
    {"reportTruckVehicleHealthChangedSgl", Target::Slot, "onReportTruckVehicleHealthChanged",
     ints<13>},
    {"reportTruckRpasChangedSgl", Target::Slot, "onReportTruckRpasChanged", ints<11>},
    {"reportTruckTpmsThresholdChangedSgl", Target::Slot, "onReportTruckTpmsThresholdChanged",
     ints<17>},
    {"reportTruckTpmsCtiChangedSgl", Target::Slot, "onReportTruckTpmsCtiChanged", ints<17>},
    {"reportDtcFlagChangedSgl", Target::Slot, "onReportDtcFlagChanged", ints<4>},
    {"reportTruckTpmsTemperatureChangedSgl", Target::Slot, "onReportTruckTpmsTemperatureChanged",
     ints<17>},
    {"reportTruckTpmsPressureChangedSgl", Target::Slot, "onReportTruckTpmsPressureChanged",
     ints<17>},
    {"reportTruckVehicleAlertsChangedSgl", Target::Slot, "onReportTruckVehicleAlertsChanged",
     ints<7>},
    {"reportTruckPerformanceParametersChangedSgl", Target::Slot,
     "onReportTruckPerformanceParametersChanged", ints<14>},
    {"reportTruckVehicleParametersChanged", Target::Slot, "onReportTruckVehicleParametersChanged",
     ints<12>},
    {"audioVolumeSgl", Target::Slot, "onAudioVolume", ints<3>},
    {"volumeTurnSgl", Target::Slot, "onVolumeTurn", ints<1>},
    {"tunerWorkStatusSgl", Target::Slot, "onDabWorkStatus", ints<1>},
    {"autoTestPkgChanged", Target::Slot, "onAutoTestPkgChanged", bytes},
    {"autoTestStatusChanged", Target::Slot, "onAutoTestStatusChanged", ints<1>},
    {"serialNumberChanged", Target::Slot, "onSerialNumberChanged", text},
    {"stwAdcStatusChanged", Target::Slot, "onStwAdcStatusChanged", none},
    {"stwAdcValue", Target::Slot, "onStwAdcValueChanged", ints<1>},
    {"stwCarTypeChanged", Target::Slot, "onStwCarTypeChanged", ints<1>},
    {"gpsAntennaChanged", Target::Slot, "onGpsAntennaChanged", ints<1>},
    {"dabAntennaChanged", Target::Slot, "onDabAntennaChanged", ints<1>},
};

QByteArray signature(Target kind, const char *name, const char *arguments)
{
    return char(kind) + QByteArray(name) + '(' + arguments + ')';
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
    // Log filters know this line by a signature without the result.
    if (isDebugLogged())
        debugLine(callSite(__FILE__, __LINE__, "void mcu::McuService::init()"));
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
    for (const Wire &wire : wiring) {
        connect(m_link, signature(Target::Relay, wire.linkSignal, wire.arguments), this,
                signature(wire.kind, wire.target, wire.arguments));
    }
}

} // namespace mcu
