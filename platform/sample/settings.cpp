// The sample settings: keeps the values of all files in memory until the process ends.
#include "settingsexe.h"
#include "settingsfunc.h"
#include "settingsutil.h"
#include "show.h"

#include <QHash>

using sample::show;

namespace {

QHash<QString, QVariant> &values()
{
    static QHash<QString, QVariant> all;
    return all;
}

} // namespace

namespace mem {

int SettingsExe::getValue(QString key, QString file, int fallback)
{
    return values().value(file + key, fallback).toInt();
}

bool SettingsExe::getValue(QString key, QString file, bool fallback)
{
    return values().value(file + key, fallback).toBool();
}

void SettingsExe::setOtherPathValue(QString key, QString file, QVariant value, QVariant, bool)
{
    show("setOtherPathValue", {key, file, value});
    values()[file + key] = value;
}

SettingsFunc *SettingsFunc::instance()
{
    static SettingsFunc settings;
    return &settings;
}

bool SettingsFunc::getValue(QString, bool fallback) { return fallback; }

SettingsUtil *SettingsUtil::instance()
{
    static SettingsUtil settings;
    return &settings;
}

SettingsExe *SettingsUtil::getSaver()
{
    static SettingsExe saver;
    return &saver;
}

bool SettingsUtil::IsForceTime() { return false; }
void SettingsUtil::SubwooferOnOff(int value) { show("SubwooferOnOff", {value}); }
void SettingsUtil::CrossoverType(int value) { show("CrossoverType", {value}); }
void SettingsUtil::HpfLpfOnOff(int type, int value) { show("HpfLpfOnOff", {type, value}); }
void SettingsUtil::DemoOnOff(bool value) { show("DemoOnOff", {value}); }

} // namespace mem
