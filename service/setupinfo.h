/// \file
/// The two setup blocks of the MCU as plain records.
#pragma once

namespace mcu {

/// First setup block, as McuService::setupInfo() returns it; all zeros before the first report.
///
/// Units, ranges and unexplained abbreviations (DSO) are the MCU's.
struct SetupInfo {
    int bt_input_level = 0;   ///< Bluetooth input level
    int timer_onoff = 0;      ///< timer, on or off
    int beep_onoff = 0;       ///< beep, on or off
    int camera_onoff = 0;     ///< camera, on or off
    int steering_control = 0; ///< steering-wheel control
    int extra_bass = 0;       ///< extra bass
    int eq_type = 0;          ///< equaliser type
    int eq1_level = 0;        ///< level of equaliser band 1
    int eq2_level = 0;        ///< level of equaliser band 2
    int eq3_level = 0;        ///< level of equaliser band 3
    int eq4_level = 0;        ///< level of equaliser band 4
    int eq5_level = 0;        ///< level of equaliser band 5
    int eq6_level = 0;        ///< level of equaliser band 6
    int eq7_level = 0;        ///< level of equaliser band 7
    int eq8_level = 0;        ///< level of equaliser band 8
    int eq9_level = 0;        ///< level of equaliser band 9
    int eq10_level = 0;       ///< level of equaliser band 10
    int eq11_level = 0;       ///< level of equaliser band 11
    int eq12_level = 0;       ///< level of equaliser band 12
    int eq13_level = 0;       ///< level of equaliser band 13
    int subwoofer_level = 0;  ///< level of the subwoofer
    int balance_level = 0;    ///< balance of left and right
    int fader_level = 0;      ///< fader of front and rear
    int hpf_front_freq = 0;   ///< corner frequency of the front high-pass filter
    int hpf_rear_freq = 0;    ///< corner frequency of the rear high-pass filter
    int lpf_freq = 0;         ///< corner frequency of the low-pass filter
    int subwoofer_phase = 0;  ///< phase of the subwoofer
    int dso = 0;              ///< DSO setting
    int rotary = 0;           ///< rotary knob setting
    int bassboost = 0;        ///< bass boost
};

/// Second setup block, as McuService::setupInfo1() returns it; all zeros before the first report.
///
/// Units, ranges and unexplained names (break, IDL, TI) are the MCU's.
struct SetupInfo1 {
    int main_volume = 0;             ///< main volume
    int bt_ring_volume = 0;          ///< volume of the Bluetooth ring tone
    int bt_talking_volume = 0;       ///< volume of Bluetooth calls
    int navi_volume = 0;             ///< volume of navigation
    int voice_volume = 0;            ///< voice volume
    int ta_volume = 0;               ///< volume of traffic announcements
    int radio_input_gain = 0;        ///< input gain of the radio
    int usb_input_gain = 0;          ///< input gain of USB
    int bt_audio_input_gain = 0;     ///< input gain of Bluetooth audio
    int aux_input_gain = 0;          ///< input gain of the AUX input
    int carplay_input_gain = 0;      ///< input gain of CarPlay
    int android_auto_input_gain = 0; ///< input gain of Android Auto
    int loud_status = 0;             ///< status of the loudness
    int rear_view_delay = 0;         ///< delay of the rear view
    int poweroff_delay_onoff = 0;    ///< delayed power-off, on or off
    int steer_state = 0;             ///< steering-wheel state
    int internal_amp_state = 0;      ///< state of the built-in amplifier
    int break_volume = 0;            ///< break volume
    int idl_chime_vol = 0;           ///< volume of the IDL chime
    int ti_vol = 0;                  ///< TI volume
    int idl_warn_vol = 0;            ///< volume of the IDL warning
    int idl_info_vol = 0;            ///< volume of IDL information
    int idl_reco_vol = 0;            ///< volume of IDL reco
    int bt_siri_vol = 0;             ///< volume of Siri over Bluetooth
};

} // namespace mcu
