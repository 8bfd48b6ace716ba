// The audio settings of the factory settings file. The ten members of mem::SettingsUtil that reach
// them (declared in settingsutil.h) are defined beside this header.
#pragma once

#include <QStringList>

namespace mcu {

/// The file that holds them all.
constexpr char speakerSettingsFile[] = "/media/flash/nvm/factory/settings.ini";

/// Speaker-level presets by their number 0..6: 1, then six levels of which 512 is neutral. Each
/// source file has a list of its own, so that none depends on when another one is built.
const QStringList speakerLevelPresets{
    QStringLiteral("1,512,512,212,512,512,512"), QStringLiteral("1,512,512,312,512,512,512"),
    QStringLiteral("1,512,512,412,512,512,512"), QStringLiteral("1,512,512,512,512,512,512"),
    QStringLiteral("1,482,482,512,512,512,512"), QStringLiteral("1,452,452,512,512,512,512"),
    QStringLiteral("1,412,412,512,512,512,512"),
};

} // namespace mcu
