// The audio settings: the members of the settings helper, and the factory test that switches them.
// Everything runs on a real settings file in a folder of its own.
#include "factorystation.h"

#include "settingsexe.h"
#include "settingsutil.h"
#include "speakersettings.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <climits>

using testkit::FactoryStation;

namespace {

const char settingsPath[] = "/media/flash/nvm/factory/settings.ini";
int reads = 0;

/// The settings file under a root of its own, as "key=value" texts.
class SettingsFile {
public:
    explicit SettingsFile(const QString &entries = QString())
    {
        substitute::platform::setSettingsRoot(m_root.path());
        QDir().mkpath(QFileInfo(m_root.path() + settingsPath).path());
        QFile file(m_root.path() + settingsPath);
        if (!file.open(QFile::WriteOnly))
            qFatal("no settings file");
        file.write("[General]\n" + QString(entries).replace(' ', '\n').toUtf8());
    }
    QString content() const
    {
        const QSettings settings(m_root.path() + settingsPath, QSettings::IniFormat);
        QStringList entries;
        for (const QString &key : settings.allKeys())
            entries.append(key + '=' + settings.value(key).toString());
        return entries.join(' ');
    }

private:
    QTemporaryDir m_root;
};

} // namespace

// Stands in front of the store's own.
int mem::SettingsExe::getValue(QString key, QString file, int fallback)
{
    ++reads;
    const QString path = substitute::platform::settingsRoot() + file;
    return QSettings(path, QSettings::IniFormat).value(key, fallback).toInt();
}

class tst_AudioSetting : public QObject {
    Q_OBJECT

public:
    explicit tst_AudioSetting(substitute::VirtualClock *) {}

private Q_SLOTS:
    void readsSettings();
    void writesSettings();
    void stationSwitchesSettings_data();
    void stationSwitchesSettings();
    void switchesFilterOfTheCrossover_data();
    void switchesFilterOfTheCrossover();
    void logsItsSteps();
};

void tst_AudioSetting::readsSettings()
{
    mem::SettingsUtil &util = *mem::SettingsUtil::instance();
    const auto values = [&](int fallback) {
        return QVector<int>{
            util.getSpeakerLevelCurrentType(fallback), util.getSpeakerLevelValue(3, 4, fallback),
            util.getSubwooferOnOff(fallback),          util.getHpfLpfOnOff(2, fallback),
            util.getHpfLpfValue(10, fallback),         util.getHpfLpfSlope(0, fallback),
            util.getHpfLpfSlope(INT_MIN, fallback)};
    };
    const SettingsFile full("SpeakerLevelCurrentType=1 SpeakerLevelValue_3-4=2 SubwooferOnOff=3 "
                            "HpfLpfOnOff_2=4 HpfLpfValue_10=-2147483648 HpfLpfSlope_0=2147483647 "
                            "HpfLpfSlope_-2147483648=7");
    QCOMPARE(values(77), QVector<int>({1, 2, 3, 4, INT_MIN, INT_MAX, 7}));
    const SettingsFile empty;
    QCOMPARE(values(77), QVector<int>(7, 77));
    QCOMPARE(speakerLevelPresets.join(' '),
             QString("1,512,512,212,512,512,512 1,512,512,312,512,512,512 "
                     "1,512,512,412,512,512,512 1,512,512,512,512,512,512 "
                     "1,482,482,512,512,512,512 1,452,452,512,512,512,512 "
                     "1,412,412,512,512,512,512"));
}

