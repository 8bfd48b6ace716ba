/// \file
/// The platform settings store, a closed class, as far as the settings members and the factory test
/// use it.
#pragma once

#include <QString>
#include <QVariant>

namespace mem {

/// Reads and writes keys of settings files named by their path. Called from the thread of
/// mcu::McuService.
class Q_DECL_IMPORT SettingsExe {
public:
    /// Integer value of the key in the file, or the fallback when the file has no such key.
    int getValue(QString key, QString file, int fallback);
    /// Boolean value of the key in the file, or the fallback when the file has no such key.
    bool getValue(QString key, QString file, bool fallback);

    /// Stores a value in the file. The library passes the value twice and true; what the second
    /// value and the flag do depends on the store.
    void setOtherPathValue(QString key, QString file, QVariant value, QVariant value2, bool flag);
};

} // namespace mem
