// The two setup blocks of the MCU as plain records. Field names are those of the report's
// parameters; units and ranges are the MCU's.
#pragma once

namespace mcu {

/// First setup block, 30 values; zeros before the first report.
struct SetupInfo {
    int bt_input_level = 0;
    int timer_onoff = 0;
    int beep_onoff = 0;
    int camera_onoff = 0;
    int steering_control = 0;
    int extra_bass = 0;
    int eq_type = 0;
    int eq1_level = 0;
    int eq2_level = 0;
    int eq3_level = 0;
    int eq4_level = 0;
    int eq5_level = 0;
    int eq6_level = 0;
    int eq7_level = 0;
    int eq8_level = 0;
    int eq9_level = 0;
    int eq10_level = 0;
    int eq11_level = 0;
    int eq12_level = 0;
    int eq13_level = 0;
    int subwoofer_level = 0;
    int balance_level = 0;
    int fader_level = 0;
    int hpf_front_freq = 0;
    int hpf_rear_freq = 0;
    int lpf_freq = 0;
    int subwoofer_phase = 0;
    int dso = 0;
    int rotary = 0;
    int bassboost = 0;
};

/// Second setup block, 24 values; zeros before the first report.
struct SetupInfo1 {
    int main_volume = 0;
    int bt_ring_volume = 0;
    int bt_talking_volume = 0;
    int navi_volume = 0;
    int voice_volume = 0;
    int ta_volume = 0;
    int radio_input_gain = 0;
    int usb_input_gain = 0;
    int bt_audio_input_gain = 0;
    int aux_input_gain = 0;
    int carplay_input_gain = 0;
    int android_auto_input_gain = 0;
    int loud_status = 0;
    int rear_view_delay = 0;
    int poweroff_delay_onoff = 0;
    int steer_state = 0;
    int internal_amp_state = 0;
    int break_volume = 0;
    int idl_chime_vol = 0;
    int ti_vol = 0;
    int idl_warn_vol = 0;
    int idl_info_vol = 0;
    int idl_reco_vol = 0;
    int bt_siri_vol = 0;
};

} // namespace mcu
