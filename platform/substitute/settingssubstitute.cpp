// The substitute settings store: INI files in a root folder of their own. Each value is written at
// once.
#include "platformsubstitute.h"

#include "settingsexe.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <optional>

namespace {

QString &root()
{
    static QString folder;
    return folder;
}

QString pathOf(const QString &file)
{
    return QDir::cleanPath(substitute::platform::settingsRoot() + QLatin1Char('/') + file);
}

/// The value as text, or nothing if the file does not have the key.
std::optional<QString> read(const QString &key, const QString &file)
{
    const QSettings settings(pathOf(file), QSettings::IniFormat);
    if (!settings.contains(key))
        return std::nullopt;
    return settings.value(key).toString();
}

} // namespace

namespace substitute::platform {

void setSettingsRoot(const QString &folder) { root() = folder; }

QString settingsRoot()
{
    if (root().isEmpty()) {
        static const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/mcuplatform-XXXXXX"));
        // Without a folder of its own nothing may be written anywhere else.
        root() = folder.isValid() ? folder.path() : QStringLiteral("/dev/null");
    }
    return root();
}

} // namespace substitute::platform

namespace mem {

int SettingsExe::getValue(QString key, QString file, int fallback)
{
    bool isNumber = false;
    const int value = read(key, file).value_or(QString()).toInt(&isNumber);
    return isNumber ? value : fallback;
}

bool SettingsExe::getValue(QString key, QString file, bool fallback)
{
    const std::optional<QString> value = read(key, file);
    return value ? QVariant(*value).toBool() : fallback;
}

void SettingsExe::setOtherPathValue(QString key, QString file, QVariant value, QVariant value2,
                                    bool flag)
{
    substitute::platform::log().record("SettingsExe.setOtherPathValue", key, file, value, value2,
                                       flag);
    QSettings settings(pathOf(file), QSettings::IniFormat);
    const QVariant before = settings.value(key);
    settings.setValue(key, value);
    settings.sync();
    // A line that could not be read is left out; all else is written.
    if (settings.status() != QSettings::AccessError)
        return;
    qWarning("SettingsExe: cannot write %s", qUtf8Printable(settings.fileName()));
    // QSettings keeps what it could not write for the next reader.
    if (before.isValid())
        settings.setValue(key, before);
    else
        settings.remove(key);
}

} // namespace mem
