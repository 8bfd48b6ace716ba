// The factory test where replayed packets (fuzz/) and scripts are not enough: a packet that arrives
// during another one, payloads that are too long, and the settings in the store.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "packettext.h"
#include "platformsubstitute.h"
#include "speakersettings_p.h"
#include "testkit.h"

#include "settingsexe.h"
#include "settingsutil.h"

#include <climits>

using mcu::AutoTestHandler;
using testkit::packetOf;

namespace {

const char settingsPath[] = "/media/flash/nvm/factory/settings.ini";
QStringList reads;

void receive(AutoTestHandler *handler, const char *packet)
{
    QMetaObject::invokeMethod(handler, "onAutoTestPkgChanged", Q_ARG(QByteArray, packetOf(packet)));
}

/// The packets that the station has received since the last call.
QByteArrayList sent()
{
    QByteArrayList packets;
    for (const substitute::Call &call : substitute::link::log().take())
        packets += call.arguments.value(1).toByteArray();
    return packets;
}

} // namespace

// Replaces the function of the substitute.
int mem::SettingsExe::getValue(QString key, QString file, int fallback)
{
    reads += file == settingsPath ? testkit::show(key, {fallback}) : file;
    return reads.size();
}

class tst_AutoTestHandler : public QObject {
    Q_OBJECT

private:
    mem::SettingsUtil &m_util = *mem::SettingsUtil::instance();

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(mcu::McuService::instance()->init());
        QVERIFY(!AutoTestHandler::instance()->parent());
        sent();
    }

    void aListenerMayLetTheNextPacketIn()
    {
        AutoTestHandler handler;
        connect(&handler, &AutoTestHandler::setLanguage, [&] { receive(&handler, "2e:06:7778"); });
        receive(&handler, "2e:05:02");
        QCOMPARE(sent(), QByteArrayList() << packetOf("6e:06:7778") << packetOf("6e:05:02"));
    }

    void payloadsEndWhereTheLengthByteDoes()
    {
        const QByteArray longest = testkit::packet(0x62, 0x85, QByteArray(253, '\1'));
        for (const int size : {253, 254, 255, 256, 1000}) {
            AutoTestHandler::instance()->sendReadInfo(0x85, QByteArray(size, '\1'));
            AutoTestHandler::instance()->sendReadInfo(0x85, 1, QByteArray(size - 1, '\1'));
            QCOMPARE(sent(), QByteArrayList() << longest << longest);
        }
    }

    void settingsAreReadByKey()
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

    void settingsAreStoredByKeyAndAnnouncedWhenAskedFor()
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
                .arg(key, settingsPath, value);
        };
        const QStringList calls{stored("SubwooferOnOff", "5"), "SettingsUtil.SubwooferOnOff(5)",
                                stored("CrossoverType", "3"),  "SettingsUtil.CrossoverType(3)",
                                stored("HpfLpfOnOff_2", "7"),  "SettingsUtil.HpfLpfOnOff(2,7)",
                                stored("DemoOnOff", "true"),   "SettingsUtil.DemoOnOff(true)"};
        QCOMPARE(trace.take(), calls.filter("SettingsExe") + calls);
    }

    void settingsAreReadWhetherOrNotAnythingIsLogged()
    {
        reads.clear();
        receive(AutoTestHandler::instance(), "2e:f7:020201");
        const QStringList silent = std::exchange(reads, {});
        const testkit::LogCapture log;
        receive(AutoTestHandler::instance(), "2e:f7:020201");
        QCOMPARE(reads, silent);
        QCOMPARE(reads.first(), QString("SubwooferOnOff(1)"));
    }

    void hasPresets()
    {
        QCOMPARE(mcu::speakerLevelPresets.join(' '),
                 QString("1,512,512,212,512,512,512 1,512,512,312,512,512,512 "
                         "1,512,512,412,512,512,512 1,512,512,512,512,512,512 "
                         "1,482,482,512,512,512,512 1,452,452,512,512,512,512 "
                         "1,412,412,512,512,512,512"));
    }
};

int main(int argc, char **argv) { return testkit::run<tst_AutoTestHandler>(argc, argv); }
#include "tst_autotesthandler.moc"
