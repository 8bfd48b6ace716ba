// The panel: reports change the part of the window that shows them, zeros look different from
// values that are not reported, nothing is cut, and the keyboard reaches everything.
#include "process.h"
#include "scenario.h"
#include "view.h"
#include "window.h"

#include <QAbstractButton>
#include <QAction>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProcess>
#include <QSlider>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

using namespace mcusim;
using namespace mcupanel;

class tst_Panel : public QObject {
    Q_OBJECT

private:
    RealTime m_time;
    OwnLibrary m_library{m_time};
    Window m_window{m_library};

    View *view(const QString &name) { return m_window.findChild<View *>(name); }

    void play(const QByteArray &line)
    {
        const QJsonObject object =
            QJsonDocument::fromJson(R"({"timestamp":0,)" + line + '}').object();
        QCOMPARE(m_library.play(readEvent(m_library.names(), object)), QString());
    }

    QMap<QString, QImage> pictures()
    {
        QMap<QString, QImage> taken;
        for (View *view : m_window.findChildren<View *>())
            taken[view->objectName()] = view->grab().toImage();
        return taken;
    }

private Q_SLOTS:
    void initTestCase()
    {
        silenceLibrary();
        m_window.resize(1280, 720);
        m_window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_window));
        QCOMPARE(m_window.size(), QSize(1280, 720));
    }

    void showsReportsWhereTheyBelong()
    {
        const struct {
            const char *shownBy;
            QByteArray line;
        } rows[]{
            {"Drive", R"("name":"reportVehicleSpeedChangedSgl","value":[0,0,0,0])"},
            {"Drive", R"("name":"reportVehicleSpeedChangedSgl","value":[255,1,0,0])"},
            {"Drive", R"("name":"reportSteeringAngleChangedSgl","value":[7380,0,0,0])"},
            {"Drive", R"("name":"reportSteeringAngleChangedSgl","value":[14760,0,0,0])"},
            {"Audio and radio,Car,Drive", R"("name":"taillineStateSgl","value":[0,0,0,0,0])"},
            {"Car", R"("name":"taillineStateSgl","value":[2,0,0,0,0])"},
            {"Car", R"("name":"taillineStateSgl","value":[2,0,2,0,0])"},
            {"Car,Drive", R"("name":"taillineStateSgl","value":[2,2,2,0,0])"},
            {"Car", R"("name":"reportVehicleBodyChangedSgl","value":[0,0,0,0,0,0,0,0])"},
            {"Car", R"("name":"reportVehicleBodyChangedSgl","value":[255,255,255,0,0,0,0,0])"},
            {"Car", R"("name":"reportPdcChangedSgl","value":[0,0,0,0,0,0,0,0,0,0,0])"},
            {"Car", R"("name":"reportPdcChangedSgl","value":[1,2,3,255,8,7,6,5,0,0,0])"},
            {"Car", "\"name\":\"reportTpmsChangedSgl\",\"value\":[" +
                        QByteArray("0,").repeated(17) + "0]"},
            {"Car", "\"name\":\"reportTpmsChangedSgl\",\"value\":[" +
                        QByteArray("255,").repeated(17) + "255]"},
            {"Climate",
             "\"name\":\"reportAcChangedSgl\",\"value\":[" + QByteArray("0,").repeated(14) + "0]"},
            {"Climate", "\"name\":\"reportAcChangedSgl\",\"value\":[" +
                            QByteArray("255,").repeated(14) + "255]"},
            {"Audio and radio", R"("name":"audioVolumeSgl","value":[0,0,0])"},
            {"Audio and radio", R"("name":"audioVolumeSgl","value":[1,255,255])"},
            {"Audio and radio", R"("call":"McuManager.updateAudioChannel","value":255)"},
            {"Audio and radio", R"("name":"radioCurrChInfoChangedSgl","value":[108000,99,65535])"},
            {"Audio and radio", R"("name":"psNameNotifySgl","value":"WWWWWWWW")"},
            {"Audio and radio",
             "\"name\":\"radioTextSgl\",\"value\":\"" + QByteArray("W").repeated(64) + '"'},
        };
        QMap<QString, QImage> before = pictures();
        for (const auto &row : rows) {
            play(row.line);
            m_window.refresh();
            const QMap<QString, QImage> after = pictures();
            QStringList changed;
            for (const QString &name : after.keys()) {
                if (after[name] != before[name])
                    changed.append(name);
                QVERIFY2(view(name)->cutTexts().isEmpty(),
                         qPrintable(view(name)->cutTexts().join('|')));
            }
            changed.sort();
            QCOMPARE(changed, QString(row.shownBy).split(','));
            before = after;
        }
    }

    void repaintsAtMostSixtyTimesASecond()
    {
        struct Paints : QObject {
            int count = 0;
            bool eventFilter(QObject *, QEvent *event) override
            {
                count += event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
        } paints;
        view("Drive")->installEventFilter(&paints);
        QElapsedTimer since;
        since.start();
        for (int speed = 0; since.elapsed() < 300; speed = (speed + 1) % 256) {
            play(QByteArray(R"("name":"reportVehicleSpeedChangedSgl","value":[)") +
                 QByteArray::number(speed) + ",1,0,0]");
            QCoreApplication::processEvents();
        }
        QVERIFY2(paints.count > 3 && paints.count * 1000 <= 60 * since.elapsed() + 1000,
                 qPrintable(QString::number(paints.count)));
    }

    void playsAScenario()
    {
        auto *position = m_window.findChild<QLabel *>("Position");
        auto *play = m_window.findChild<QAction *>("Play");
        auto *commands = m_window.findChild<QPlainTextEdit *>("Link commands");
        QVERIFY(!play->isEnabled());
        m_window.transport().open(SIMULATOR "/scenarios/using-the-unit.jsonl");
        m_window.findChild<QAction *>("Step")->trigger();
        m_window.findChild<QAction *>("Step")->trigger();
        QVERIFY(position->text().startsWith("1.000 s"));
        m_window.transport().setSpeed(0.25);
        play->trigger();
        QCOMPARE(play->text(), QString("Pause (&Y)"));
        play->trigger();
        QCOMPARE(play->text(), QString("Pla&y"));
        m_window.transport().setSpeed(1e6);
        play->trigger();
        QTRY_VERIFY(position->text().startsWith("13.500 s"));
        QTRY_VERIFY(commands->toPlainText().contains("setPowerOff(1)"));
    }

    void controlsSendReports()
    {
        const QImage before = view("Drive")->grab().toImage();
        m_window.findChild<QSlider *>("Speed")->setValue(77);
        m_window.refresh();
        QVERIFY(view("Drive")->grab().toImage() != before);
    }

    void drivesARunningApplication()
    {
        constexpr int patience = 30'000;
        const QTemporaryDir folder;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
        QProcess application;
        application.start(MCUSIM, {"run", "--name", "car", "--", DASHBOARD});
        QTRY_COMPARE_WITH_TIMEOUT(processesNamed("car").size(), 1, patience);
        RunningApplication car("car", m_time);
        Window window(car);
        auto *drive = window.findChild<View *>("Drive");
        const QImage before = drive->grab().toImage();
        window.findChild<QSlider *>("Speed")->setValue(66);
        QTRY_VERIFY_WITH_TIMEOUT(drive->grab().toImage() != before, patience);
        // The dashboard lowers the volume.
        window.findChild<QAbstractButton *>("Reverse gear")->click();
        auto *commands = window.findChild<QPlainTextEdit *>("Link commands");
        QTRY_VERIFY_WITH_TIMEOUT(commands->toPlainText().contains("SetVolume(0)"), patience);
        application.terminate();
        QTRY_VERIFY_WITH_TIMEOUT(window.statusBar()->currentMessage().contains("has ended"),
                                 patience);
        QTRY_COMPARE_WITH_TIMEOUT(application.state(), QProcess::NotRunning, patience);
    }

    void keyboardReachesAllControls()
    {
        QSet<QWidget *> expected;
        QSet<QString> accelerators;
        for (QWidget *widget : m_window.findChildren<QWidget *>()) {
            if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() &&
                widget->isEnabled() && !widget->focusProxy()) {
                expected.insert(widget);
                QVERIFY2(!widget->accessibleName().isEmpty() ||
                             qobject_cast<QAbstractButton *>(widget),
                         qPrintable(widget->objectName()));
            }
            const QString text = widget->property("text").toString();
            const bool hasText =
                qobject_cast<QLabel *>(widget) || qobject_cast<QAbstractButton *>(widget);
            if (!hasText || text.isEmpty())
                continue;
            QVERIFY2(widget->width() >= widget->sizeHint().width(), qPrintable(text));
            const QString key = QKeySequence::mnemonic(text).toString();
            QVERIFY2(key.isEmpty() || !accelerators.contains(key), qPrintable(text));
            accelerators.insert(key);
        }
        m_window.activateWindow();
        QTRY_VERIFY(m_window.isActiveWindow());
        for (int i = expected.size(); i >= 0; --i) {
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &m_window,
                            Qt::Key_Tab);
            expected.remove(QApplication::focusWidget());
        }
        QVERIFY2(expected.isEmpty(),
                 expected.isEmpty() ? "" : qPrintable((*expected.begin())->objectName()));
    }

    void drawsAndRefusesFromTheCommandLine()
    {
        const QString drive = SIMULATOR "/scenarios/car-drive-records.jsonl";
        const struct {
            QStringList arguments;
            const char *error; ///< empty for none
        } rows[]{
            {{"--screenshot", "panel.png", "--play", drive, "--at", "5", "--dark"}, ""},
            {{"--dark", "--light"}, "--dark and --light exclude each other; see mcupanel --help"},
            {{"--screenshot", "panel.png", "--play", "/nowhere"}, "expects --at"},
            {{"--screenshot", "panel.png", "--play", "/nowhere", "--at", "1"}, "/nowhere"},
            {{"--screenshot", "/nowhere/panel.png"}, "cannot write /nowhere/panel.png"},
            {{"no-such-application"}, "no application"},
        };
        const QTemporaryDir folder;
        for (const auto &row : rows) {
            QProcess process;
            process.setWorkingDirectory(folder.path());
            process.start(MCUPANEL, row.arguments);
            QVERIFY(process.waitForFinished());
            const QString error = QString::fromUtf8(process.readAllStandardError());
            QVERIFY2(error.contains(row.error), qPrintable(error));
            QCOMPARE(process.exitCode(), *row.error == '\0' ? 0 : 2);
            QCOMPARE(error.count('\n'), *row.error == '\0' ? 0 : 1);
        }
        const QImage picture(folder.filePath("panel.png"));
        QCOMPARE(picture.size(), QSize(1280, 720));
    }
};

QTEST_MAIN(tst_Panel)
#include "tst_panel.moc"
