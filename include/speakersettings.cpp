// The speaker and crossover members of mem::SettingsUtil. Each builds its key and calls the store
// once. A setter also announces the change if `notify` is set.
#include "speakersettings_p.h"

#include "settingsexe.h"
#include "settingsutil.h"

namespace mem {

namespace {

QString filterKey(const char *key, int crossoverType)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(key)).arg(crossoverType);
}

int read(SettingsUtil *util, const QString &key, int fallback)
{
    return util->getSaver()->getValue(key, mcu::speakerSettingsFile, fallback);
}

void write(SettingsUtil *util, const QString &key, const QVariant &value)
{
    util->getSaver()->setOtherPathValue(key, mcu::speakerSettingsFile, value, value, true);
}

} // namespace

int SettingsUtil::getSpeakerLevelCurrentType(int fallback)
{
    return read(this, QStringLiteral("SpeakerLevelCurrentType"), fallback);
}

int SettingsUtil::getSpeakerLevelValue(int type, int channel, int fallback)
{
    return read(this, QStringLiteral("SpeakerLevelValue_%1-%2").arg(type).arg(channel), fallback);
}

int SettingsUtil::getSubwooferOnOff(int fallback)
{
    return read(this, QStringLiteral("SubwooferOnOff"), fallback);
}

int SettingsUtil::getHpfLpfOnOff(int type, int fallback)
{
    return read(this, filterKey("HpfLpfOnOff", type), fallback);
}

int SettingsUtil::getHpfLpfValue(int type, int fallback)
{
    return read(this, filterKey("HpfLpfValue", type), fallback);
}

int SettingsUtil::getHpfLpfSlope(int type, int fallback)
{
    return read(this, filterKey("HpfLpfSlope", type), fallback);
}

void SettingsUtil::setSubwooferOnOff(int value, bool notify)
{
    write(this, QStringLiteral("SubwooferOnOff"), value);
    if (notify)
        SubwooferOnOff(value);
}

void SettingsUtil::setCrossoverType(int value, bool notify)
{
    write(this, QStringLiteral("CrossoverType"), value);
    if (notify)
        CrossoverType(value);
}

void SettingsUtil::setHpfLpfOnOff(int type, int value, bool notify)
{
    write(this, filterKey("HpfLpfOnOff", type), value);
    if (notify)
        HpfLpfOnOff(type, value);
}

void SettingsUtil::setDemoOnOff(bool value, bool notify)
{
    write(this, QStringLiteral("DemoOnOff"), value);
    if (notify)
        DemoOnOff(value);
}

} // namespace mem
