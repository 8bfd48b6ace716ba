// The platform's settings helper: mem::SettingsUtil. The platform library brings its life cycle,
// the store and the announcements; the speaker and crossover members are defined by this library.
#pragma once

#include <QtGlobal>

namespace mem {

class SettingsExe;

/// Named access to the settings of the head unit.
class Q_DECL_IMPORT SettingsUtil {
public:
    static SettingsUtil *instance();

    /// The store behind all members.
    SettingsExe *getSaver();
    /// Whether the user has forced a manual time, so that the clock must not follow the MCU.
    bool IsForceTime();

    // Announcements of a changed setting.
    void SubwooferOnOff(int value);
    void CrossoverType(int value);
    void HpfLpfOnOff(int type, int value);
    void DemoOnOff(bool value);

    // Members that this library defines.
    int getSpeakerLevelCurrentType(int fallback);
    int getSpeakerLevelValue(int type, int channel, int fallback);
    int getSubwooferOnOff(int fallback);
    int getHpfLpfOnOff(int type, int fallback);
    int getHpfLpfValue(int type, int fallback);
    int getHpfLpfSlope(int type, int fallback);
    void setSubwooferOnOff(int value, bool notify);
    void setCrossoverType(int value, bool notify);
    void setHpfLpfOnOff(int type, int value, bool notify);
    void setDemoOnOff(bool value, bool notify);
};

} // namespace mem
