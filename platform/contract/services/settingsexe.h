// The platform settings store as the settings members and the factory test need it:
// mem::SettingsExe, closed.
#pragma once

#include <QString>
#include <QVariant>

namespace mem {

/// Reads and writes keys of settings files named by their path.
class Q_DECL_IMPORT SettingsExe {
public:
    /// Value of the key in the file, or the fallback when the file does not hold it.
    int getValue(QString key, QString file, int fallback);
    bool getValue(QString key, QString file, bool fallback);

    /// Stores a value in the file. Callers pass the value twice and true; what the second value
    /// and the flag do is the store's own business.
    void setOtherPathValue(QString key, QString file, QVariant value, QVariant value2, bool flag);
};

} // namespace mem