void tst_AudioSetting::writesSettings()
{
    mem::SettingsUtil &util = *mem::SettingsUtil::instance();
    testkit::Trace trace;
    trace.listen(substitute::platform::log());
    for (const bool notify : {false, true}) {
        const SettingsFile file;
        util.setSubwooferOnOff(5, notify);
        util.setCrossoverType(3, notify);
        util.setHpfLpfOnOff(2, 7, notify);
        util.setDemoOnOff(true, notify);
        QCOMPARE(file.content(),
                 QString("CrossoverType=3 DemoOnOff=true HpfLpfOnOff_2=7 SubwooferOnOff=5"));
        const auto stored = [](const char *key, const QVariant &value) {
            return testkit::show("SettingsExe.setOtherPathValue",
                                 {key, settingsPath, value, value, true});
        };
        QStringList calls{stored("SubwooferOnOff", 5), "SettingsUtil.SubwooferOnOff(5)",
                          stored("CrossoverType", 3),  "SettingsUtil.CrossoverType(3)",
                          stored("HpfLpfOnOff_2", 7),  "SettingsUtil.HpfLpfOnOff(2,7)",
                          stored("DemoOnOff", true),   "SettingsUtil.DemoOnOff(true)"};
        QCOMPARE(trace.take(), notify ? calls : calls.filter("SettingsExe"));
    }
}

void tst_AudioSetting::stationSwitchesSettings_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("effects"); // announcements without "SettingsUtil."
    QTest::addColumn<QString>("after");
    const auto row = [](const char *payload, int display, const QString &before,
                        const char *effects, const QString &after) {
        QTest::addRow("2e:f7:%s with %s", payload, qPrintable(before))
            << display << before << QString(effects) << after;
    };
    const QString levels("SpeakerLevelCurrentType=3 SpeakerLevelValue_3-0=1 "
                         "SpeakerLevelValue_3-1=-24 SpeakerLevelValue_3-2=2147483647 "
                         "SpeakerLevelValue_3-3=-2147483648 SpeakerLevelValue_3-4=-5");
    row("010003", 0, "CrossoverType=2 " + levels,
        "SubwooferOnOff(1) setSubwooferValue(1) setSpeakerLevel(0x1900171813) CrossoverType(0)",
        "CrossoverType=0 " + levels + " SubwooferOnOff=1");
    row("020000", 0, "CrossoverType=2 " + levels,
        "SubwooferOnOff(0) setSubwooferValue(0) setSpeakerLevel(0x1900171818)",
        "CrossoverType=2 " + levels + " SubwooferOnOff=0");
    row("01", 0, "SubwooferOnOff=1",
        "SubwooferOnOff(1) setSubwooferValue(1) setSpeakerLevel(0x1818181818) CrossoverType(0)",
        "CrossoverType=0 SubwooferOnOff=1");
    row("000103", 30, "DemoOnOff=false", "DemoOnOff(true)", "DemoOnOff=true");
    row("ff01ff", 0, "", "DemoOnOff(true)", "DemoOnOff=true");
    row("000103", 30, "DemoOnOff=true", "", "DemoOnOff=true");
    row("000203", 29, "DemoOnOff=true", "DemoOnOff(false)", "DemoOnOff=false");
    row("000203", 30, "DemoOnOff=true ", "DemoOnOff(false) EventHandler.onEvent(52)",
        "DemoOnOff=false");
    row("000203", 30, "", "EventHandler.onEvent(52)", "");
    row("0003ff", 30, "CrossoverType=2", "", "CrossoverType=2");
    row("020101", 0, "HpfLpfValue_0=4",
        "SubwooferOnOff(0) setSubwooferValue(0) setSpeakerLevel(0x1818181818) DemoOnOff(true) "
        "HpfLpfOnOff(0,1) setLPFValue(4,0)",
        "DemoOnOff=true HpfLpfOnOff_0=1 HpfLpfValue_0=4 SubwooferOnOff=0");
    row("d7", 0, "", "DemoOnOff(true)", "DemoOnOff=true"); // its checksum, 1, is read as demo mode
}

void tst_AudioSetting::stationSwitchesSettings()
{
    QFETCH(int, display);
    QFETCH(QString, before);
    QFETCH(QString, effects);
    const SettingsFile file(before);
    FactoryStation station;
    substitute::platform::setCurrentDisplay(display);
    QCOMPARE(
        station.play(QByteArray(QTest::currentDataTag()).split(' ')[0]).remove("SettingsUtil."),
        (effects + " 6e:f7:0001").trimmed());
    QTEST(file.content(), "after");
}

