/// \file
/// The platform's general settings, a closed class, as far as the facade uses them.
#pragma once

#include <QString>

namespace mem {

/// Settings that are not tied to a file. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT SettingsFunc {
public:
    /// The one object; never null.
    static SettingsFunc *instance();

    /// Value of the key, or the fallback when it is not set. The library reads
    /// "mcu_upgrade_status", which is true while an upgrade of the MCU is in progress.
    bool getValue(QString key, bool fallback);
};

} // namespace mem
