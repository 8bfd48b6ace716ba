// Audio arbitration: the event-mute cycle as stimuli and what the MCU and the audio service are
// told, the channel hold, ducking, and statuses from another thread.
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuservice.h"
#include "platformsubstitute.h"
#include "testkit.h"

#include "audioservice.h"

#include <QRegularExpression>

#include <atomic>
#include <thread>

namespace platform = substitute::platform;

namespace {

std::atomic<int> audioRequests{0};

/// A manager, and all that the MCU and the audio service are told.
struct Desk {
    explicit Desk(substitute::VirtualClock *virtualClock) : clock(virtualClock)
    {
        platform::reset();
        trace.listen(substitute::link::log());
        trace.listen(platform::log());
        taken();
    }
    void update(int status) { manager.updateAudioStatus(McuManager::AudioStatus(status)); }

    /// "status 1", "events 23 6", "muted 1", "attenuated 0" (by others), "wait 2999".
    QString perform(const QString &stimulus, bool fromOtherThread = false)
    {
        QList<int> values;
        for (const QString &value : stimulus.split(' ').mid(1))
            values.append(value.toInt());
        if (stimulus.startsWith("status") && fromOtherThread)
            std::thread([&] { update(values[0]); }).join();
        else if (stimulus.startsWith("status"))
            update(values[0]);
        else if (stimulus.startsWith("events"))
            platform::setAudioEvents(values);
        else if (stimulus.startsWith("muted"))
            platform::setMainAudioMuted(values[0] != 0);
        else if (stimulus.startsWith("attenuated"))
            platform::setAttenuated(values[0] != 0);
        else if (stimulus.startsWith("wait"))
            clock->advance(values[0]);
        clock->settle();
        return taken();
    }

    /// What was told: "cover" is the MCU mute, "att+", "att-", "mute+" and "mute-" switch the main
    /// audio, a number is the status handed to the MCU.
    QString taken()
    {
        QString texts = trace.take().join(' ');
        texts.replace("setAudioMute2(1,50,0)", "cover");
        texts.replace("AudioService.Att20DB", "att")
            .replace("AudioService.setMainAudioMute", "mute");
        texts.replace("(true)", "+").replace("(false)", "-");
        return texts.replace(QRegularExpression("updateAudioStatus\\(([-0-9]+)\\)"), "\\1");
    }

    substitute::VirtualClock *clock;
    testkit::Trace trace;
    McuManager manager{mcu::McuService::instance()};
};

} // namespace

// Stands in front of the platform's own.
hxaudio::AudioService *hxaudio::AudioService::instance()
{
    ++audioRequests;
    static AudioService service;
    return &service;
}

class tst_AudioArbitration : public QObject {
    Q_OBJECT

public:
    explicit tst_AudioArbitration(substitute::VirtualClock *clock) : m_clock(clock) {}

private Q_SLOTS:
    void initTestCase();
    void silencesAndRestores_data();
    void silencesAndRestores();
    void actsByGroup();
    void waitsForInterruptingEvents();
    void logsTheCycle();
    void holdsChannelDuringAlert();
    void endsPhoneCallLate();
    void takesStatusesFromAnotherThread();

private:
    substitute::VirtualClock *m_clock;
};

void tst_AudioArbitration::initTestCase()
{
    mcu::McuService::instance()->init();
    McuManager::instance(); // over which all managers cover
}

