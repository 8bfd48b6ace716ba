// System state: what each report of the MCU makes the facade keep, emit and log, and what the
// queries answer from it.
#include "connectedfacade.h"

#include <climits>

using mcu::SetupInfo;
using mcu::SetupInfo1;
using testkit::ConnectedFacade;
using testkit::show;
using testkit::words;

namespace {

/// All values of a block, by their names.
QVariantList valuesOf(const SetupInfo &s)
{
    return {
        s.bt_input_level,  s.timer_onoff,     s.beep_onoff,  s.camera_onoff,   s.steering_control,
        s.extra_bass,      s.eq_type,         s.eq1_level,   s.eq2_level,      s.eq3_level,
        s.eq4_level,       s.eq5_level,       s.eq6_level,   s.eq7_level,      s.eq8_level,
        s.eq9_level,       s.eq10_level,      s.eq11_level,  s.eq12_level,     s.eq13_level,
        s.subwoofer_level, s.balance_level,   s.fader_level, s.hpf_front_freq, s.hpf_rear_freq,
        s.lpf_freq,        s.subwoofer_phase, s.dso,         s.rotary,         s.bassboost};
}

QVariantList valuesOf(const SetupInfo1 &s)
{
    return {
        s.main_volume,         s.bt_ring_volume,  s.bt_talking_volume,    s.navi_volume,
        s.voice_volume,        s.ta_volume,       s.radio_input_gain,     s.usb_input_gain,
        s.bt_audio_input_gain, s.aux_input_gain,  s.carplay_input_gain,   s.android_auto_input_gain,
        s.loud_status,         s.rear_view_delay, s.poweroff_delay_onoff, s.steer_state,
        s.internal_amp_state,  s.break_volume,    s.idl_chime_vol,        s.ti_vol,
        s.idl_warn_vol,        s.idl_info_vol,    s.idl_reco_vol,         s.bt_siri_vol};
}

} // namespace

