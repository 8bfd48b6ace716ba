// What scripts can call beyond the operations of the simulator's table: what takes or gives more
// than plain values, and the bridge.
#include "mcuservice.h"
#include "mcuvechiclebridge.h"
#include "operationtable.h"
#include "stage.h"

#include <array>

using mcu::McuService;
using mcusim::Operation;

namespace testkit {

namespace {

QVariant notifyAutoTestPackage(QObject *service, const QVariantList &arguments)
{
    QByteArray data = arguments[1].toByteArray();
    static_cast<McuService *>(service)->notifyAutoTestPackage(arguments[0].toInt(), data.data());
    return {};
}

QVariant setupInfo(QObject *service, const QVariantList &)
{
    const mcu::SetupInfo s = static_cast<McuService *>(service)->setupInfo();
    return QVariantList{
        s.bt_input_level,  s.timer_onoff,     s.beep_onoff,  s.camera_onoff,   s.steering_control,
        s.extra_bass,      s.eq_type,         s.eq1_level,   s.eq2_level,      s.eq3_level,
        s.eq4_level,       s.eq5_level,       s.eq6_level,   s.eq7_level,      s.eq8_level,
        s.eq9_level,       s.eq10_level,      s.eq11_level,  s.eq12_level,     s.eq13_level,
        s.subwoofer_level, s.balance_level,   s.fader_level, s.hpf_front_freq, s.hpf_rear_freq,
        s.lpf_freq,        s.subwoofer_phase, s.dso,         s.rotary,         s.bassboost};
}

QVariant setupInfo1(QObject *service, const QVariantList &)
{
    const mcu::SetupInfo1 s = static_cast<McuService *>(service)->setupInfo1();
    return QVariantList{
        s.main_volume,         s.bt_ring_volume,  s.bt_talking_volume,    s.navi_volume,
        s.voice_volume,        s.ta_volume,       s.radio_input_gain,     s.usb_input_gain,
        s.bt_audio_input_gain, s.aux_input_gain,  s.carplay_input_gain,   s.android_auto_input_gain,
        s.loud_status,         s.rear_view_delay, s.poweroff_delay_onoff, s.steer_state,
        s.internal_amp_state,  s.break_volume,    s.idl_chime_vol,        s.ti_vol,
        s.idl_warn_vol,        s.idl_info_vol,    s.idl_reco_vol,         s.bt_siri_vol};
}

QVector<Operation> bridgeOperations()
{
    using Object = McuVechicleBridge;
    return {CALL(headlight, ""),
            CALL(parking, ""),
            CALL(reverse, ""),
            CALL(turnlight, ""),
            CALL(carSpeed, ""),
            CALL(wheelAngle, ""),
            CALL(doorState, ""),
            CALL(notifyHeadlightUpdate, "onoff, from"),
            CALL(notifyParkingUpdate, "onoff, from"),
            CALL(notifyReverseUpdate, "onoff, from"),
            CALL(notifyTurnLightUpdate, "turnlight"),
            CALL(notifyCarSpeedUpdate, "kmh"),
            CALL(notifyDoorUpdate, "doorState"),
            CALL(notifySteeringAngleUpdate, "angle")};
}

QVariant radarDistance(QObject *bridge, const QVariantList &)
{
    std::array<int, 8> distances{};
    static_cast<McuVechicleBridge *>(bridge)->radarDistance(distances.data(), distances.data() + 4);
    return QVariantList(distances.begin(), distances.end());
}

} // namespace

const QVector<Operation> &scriptOperations()
{
    static const QVector<Operation> all = [] {
        QVector<Operation> table = mcusim::operations();
        table.append(mcusim::operation<0>("init", &McuService::init, ""));
        table.append({"McuService.notifyAutoTestPackage",
                      {{QMetaType::Int, "len"}, {QMetaType::QByteArray, "data"}},
                      QMetaType::Void,
                      notifyAutoTestPackage});
        table.append({"McuService.setupInfo", {}, QMetaType::QVariantList, setupInfo});
        table.append({"McuService.setupInfo1", {}, QMetaType::QVariantList, setupInfo1});
        table += bridgeOperations();
        table.append(
            {"McuVechicleBridge.radarDistance", {}, QMetaType::QVariantList, radarDistance});
        return table;
    }();
    return all;
}

} // namespace testkit