void tst_AudioArbitration::silencesAndRestores_data()
{
    QTest::addColumn<QString>("steps");
    const auto row = [](const char *title, const QString &steps) {
        const QString event = "status 1 > cover att- mute- 1";
        QTest::newRow(title) << QString(steps).replace("EVENT", event);
    };
    row("neither", "EVENT; status 0 > att- mute- 0");
    row("muted", "muted 1; EVENT; status 0 > cover mute+ 0");
    row("attenuated", "attenuated 1; EVENT; status 0 > cover att+ 0");
    row("attenuation cancels mute", "muted 1; attenuated 1; EVENT; status 0 > cover att+ 0; "
                                    "status 4 > cover att+ 4");
    row("cancelled mute is recorded anew",
        "attenuated 1; muted 1; EVENT; status 0 > cover att+ 0; attenuated 0; EVENT; "
        "status 0 > cover att+ 0; wait 3000; status 0 > 0");
    row("first event of a run wins",
        "muted 1; EVENT; status 2 > cover att- mute- 2; status 0 > cover mute+ 0");
    row("nothing recorded", "muted 1; status 0 > 0; wait 3000; EVENT; status 0 > cover mute+ 0");
    row("waits for the end of all events",
        "muted 1; events 23; EVENT; status 0 > 0; events 6 7; events 7; events > cover mute+; "
        "events 7; events");
    row("waits once", "events 23; EVENT; status 0 > 0; status 4 > 4; events > att- mute-");
    row("other events delay nothing", "events 7; EVENT; status 0 > att- mute- 0");
    row("new event while waiting", "muted 1; events 60; EVENT; status 0 > 0; "
                                   "status 5 > cover att- mute- 5; events > cover mute+");
    row("new event keeps the records",
        "muted 1; EVENT; status 0 > cover mute+ 0; wait 2999; muted 0; EVENT; wait 60000; "
        "status 0 > cover mute+ 0");
    row("records end", "muted 1; EVENT; status 0 > cover mute+ 0; wait 3000; muted 0; EVENT; "
                       "status 0 > att- mute- 0");
    row("each restore holds anew",
        "muted 1; EVENT; status 0 > cover mute+ 0; wait 2999; status 0 > cover mute+ 0; wait 2999; "
        "status 0 > cover mute+ 0; wait 3000; status 0 > 0");
}

void tst_AudioArbitration::silencesAndRestores()
{
    QFETCH(QString, steps);
    for (bool fromOtherThread : {false, true}) {
        Desk desk(m_clock);
        for (const QString &step : steps.split("; "))
            QCOMPARE(desk.perform(step.section(" > ", 0, 0), fromOtherThread),
                     step.section(" > ", 1));
    }
}

void tst_AudioArbitration::actsByGroup()
{
    const QList<int> on{1, 2, 3, 5, 7, 13, 21, 23, 25, 27};
    const QList<int> off{0, 4, 6, 8, 14, 22, 24, 26, 28};
    for (int value = -1; value <= 40; ++value) {
        Desk desk(m_clock);
        desk.perform("status 1");
        audioRequests = 0;
        const QString effect = desk.perform(QStringLiteral("status %1").arg(value));
        QCOMPARE(audioRequests > 0, on.contains(value) || off.contains(value));
        QCOMPARE(effect.startsWith("cover att- mute- "), on.contains(value));
        QCOMPARE(effect.startsWith("att- mute- "), off.contains(value));
        QCOMPARE(effect.section(' ', -1), QString::number(value));
        QCOMPARE(effect.contains(' '), on.contains(value) || off.contains(value));
        QCOMPARE(desk.manager.audioStatus(), value);
    }
}

void tst_AudioArbitration::waitsForInterruptingEvents()
{
    const QList<int> interrupting{6, 8, 10, 14, 16, 23, 25, 29, 31, 33, 58, 59, 60};
    for (int code = -1; code <= 70; ++code) {
        const bool waits = interrupting.contains(code);
        Desk desk(m_clock);
        desk.perform("status 1");
        desk.perform(QStringLiteral("events 7 %1 0").arg(code));
        QCOMPARE(desk.manager.isContainAudioInterrupt(), waits);
        QCOMPARE(desk.perform("status 0"), QString(waits ? "0" : "att- mute- 0"));
        QCOMPARE(desk.perform("events"), QString(waits ? "att- mute-" : ""));
    }
}