void tst_AudioSetting::switchesFilterOfTheCrossover_data()
{
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    const auto row = [](int type, int mode, const char *on, const char *off) {
        QTest::addRow("CrossoverType=%d SpeakerMode=%d", type, mode) << on << off;
    };
    row(0, 1, "setLPFValue(30,12) ", "setLPFValue(0,0) ");
    row(0, 0, "setLPFValue(30,12) ", "setLPFValue(0,0) ");
    row(1, 1, "setHPFValue(1,30,12) ", "setHPFValue(1,0,0) ");
    row(1, 0, "setHPFValue(0,30,12) ", "setHPFValue(0,0,0) ");
    row(2, -3, "setRearLpf(30,12) ", "setRearLpf(0,0) ");
    row(2, 0, "setHPFValue(1,30,12) ", "setHPFValue(1,0,0) ");
    row(3, 1, "setHPFValue(0,41,12) ", "setHPFValue(0,0,0) ");
    row(3, 0, "", "");
    row(4, 1, "", "");
    row(-1, 0, "", "");
}

void tst_AudioSetting::switchesFilterOfTheCrossover()
{
    QFETCH(QString, on);
    QFETCH(QString, off);
    const QString setup = QTest::currentDataTag();
    const QString type = setup.section(' ', 0, 0).section('=', 1);
    const QString filter = setup + " HpfLpfValue_%1=30 HpfLpfSlope_%1=12 HpfLpfOnOff_%1=%2";
    // Stored, asked for, what is sent, stored afterwards.
    for (const auto &[stored, order, sent, after] :
         {std::tuple(0, "01", on, 1), std::tuple(1, "02", off, 0),
          std::tuple(1, "01", QString(), 1), std::tuple(0, "02", QString(), 0),
          std::tuple(2, "01", QString(), 2)}) {
        const SettingsFile file(filter.arg(type).arg(stored));
        FactoryStation station;
        testkit::LogCapture log;
        QString effects = sent;
        if (stored != after)
            effects.prepend(QString("SettingsUtil.HpfLpfOnOff(%1,%2) ").arg(type).arg(after));
        QCOMPARE(station.play(QByteArray("2e:f7:0000") + order), effects + "6e:f7:0001");
        QVERIFY(file.content().contains(QString("HpfLpfOnOff_%1=%2").arg(type).arg(after)));
        QString errors;
        for (const testkit::LogLine &line : log.take())
            errors += line.text.section("::setLPFStatus(int) ", 1).section("currAudio error:", 1);
        QCOMPARE(errors, stored != after && sent.isEmpty() ? ' ' + type : QString());
    }
}

void tst_AudioSetting::logsItsSteps()
{
    const SettingsFile file("CrossoverType=3 SpeakerMode=1 HpfLpfValue_3=2147483647 "
                            "SpeakerLevelValue_0-1=-25 DemoOnOff=true");
    FactoryStation station;
    reads = 0;
    station.play("2e:f7:02");
    QCOMPARE(reads, 7); // although nothing is logged
    testkit::LogCapture log;
    QVERIFY(station.play("2e:f7:020201").contains("setHPFValue(0,-2147483638,0)"));
    QCOMPARE(log.takeTexts().mid(2).join('/'), // behind the chunk and its type
             QString("0 1/setSpeakerLevel ::::: 24/setSpeakerLevel ::::: 255/setSpeakerLevel ::::: "
                     "24/setSpeakerLevel ::::: 24/setSpeakerLevel ::::: 24/true 1/"
                     "onHPF_On_Off >>>  3 0 0/>>>>>>>>> 3 2147483647 0 1"));
}

int main(int argc, char **argv) { return testkit::run<tst_AudioSetting>(argc, argv); }
#include "tst_audiosetting.moc"
