// The platform's general settings as the state cache needs them: mem::SettingsFunc, closed.
#pragma once

#include <QString>

namespace mem {

/// Settings that are not tied to a file.
class Q_DECL_IMPORT SettingsFunc {
public:
    static SettingsFunc *instance();

    /// Value of the key, or the fallback when it is not set.
    bool getValue(QString key, bool fallback);
};

} // namespace mem
