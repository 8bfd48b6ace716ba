// The substitute platform where no other test uses it: refused injections and answers, and the
// settings files.
#include "linksubstitute.h"
#include "platformsubstitute.h"
#include "testkit.h"

#include "mcusrv.h"
#include "settingsexe.h"
#include "settingsutil.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <limits>

using namespace substitute;

class SubstituteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refusesToInject_data()
    {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QVariantList>("arguments");
        const auto row = [](const char *signal, const QVariantList &arguments, const char *error) {
            QTest::newRow(error) << signal << arguments;
        };
        const char *key = "keyEventSgl";
        row(key, {1}, "keyEventSgl expects 2 arguments (int key, int state), got 1");
        row(key, {1, 2, 3}, "keyEventSgl expects 2 arguments (int key, int state), got 3");
        row(key, {1, "1"}, "keyEventSgl: argument 2 (int state) cannot be \"1\"");
        row(key, {true, 1}, "keyEventSgl: argument 1 (int key) cannot be true");
        row(key, {1, -2147483649.0}, "keyEventSgl: argument 2 (int state) cannot be -2147483649");
        row(key, {1, std::numeric_limits<double>::quiet_NaN()},
            "keyEventSgl: argument 2 (int state) cannot be null");
        row(key, {1, QVariantList{1, 2}}, "keyEventSgl: argument 2 (int state) cannot be [1,2]");
        row(key, {1, QByteArray("\x0a\xff")},
            "keyEventSgl: argument 2 (int state) cannot be 0x0aff");
        row("radioTextSgl", {5}, "radioTextSgl: argument 1 (QString text) cannot be 5");
        // Commands and the signals of QObject are not reports of the MCU.
        row("volumePlus", {}, "unknown link signal \"volumePlus\"; known signals are: ");
        row("destroyed", {}, "unknown link signal \"destroyed\"; known signals are: ");
    }

    void refusesToInject()
    {
        QFETCH(QString, signal);
        QFETCH(QVariantList, arguments);
        testkit::Emissions emissions(mcu::McuSrv::instance());
        QString error;
        QVERIFY(!link::inject(signal, arguments, &error));
        QVERIFY2(error.startsWith(QTest::currentDataTag()), qPrintable(error));
        QVERIFY(!link::inject(signal, arguments));
        QCOMPARE(emissions.take(), QStringList());
    }

    void answersByTypeUntilReset()
    {
        QString error;
        QVERIFY(!link::setAnswer("getEcuEdititon", "3", &error));
        QCOMPARE(error, QString("getEcuEdititon answers int, which cannot be \"3\""));
        QVERIFY(!link::setAnswer("getVersion3", "3", &error));
        QVERIFY(
            error.startsWith("unknown query \"getVersion3\"; known queries are: getVersion1, "));
        QVERIFY(link::setAnswer("getEcuEdititon", 5));
        QCOMPARE(mcu::McuSrv::instance()->getEcuEdititon(), 5);
        link::reset();
        QCOMPARE(mcu::McuSrv::instance()->getEcuEdititon(), 0);
    }

    void settingsAreFilesUnderTheRoot()
    {
        const QString path = "/media/flash/nvm/factory/settings.ini";
        mem::SettingsExe *store = mem::SettingsUtil::instance()->getSaver();
        QVERIFY(QFileInfo(platform::settingsRoot()).isDir()); // the default folder
        QTemporaryDir folder;
        platform::setSettingsRoot(folder.path());
        store->setOtherPathValue("SpeakerLevelValue_0-4", path, -6, -6, true);
        QFile file(folder.path() + path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nSpeakerLevelValue_0-4=-6\n"));
        file.close();
        // The store reads what another process writes. A value that is not a number counts as
        // missing.
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nzero=0\nword=two\nempty=\nhuge=99999999999\n");
        file.close();
        QCOMPARE(store->getValue("zero", path, 1), 0);
        for (const char *key : {"SpeakerLevelValue_0-4", "word", "empty", "huge"})
            QCOMPARE(store->getValue(key, path, 7), 7);
        QCOMPARE(store->getValue("zero", path, true), false);
        QCOMPARE(store->getValue("missing", path, true), true);
    }
};

int main(int argc, char **argv) { return testkit::run<SubstituteTest>(argc, argv); }
#include "tst_substitute.moc"