void tst_AudioArbitration::logsTheCycle()
{
    Desk desk(m_clock);
    testkit::LogCapture log;
    const auto logged = [&](const QString &stimulus) {
        desk.perform(stimulus);
        QStringList texts;
        for (const testkit::LogLine &line : log.take()) {
            if (line.function.contains("McuManager::"))
                texts.append(line.text.section(" -- ", 1));
        }
        return texts.join("; ");
    };
    desk.perform("muted 1");
    desk.perform("attenuated 1");
    QCOMPARE(logged("status 1"),
             QString("true; m_restoreMuteOfEvtOff is 2; need restore mute; 1; "
                     "m_atttoreMuteOfEvtOff is 2; need restore att; **updateAudio**** 1"));
    QCOMPARE(logged("status 0"), QString("(); 2; restore att; 0; **updateAudio**** 0"));
    QCOMPARE(logged("wait 9000"), QString("m_restoreMuteOfEvtOff is 0 0"));
    desk.perform("attenuated 0");
    QVERIFY(logged("status 1")
                .contains("need restore demute; 0; m_atttoreMuteOfEvtOff is 1; "
                          "need restore deAtt; "));
    desk.perform("events 7 6");
    QVERIFY(logged("status 0").startsWith("(7, 6); "));
    QCOMPARE(logged("events 7"), QString("false"));
    QCOMPARE(logged("events"), QString("true; (); 1; restore deAtt; 1; restore demute"));
    desk.manager.audioStatus();
    desk.manager.duckAudio(5, 6);
    desk.manager.unduckAudio(7);
    QCOMPARE(logged("wait 0"),
             QString("0; ~~~~~~~~~~~~~~~~~~~~~~~ 5 6; ~~~~~~~~~~~~~~~~~~~~~~~ 7"));
}

void tst_AudioArbitration::holdsChannelDuringAlert()
{
    Desk desk(m_clock);
    McuManager alone(nullptr);
    desk.trace.listen(&desk.manager);
    desk.trace.listen(&alone);
    const auto request = [&](int channel) {
        for (McuManager *manager : {&desk.manager, &alone})
            manager->updateAudioChannel(McuManager::AudioChannel(channel));
        return desk.taken();
    };
    const auto alert = [&](bool on) {
        for (McuManager *manager : {&desk.manager, &alone})
            on ? manager->onCarplayAlertStart() : manager->onCarplayAlertStop();
        return desk.taken();
    };
    QCOMPARE(request(-2), QString("audioChannel(-2) updateAudioChannel(-2)"));
    QCOMPARE(alert(false), QString());
    QCOMPARE(alert(true), QString());
    QCOMPARE(request(2), QString());
    QCOMPARE(request(3), QString());
    QCOMPARE(alert(false), QString("audioChannel(3) updateAudioChannel(3)"));

    alone.updateAudioStatus(McuManager::EventOn5);
    QCOMPARE(alone.audioStatus(), 0);
    QCOMPARE(desk.taken(), QString());
}

void tst_AudioArbitration::endsPhoneCallLate()
{
    Desk desk(m_clock);
    for (int muteState : {0, 1}) {
        desk.manager.onVolumeChanged(muteState, 0, 0);
        QVERIFY(QMetaObject::invokeMethod(&desk.manager, "onDlyUptPheEndTmrout"));
        QCOMPARE(desk.taken(), QString(muteState ? "uiCmdAtt(0)" : ""));
    }
}

void tst_AudioArbitration::takesStatusesFromAnotherThread()
{
    Desk desk(m_clock);
    constexpr int count = 5000;
    QStringList wanted;
    for (int i = 0; i < count; ++i)
        wanted.append(QString::number(i % 29));

    std::atomic<bool> done{false};
    std::thread caller([&] {
        for (int i = 0; i < count; ++i)
            desk.update(i % 29);
        done = true;
    });
    while (!done) {
        m_clock->advance(3000); // the restore timer starts, stops and fires
        desk.manager.audioStatus();
        // Both threads write the substitutes' logs, which only the manager's lock keeps whole.
        desk.manager.unduckAudio(1);
    }
    caller.join();
    const QString told = desk.taken();
    QVERIFY(!told.contains(QRegularExpression("(cover|[+-]) unduckAudio")));
    QCOMPARE(told.split(' ').filter(QRegularExpression("^[0-9]+$")), wanted);
}

int main(int argc, char **argv) { return testkit::run<tst_AudioArbitration>(argc, argv); }
#include "tst_audioarbitration.moc"
