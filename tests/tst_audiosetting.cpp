// The audio settings: each member of the settings helper with its key in the store. What the factory
// test does with them stands in scripts/audiosettings.txt.
#include "autotesthandler.h"
#include "packettext.h"
#include "platformsubstitute.h"
#include "speakersettings.h"
#include "testkit.h"

#include "settingsexe.h"
#include "settingsutil.h"

#include <climits>

namespace {

const char path[] = "/media/flash/nvm/factory/settings.ini";
QStringList reads;

} // namespace

// Stands in front of the store's own.
int mem::SettingsExe::getValue(QString key, QString file, int fallback)
{
    reads += file == path ? testkit::show(key, {fallback}) : file;
    return reads.size();
}

class tst_AudioSetting : public QObject {
    Q_OBJECT

private:
    mem::SettingsUtil &m_util = *mem::SettingsUtil::instance();

private Q_SLOTS:
    void readsByKey()
    {
        QCOMPARE(m_util.getSpeakerLevelCurrentType(7), 1);
        QCOMPARE(m_util.getSpeakerLevelValue(3, 4, -1), 2);
        QCOMPARE(m_util.getSubwooferOnOff(8), 3);
        QCOMPARE(m_util.getHpfLpfOnOff(2, 9), 4);
        QCOMPARE(m_util.getHpfLpfValue(10, 0), 5);
        QCOMPARE(m_util.getHpfLpfSlope(INT_MIN, INT_MAX), 6);
        QCOMPARE(reads.join(' '),
                 QString("SpeakerLevelCurrentType(7) SpeakerLevelValue_3-4(-1) SubwooferOnOff(8) "
                         "HpfLpfOnOff_2(9) HpfLpfValue_10(0) HpfLpfSlope_-2147483648(2147483647)"));
    }

    void storesByKeyAndAnnouncesWhenAskedTo()
    {
        testkit::Trace trace;
        trace.listen(substitute::platform::log());
        for (const bool notify : {false, true}) {
            m_util.setSubwooferOnOff(5, notify);
            m_util.setCrossoverType(3, notify);
            m_util.setHpfLpfOnOff(2, 7, notify);
            m_util.setDemoOnOff(true, notify);
        }
        const auto stored = [](const char *key, const char *value) {
            return QString("SettingsExe.setOtherPathValue(\"%1\",\"%2\",%3,%3,true)")
                .arg(key, path, value);
        };
        const QStringList calls{
            stored("SubwooferOnOff", "5"), "SettingsUtil.SubwooferOnOff(5)",
            stored("CrossoverType", "3"),  "SettingsUtil.CrossoverType(3)",
            stored("HpfLpfOnOff_2", "7"),  "SettingsUtil.HpfLpfOnOff(2,7)",
            stored("DemoOnOff", "true"),   "SettingsUtil.DemoOnOff(true)"};
        QCOMPARE(trace.take(), calls.filter("SettingsExe") + calls);
    }

    void readsTheSameWhenNothingIsLogged()
    {
        const auto readsOfTest = [] {
            reads.clear();
            QMetaObject::invokeMethod(mcu::AutoTestHandler::instance(), "onAutoTestPkgChanged",
                                      Q_ARG(QByteArray, testkit::packetOf("2e:f7:020201")));
            return reads.join(' ');
        };
        const QString silent = readsOfTest();
        const testkit::LogCapture log;
        QCOMPARE(readsOfTest(), silent);
        QVERIFY(silent.startsWith("SubwooferOnOff(1) SpeakerLevelCurrentType(0) "));
    }

    void hasPresets()
    {
        QCOMPARE(speakerLevelPresets.join(' '),
                 QString("1,512,512,212,512,512,512 1,512,512,312,512,512,512 "
                         "1,512,512,412,512,512,512 1,512,512,512,512,512,512 "
                         "1,482,482,512,512,512,512 1,452,452,512,512,512,512 "
                         "1,412,412,512,512,512,512"));
    }
};

int main(int argc, char **argv) { return testkit::run<tst_AudioSetting>(argc, argv); }
#include "tst_audiosetting.moc"
