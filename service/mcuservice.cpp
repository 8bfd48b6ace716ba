// Life cycle of the facade and its connections to the link: which link signal is connected to which
// signal of the facade (a relay) or slot (which stores it first).
#include "mcuservice.h"

#include "logline_p.h"
#include "mcuradiointerface.h"
#include "mcuservice_p.h"

#include "mcusrv.h"

#include <QObject>

#include <array>
#include <cstring>
#include <string_view>

namespace mcu {

namespace {

/// The characters that SIGNAL() and SLOT() put before a method.
enum Kind : char { Relay = '0' + QSIGNAL_CODE, Slot = '0' + QSLOT_CODE };

/// A connection from a signal of the link to a signal (a relay) or slot of the facade with the same
/// arguments.
struct Wire {
    std::string_view linkSignal;
    Kind kind;
    std::string_view target;
    std::string_view arguments;
};

/// The arguments of a method with up to thirty numbers.
constexpr std::string_view ints(std::size_t count)
{
    constexpr std::string_view thirty = "int,int,int,int,int,int,int,int,int,int,"
                                        "int,int,int,int,int,int,int,int,int,int,"
                                        "int,int,int,int,int,int,int,int,int,int,";
    return thirty.substr(0, 4 * count - 1);
}

constexpr Wire wiring[]{
    {"shallowSleepSgl", Relay, "shallowSleep", ""},
    {"mcuVersionSgl", Slot, "onMcuVersion", "QString,QString"},
    {"mcuNeedRenewSgl", Relay, "mcuNeedRenew", ""},
    {"factoryResetSgl", Relay, "reset", ""},
    {"ampOverloadStuChangedSgl", Relay, "ampOverloadStuChanged", ints(1)},
    {"selTrackNumSgl", Relay, "selTrackNum", ints(1)},
    {"eqTypeChangedSgl", Relay, "eqTypeChanged", ints(1)},
    {"sourceChangedSgl", Relay, "sourceChanged", ints(1)},
    {"systemSnidChanged", Slot, "onSystemSnidChanged", "QString"},
    {"wheelStudyStateSgl", Relay, "wheelStudyState", ints(2)},
    {"wheelStudyKeysSgl", Relay, "wheelStudyKeys", "QString"},
    {"requestActionSgl", Relay, "requestAction", ints(1)},
    {"sysBootStateSgl", Relay, "sysBootState", ints(1)},
    {"radioStatusChangedSgl", Relay, "radioStatusChanged", ints(1)},
    {"radioCurrChInfoChangedSgl", Relay, "radioCurrChInfoChanged", ints(3)},
    {"radioScanChInfoChangedSgl", Relay, "radioScanChInfoChanged", ints(3)},
    {"datetimeInfoSgl", Slot, "onDatetimeSync", ints(6)},
    {"taillineStateSgl", Slot, "onTaillineState", ints(5)},
    {"requestAppVerSgl", Slot, "onRequestAppVer", ints(1)},
    {"setupInfo1StateSgl", Slot, "onSetupInfo1State", ints(24)},
    {"setupInfoStateSgl", Slot, "onSetupInfoState", ints(30)},
    {"usbPowerStatusSgl", Slot, "onUsbPowerStatus", ints(1)},
    {"keyEventSgl", Slot, "onKeyEvent", ints(2)},
    {"syncDestCodeSgl", Slot, "onSetDest", ints(2)},
    {"reportAcChangedSgl", Slot, "onReportAcChanged", ints(15)},
    {"reportAVMChangedSgl", Slot, "onReportAVMChanged", ints(6)},
    {"reportVehicleSpeedChangedSgl", Slot, "onReportVehicleSpeedChanged", ints(4)},
    {"reportSteeringAngleChangedSgl", Slot, "onReportSteeringAngleChanged", ints(4)},
    {"reportFeatureCodeChangedSgl", Slot, "onReportFeatureCodeChanged", ints(5)},
    {"reportFeatureVelroCodeChangedSgl", Slot, "onReportFeatureVelroCodeChanged", "QByteArray"},
    {"reportHuChangedSgl", Slot, "onReportHuChanged", ints(12)},
    {"reportAmbChangedSgl", Slot, "onReportAmbChanged", ints(6)},
    {"reportPdcChangedSgl", Slot, "onReportPdcChanged", ints(11)},
    {"reportTpmsChangedSgl", Slot, "onReportTpmsChanged", ints(18)},
    {"reportVehicleBodyChangedSgl", Slot, "onReportVehicleBodyChanged", ints(8)},
    {"reportMeterSettingChangedSgl", Slot, "onReportMeterSettingChanged", ints(8)},
    {"reportVehicleFaultChangedSgl", Slot, "onReportVehicleFaultChanged", ints(8)},
    {"ampStatusChangedSgl", Slot, "onAmpStatusChanged", ints(9)},
    {"avmCalibrationCmdChangedSgl", Slot, "onAvmCalibrationCmdChanged", ints(4)},
    {"setAmpEditionSgl", Slot, "onSetAmpEdition", "QString,QString"},
    {"setEcuEditionSgl", Slot, "onsetEcuEdition", "QString,QString"},
    {"reportTruckTpmsLearnChangedSgl", Slot, "onReportTruckTpmsLearnChanged", ints(11)},
    {"reportTruckDmsChangedSgl", Slot, "onReportTruckDmsChanged", ints(7)},
    {"reportTruckRsr1ChangedSgl", Slot, "onReportTruckRsr1Changed", ints(11)},
    {"reportTruckSecurityChangedSgl", Slot, "onReportTruckSecurityChanged", ints(15)},
    {"reportTruckVehicleHealthChangedSgl", Slot, "onReportTruckVehicleHealthChanged", ints(13)},
    {"reportTruckRpasChangedSgl", Slot, "onReportTruckRpasChanged", ints(11)},
    {"reportTruckTpmsThresholdChangedSgl", Slot, "onReportTruckTpmsThresholdChanged", ints(17)},
    {"reportTruckTpmsCtiChangedSgl", Slot, "onReportTruckTpmsCtiChanged", ints(17)},
    {"reportDtcFlagChangedSgl", Slot, "onReportDtcFlagChanged", ints(4)},
    {"reportTruckTpmsTemperatureChangedSgl", Slot, "onReportTruckTpmsTemperatureChanged", ints(17)},
    {"reportTruckTpmsPressureChangedSgl", Slot, "onReportTruckTpmsPressureChanged", ints(17)},
    {"reportTruckVehicleAlertsChangedSgl", Slot, "onReportTruckVehicleAlertsChanged", ints(7)},
    {"reportTruckPerformanceParametersChangedSgl", Slot,
     "onReportTruckPerformanceParametersChanged", ints(14)},
    // Kept: the link declares this one signal without "Sgl".
    {"reportTruckVehicleParametersChanged", Slot, "onReportTruckVehicleParametersChanged",
     ints(12)},
    {"audioVolumeSgl", Slot, "onAudioVolume", ints(3)},
    {"volumeTurnSgl", Slot, "onVolumeTurn", ints(1)},
    {"tunerWorkStatusSgl", Slot, "onDabWorkStatus", ints(1)},
    {"autoTestPkgChanged", Slot, "onAutoTestPkgChanged", "QByteArray"},
    {"autoTestStatusChanged", Slot, "onAutoTestStatusChanged", ints(1)},
    {"serialNumberChanged", Slot, "onSerialNumberChanged", "QString"},
    {"stwAdcStatusChanged", Slot, "onStwAdcStatusChanged", ""},
    {"stwAdcValue", Slot, "onStwAdcValueChanged", ints(1)},
    {"stwCarTypeChanged", Slot, "onStwCarTypeChanged", ints(1)},
    {"gpsAntennaChanged", Slot, "onGpsAntennaChanged", ints(1)},
    {"dabAntennaChanged", Slot, "onDabAntennaChanged", ints(1)},
};

/// Calls write(char) for the text of each connection's signal and target, one after the other: as
/// SIGNAL() and SLOT() write them, with a zero at the end.
template <typename Write>
constexpr void writeWiring(Write write)
{
    const auto writeMethod = [&](char kind, std::string_view name, std::string_view arguments) {
        write(kind);
        for (const char character : name)
            write(character);
        write('(');
        for (const char character : arguments)
            write(character);
        write(')');
        write('\0');
    };
    for (const Wire &wire : wiring) {
        writeMethod(Relay, wire.linkSignal, wire.arguments);
        writeMethod(wire.kind, wire.target, wire.arguments);
    }
}

/// The texts of all connections. The compiler writes them, because a start should cost no more than
/// the connections do.
constexpr auto wiringTexts = [] {
    constexpr std::size_t size = [] {
        std::size_t count = 0;
        writeWiring([&](char) { ++count; });
        return count;
    }();
    std::array<char, size> texts{};
    std::size_t written = 0;
    writeWiring([&](char character) { texts[written++] = character; });
    return texts;
}();

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
        LogLine(QtDebugMsg, {__FILE__, __LINE__, "void mcu::McuService::init()"});
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
    const char *text = wiringTexts.data();
    while (text != wiringTexts.data() + wiringTexts.size()) {
        const char *signal = text;
        const char *target = signal + std::strlen(signal) + 1;
        text = target + std::strlen(target) + 1;
        connect(m_link, signal, this, target);
    }
}

} // namespace mcu
