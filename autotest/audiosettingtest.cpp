// The factory audio-setting test: stores subwoofer, demo mode and the filter of the current
// crossover in the settings, and sends the sound settings to the MCU.
#include "autotesthandler.h"

#include "autotesthandler_p.h"
#include "speakersettings_p.h"

#include "eventhandler.h"
#include "settingsexe.h"
#include "settingsutil.h"
#include "srcdsplctrl.h"

namespace mcu {

namespace {

mem::SettingsUtil *settings() { return mem::SettingsUtil::instance(); }

int storedInt(const char *key)
{
    return settings()->getSaver()->getValue(QLatin1String(key), speakerSettingsFile, 0);
}

/// Sum without overflow, because the values of the settings file are not checked.
int wrappingSum(int left, unsigned right) { return int(qint64(left) + right); }

/// Sends the filter of a crossover type to the MCU, with zeros if the filter is off. Returns false
/// if the type has no filter.
bool applyFilter(McuService *service, int type, int speakerMode, bool on, int value, int slope)
{
    constexpr unsigned thirdTypeOffset = 11; // Kept: the amplifier expects this offset for type 3
    const int sentValue = on ? value : 0;
    const int sentSlope = on ? slope : 0;
    if (type == 0)
        service->setLPFValue(sentValue, sentSlope);
    else if (type == 1)
        service->setHPFValue(speakerMode ? 1 : 0, sentValue, sentSlope);
    else if (type == 2 && speakerMode)
        service->setRearLpf(sentValue, sentSlope);
    else if (type == 2)
        service->setHPFValue(1, sentValue, sentSlope);
    else if (type == 3 && speakerMode)
        service->setHPFValue(0, on ? wrappingSum(value, thirdTypeOffset) : 0, sentSlope);
    else
        return false;
    return true;
}

} // namespace

void AutoTestHandlerPrivate::testAudioSettings(const QByteArray &request)
{
    // One byte per setting: 1 is on, 2 is off, any other value does not change it.
    using Step = void (AutoTestHandler::*)(int);
    constexpr Step steps[]{&AutoTestHandler::setSubWooferStatus,
                           &AutoTestHandler::setDemoModeStatus, &AutoTestHandler::setLPFStatus};
    AutoTestHandler *test = owner; // with a sanitizer GCC 12 does not read a member here
    int number = 0;
    for (const Step step : steps) {
        const int order = wire::payloadByte(request, number++);
        if (order == 1 || order == 2)
            (test->*step)(order - 1);
    }
}

void AutoTestHandler::setSubWooferStatus(int v)
{
    const int stored = settings()->getSubwooferOnOff(1);
    LOG_DEBUG << stored << v;
    const int on = v == 0 ? 1 : 0;
    settings()->setSubwooferOnOff(on, true);
    m_data->service->setSubwooferValue(on);

    constexpr int channels = 5;
    constexpr int subwoofer = 4;
    constexpr unsigned neutral = 24; // what the MCU receives for level 0
    const int type = settings()->getSpeakerLevelCurrentType(0);
    QByteArray levels;
    for (int channel = 0; channel < channels; ++channel) {
        const bool silent = channel == subwoofer && settings()->getSubwooferOnOff(1) == 0;
        const int level = silent ? 0 : settings()->getSpeakerLevelValue(type, channel, 0);
        levels.append(char(wrappingSum(level, neutral)));
        LOG_DEBUG << "setSpeakerLevel :::::" << quint8(levels.back());
    }
    m_data->service->setSpeakerLevel(levels);

    if (v == 0)
        settings()->setCrossoverType(0, true);
}

void AutoTestHandler::setDemoModeStatus(int v)
{
    // Codes of the platform: while this display is shown, it gets this event when demo mode is
    // switched off.
    constexpr int demoDisplay = 30;
    constexpr int demoOffEvent = 52;
    const bool stored =
        settings()->getSaver()->getValue(QStringLiteral("DemoOnOff"), speakerSettingsFile, false);
    LOG_DEBUG << stored << v;
    // v is 0 for on, the stored value is 1 for on: if they are equal, the setting changes.
    if (int(stored) == v)
        settings()->setDemoOnOff(v == 0, true);
    if (v == 1 && SrcDsplCtrl::currentDspl() == demoDisplay)
        EventHandler::instance()->onEvent(demoOffEvent);
}

void AutoTestHandler::setLPFStatus(int v)
{
    const int type = storedInt("CrossoverType");
    const int current = settings()->getHpfLpfOnOff(type, 0);
    LOG_DEBUG << "onHPF_On_Off >>> " << type << current << v;
    if (current != v) // 0 is on for v and 1 for the setting, as above
        return;
    settings()->setHpfLpfOnOff(type, v == 0 ? 1 : 0, true);

    const int value = settings()->getHpfLpfValue(type, 0);
    const int slope = settings()->getHpfLpfSlope(type, 0);
    const int on = settings()->getHpfLpfOnOff(type, 0);
    const int mode = storedInt("SpeakerMode");
    LOG_DEBUG << ">>>>>>>>>" << type << value << slope << on;
    if (!applyFilter(m_data->service, type, mode, on != 0, value, slope))
        LOG_DEBUG << "currAudio error:" << type;
}

} // namespace mcu
