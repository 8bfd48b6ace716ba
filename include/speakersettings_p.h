// The audio settings of the factory settings file. speakersettings.cpp defines the ten members of
// mem::SettingsUtil that read and write them (declared in settingsutil.h).
#pragma once

#include <QStringList>

namespace mcu {

/// The settings file.
constexpr char speakerSettingsFile[] = "/media/flash/nvm/factory/settings.ini";

/// Speaker-level presets by their number 0..6: 1, then six levels, where 512 is neutral. Each
/// source file has its own list, so that none depends on the order of initialisation.
const QStringList speakerLevelPresets // clazy:exclude=non-pod-global-static
    {
        QStringLiteral("1,512,512,212,512,512,512"), QStringLiteral("1,512,512,312,512,512,512"),
        QStringLiteral("1,512,512,412,512,512,512"), QStringLiteral("1,512,512,512,512,512,512"),
        QStringLiteral("1,482,482,512,512,512,512"), QStringLiteral("1,452,452,512,512,512,512"),
        QStringLiteral("1,412,412,512,512,512,512"),
    };

} // namespace mcu