class tst_State : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emitsAndLogsWhatIsReported()
    {
        // The over-current warning closes with every later user action. Only mute state 1 is mute.
        // Of the tail line, changes alone.
        testkit::verifyReports(R"(
keyEventSgl(7,0) keyEvent(7,0) keyPressed(7) -- -------------------------------------- 7
keyEventSgl(7,0) keyEvent(7,0) keyPressed(7)
keyEventSgl(7,1) keyEvent(7,1) keyReleased(7)
keyEventSgl(-2147483648,-1) keyEvent(-2147483648,-1) keyReleased(-2147483648)
audioVolumeSgl(0,5,6) audioVolumeChanged(0,5,6) audioVolumeChanged(false,5,6) --
audioVolumeSgl(2,5,6) audioVolumeChanged(2,5,6) audioVolumeChanged(false,5,6)
volumeTurnSgl(3) volumeTurn(3) --
usbPowerStatusSgl(0) usbPowerStatus(0) --
usbPowerStatusSgl(-4) usbPowerStatus(-4)
keyEventSgl(7,0) hideUsbOverPower() keyEvent(7,0) keyPressed(7)
volumeTurnSgl(3) hideUsbOverPower() volumeTurn(3)
audioVolumeSgl(1,5,6) hideUsbOverPower() audioVolumeChanged(1,5,6) audioVolumeChanged(true,5,6)
stwAdcValue(-9) stwAdcValueChanged(-9) -- -9
taillineStateSgl(0,0,0,0,0)
taillineStateSgl(2,2,2,1,5) parkingChanged(2) reverseChanged(2) headlightChanged(2) muteLineStateChanged(1) dspStateChanged(5) bridge.headlightChanged(true,0) bridge.reverseChanged(true,0) bridge.parkingChanged(true,0)
taillineStateSgl(2,2,2,1,5) -- 2 2 2 1 5
taillineStateSgl(2,2,1,1,5) headlightChanged(1) bridge.headlightChanged(false,0)
taillineStateSgl(3,2,1,1,5) parkingChanged(3) bridge.parkingChanged(false,0)
taillineStateSgl(3,-2147483648,1,2147483647,5) reverseChanged(-2147483648) muteLineStateChanged(2147483647) bridge.reverseChanged(false,0)
taillineStateSgl(3,-2147483648,1,2147483647,0) dspStateChanged(0)
requestAppVerSgl(0) requestAppVersion() --
requestAppVerSgl(1) requestBtAddress()
requestAppVerSgl(-2147483648) requestAppVersion()
systemSnidChanged(x) snidChanged("x")
systemSnidChanged(x) snidChanged("x")
serialNumberChanged(n) serialNumChanged("n") --
serialNumberChanged(n) serialNumChanged("n")
syncDestCodeSgl(9,1) syncDestCode(9) -- 9 1
syncDestCodeSgl(9,1) syncDestCode(9)
stwAdcStatusChanged() stwAdcStatusChanged()
mcuVersionSgl(a,b) --
stwCarTypeChanged(3) --
)");
    }

    void keepsTheLastReport()
    {
        ConnectedFacade facade;
        mcu::McuService &s = facade.service;
        for (const QString text : {"first", "second"}) {
            facade.report("mcuVersionSgl", {text + " test", text + " user"});
            facade.report("systemSnidChanged", {text + " snid"});
            facade.report("serialNumberChanged", {text + " serial"});
        }
        const QString texts =
            show("", {s.test_version(), s.user_version(), s.snIdName(), s.serialNumber()});
        QCOMPARE(texts, R"(("second test","second user","second snid","second serial"))");
        facade.report("syncDestCodeSgl", {INT_MIN, INT_MAX});
        facade.report("taillineStateSgl", {11, 12, 13, 14, 15});
        QCOMPARE(show("", {s.getDest(), s.getDemo(), s.parkingState(), s.reverseState(),
                           s.headlightState(), s.muteLineState(), s.dspState(), s.snIdChecksum()}),
                 QString("(-2147483648,2147483647,11,12,13,14,15,0)"));
        for (int muteState : {2, 0, -1}) {
            facade.report("audioVolumeSgl", {muteState, 1, 1});
            QCOMPARE(s.isAttOn(), muteState != 0);
        }
        facade.report("usbPowerStatusSgl", {0});
        QVERIFY(s.isUsbOverCurrent());
    }

    void tellsBridgeEveryTailLine()
    {
        ConnectedFacade facade;
        facade.report("taillineStateSgl", {2, 2, 2, 0, 0});
        McuVechicleBridge::instance()->notifyHeadlightUpdate(false, 1);
        McuVechicleBridge::instance()->notifyReverseUpdate(false, 1);
        McuVechicleBridge::instance()->notifyParkingUpdate(false, 1);
        facade.trace.take();
        QCOMPARE(facade.report("taillineStateSgl", {2, 2, 2, 0, 0}),
                 words("bridge.headlightChanged(true,0) bridge.reverseChanged(true,0) "
                       "bridge.parkingChanged(true,0)"));
    }

    void setsDayAndNightForFactoryTest()
    {
        ConnectedFacade facade;
        const std::pair<int, int> cases[]{{1, 2}, {1, 2}, {0, 1}, {2, 1}};
        for (const auto &[mode, headlight] : cases) {
            facade.service.setDayNightModeFromAutoTst(mode);
            QCOMPARE(facade.trace.take(), QStringList{show("headlightChanged", {headlight})});
            QCOMPARE(facade.service.headlightState(), headlight);
        }
    }

    void setsClockUnlessTimeIsForced()
    {
        for (bool forced : {true, false}) {
            ConnectedFacade facade;
            substitute::platform::setForceTime(forced);
            QVERIFY(!facade.service.isDateTimeReady());
            QCOMPARE(facade.report("datetimeInfoSgl", {2024, 2, 29, 23, 59, 58}),
                     words(forced ? ""
                                  : "DateTimeManager.setDateTime(2024,2,29,23,59,58,false) "
                                    "McuUpdateDateTime()"));
            QVERIFY(facade.service.isDateTimeReady());
        }
    }

    void keepsSetupBlocks()
    {
        ConnectedFacade facade;
        mcu::McuService &service = facade.service;
        QStringList kept; // as it is when applications hear of it
        const auto note = [&] {
            kept = QStringList{show("", valuesOf(service.setupInfo())),
                               show("", valuesOf(service.setupInfo1()))};
        };
        note();
        QCOMPARE(kept.join(' ').remove("0,"), QString("(0) (0)"));
        connect(&service, &mcu::McuService::syncSetupInfo, this, note);
        connect(&service, &mcu::McuService::syncSetupInfo1, this, note);
        QVariantList report{INT_MIN, INT_MAX, -1};
        while (report.size() < 30)
            report.append(1000 + report.size());
        facade.report("setupInfoStateSgl", report);
        QCOMPARE(kept.value(0), show("", report));
        facade.report("setupInfo1StateSgl", report.mid(0, 24));
        QCOMPARE(kept.value(1), show("", report.mid(0, 24)));
    }

    void asksTheLink()
    {
        using namespace substitute;
        ConnectedFacade facade;
        mcu::McuService &s = facade.service;
        const auto state = [&s] {
            return show("", {s.SOC_version(), s.HARD_version(), s.isNeedRenew(),
                             s.isReverseFromMcuSrv(), s.isMuteFromMcuSrv(), s.startUpState()});
        };
        link::setAnswer("getVersion1", "soft");
        link::setAnswer("isReverseOn", true);
        QCOMPARE(state(), QString(R"(("soft","",false,true,false,0))"));
        link::setAnswer("getVersion2", "hard");
        link::setAnswer("isNeedRenew", true);
        link::setAnswer("getSysBootState", 7);
        QCOMPARE(state(), QString(R"(("soft","hard",true,true,false,7))"));
        link::setAnswer("isMuteOn", true);
        platform::setSetting("mcu_upgrade_status", true);
        QCOMPARE(state(), QString(R"(("soft","hard",true,true,true,2))"));
        QCOMPARE(mcu::McuService().startUpState(), 2);
        QCOMPARE(facade.trace.take(), QStringList());
    }

    void keepsNotes()
    {
        ConnectedFacade facade;
        mcu::McuService &service = facade.service;
        testkit::LogCapture log;
        for (bool on : {true, false, true}) {
            service.setNeedSyncMcuTime(on);
            QCOMPARE(service.getNeedSyncTimeState(), on);
            service.setBttestState(on);
            QCOMPARE(service.getBttestState(), on);
            service.notifyAttState(on ? INT_MIN : 0);
            QCOMPARE(service.isAttOn(), on);
        }
        service.notifyDateTime();
        QVERIFY(service.isDateTimeReady());
        QCOMPARE(facade.trace.take() + log.takeTexts(), QStringList());
    }
};

int main(int argc, char **argv) { return testkit::run<tst_State>(argc, argv); }
#include "tst_state.moc"
