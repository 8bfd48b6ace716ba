/// \file
/// The platform's settings helper, mem::SettingsUtil. The platform defines instance(), the store
/// and the announcements. This library defines the speaker and crossover members.
#pragma once

#include <QtGlobal>

namespace mem {

class SettingsExe;

/// Named access to the settings of the head unit. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT SettingsUtil {
public:
    /// The one object; never null.
    static SettingsUtil *instance();

    /// The store behind all members; never null.
    SettingsExe *getSaver();
    /// Whether the user forces a manual time, so that the clock must not follow the MCU.
    bool IsForceTime();

    /// \name Announcements
    /// The platform defines them. Called after a changed setting was stored.
    ///@{

    /// Subwoofer: 1 on, 0 off.
    void SubwooferOnOff(int value);
    /// Crossover type, 0 to 3.
    void CrossoverType(int value);
    /// Filter of a crossover type: 1 on, 0 off.
    void HpfLpfOnOff(int type, int value);
    /// Demo mode on or off.
    void DemoOnOff(bool value);
    ///@}

    /// \name Factory settings
    /// This library defines them, so the platform must not. Their keys are in
    /// "/media/flash/nvm/factory/settings.ini". A getter returns the fallback when the file has no
    /// such key. A setter stores the value and, if notify is set, calls the announcement of its
    /// key.
    ///@{

    /// Selected type of speaker levels: "SpeakerLevelCurrentType".
    int getSpeakerLevelCurrentType(int fallback);
    /// Level of one channel for one type: "SpeakerLevelValue_type-channel".
    int getSpeakerLevelValue(int type, int channel, int fallback);
    /// Subwoofer, 1 on, 0 off: "SubwooferOnOff".
    int getSubwooferOnOff(int fallback);
    /// Filter of a crossover type, 1 on, 0 off: "HpfLpfOnOff_type".
    int getHpfLpfOnOff(int type, int fallback);
    /// Filter value of a crossover type: "HpfLpfValue_type".
    int getHpfLpfValue(int type, int fallback);
    /// Filter slope of a crossover type: "HpfLpfSlope_type".
    int getHpfLpfSlope(int type, int fallback);
    /// Sets "SubwooferOnOff": 1 on, 0 off.
    void setSubwooferOnOff(int value, bool notify);
    /// Sets "CrossoverType", 0 to 3.
    void setCrossoverType(int value, bool notify);
    /// Sets "HpfLpfOnOff_type": 1 on, 0 off.
    void setHpfLpfOnOff(int type, int value, bool notify);
    /// Sets "DemoOnOff".
    void setDemoOnOff(bool value, bool notify);
    ///@}
};

} // namespace mem
