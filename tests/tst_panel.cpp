// The panel: values change the part of the window that shows them, zeros look different from what
// is not reported, no text is cut, the keyboard reaches everything.
#include "process.h"
#include "view.h"
#include "window.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QSlider>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

using namespace mcusim;
using namespace mcupanel;

namespace {

constexpr int patience = 30'000;
const QString scenarios = SIMULATOR "/scenarios/";

struct Paints : QObject {
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

class tst_Panel : public QObject {
    Q_OBJECT

private:
    RealTime m_time;
    OwnLibrary m_library{m_time};
    Window m_window{m_library};

    template <typename Part>
    Part *part(const QString &name)
    {
        return m_window.findChild<Part *>(name);
    }

    /// A report, or a call, with all its numbers the same and all its texts wide.
    void play(const QString &name, int value)
    {
        const Kind kind = name.contains('.') ? Kind::Call : Kind::Report;
        const Signature *what = m_library.names().find(kind, name).value(0);
        QVariantList values;
        for (const Parameter &parameter : what->parameters)
            values.append(parameter.type == QMetaType::QString ? QVariant(QString(value, 'W'))
                                                               : QVariant(value));
        QCOMPARE(m_library.play({m_time.now(), what, values, 0}), QString());
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

    void showsValuesWhereTheyBelong()
    {
        const struct {
            const char *views; ///< that change
            const char *name;
            QVector<int> values;
        } rows[]{
            {"Drive", "reportVehicleSpeedChangedSgl", {0, 255}},
            {"Drive", "reportSteeringAngleChangedSgl", {7380, 0, 14760}},
            {"Audio and radio,Car,Drive", "taillineStateSgl", {0, 2, 0}},
            {"Car", "reportVehicleBodyChangedSgl", {0, 1, 255}},
            {"Car", "reportPdcChangedSgl", {0, 1, 255}},
            {"Car", "reportTpmsChangedSgl", {0, 1, 255}},
            {"Climate", "reportAcChangedSgl", {0, 1, 255}},
            {"Audio and radio", "audioVolumeSgl", {0, 1, 255}},
            {"Audio and radio", "McuManager.updateAudioChannel", {0, 255}},
            {"Audio and radio", "radioCurrChInfoChangedSgl", {0, 108000}},
            {"Audio and radio", "psNameNotifySgl", {1, 8, 128}},
            {"Audio and radio", "radioTextSgl", {1, 128}},
        };
        QMap<QString, QImage> before = pictures();
        for (const auto &row : rows) {
            for (const int value : row.values) {
                play(row.name, value);
                m_window.refresh();
                const QMap<QString, QImage> after = pictures();
                QStringList changed;
                for (const QString &name : after.keys()) {
                    if (after[name] != before[name])
                        changed.append(name);
                    QCOMPARE(part<View>(name)->cutTexts(), QStringList());
                }
                QCOMPARE(changed.join(','), QString(row.views));
                before = after;
            }
        }
    }

    void repaintsAtMostSixtyTimesASecond()
    {
        Paints paints;
        part<View>("Drive")->installEventFilter(&paints);
        QElapsedTimer since;
        since.start();
        for (int speed = 0; since.elapsed() < 300 || paints.count < 3; ++speed) {
            play("reportVehicleSpeedChangedSgl", speed);
            QCoreApplication::processEvents();
        }
        QVERIFY(paints.count * 1000 <= 60 * (since.elapsed() + 17));
    }

    void playsAScenario()
    {
        auto *play = part<QAction>("Play");
        QVERIFY(!play->isEnabled());
        m_window.transport().open(scenarios + "using-the-unit.jsonl");
        for (int i = 0; i < 2; ++i)
            part<QAction>("Step")->trigger();
        QVERIFY(part<QLabel>("Position")->text().startsWith("1.000 s"));
        m_window.transport().setSpeed(0.25);
        for (const char *text : {"Pause (&Y)", "Pla&y"}) {
            play->trigger();
            QCOMPARE(play->text(), QString(text));
        }
        m_window.transport().setSpeed(1e6);
        play->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(part<QLabel>("Position")->text().left(8), QString("13.500 s"),
                                  patience);
        QTRY_VERIFY(part<QPlainTextEdit>("Link commands")->toPlainText().contains("PowerOff(1)"));
    }

    void drivesARunningApplication()
    {
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

    void keyboardReachesEverything()
    {
        QSet<QWidget *> unreached;
        QSet<QString> accelerators;
        for (QWidget *widget : m_window.findChildren<QWidget *>()) {
            const bool isControl = (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                                   widget->isVisible() && !widget->focusProxy();
            auto *button = qobject_cast<QAbstractButton *>(widget);
            if (isControl) {
                unreached.insert(widget);
                QVERIFY2(button || !widget->accessibleName().isEmpty(),
                         qPrintable(widget->objectName()));
            }
            auto *label = qobject_cast<QLabel *>(widget);
            const QString text = button ? button->text() : label ? label->text() : QString();
            if (text.isEmpty())
                continue;
            QVERIFY2(widget->width() >= widget->sizeHint().width(), qPrintable(text));
            const QString key = QKeySequence::mnemonic(text).toString();
            QVERIFY2(key.isEmpty() || !accelerators.contains(key), qPrintable(text));
            accelerators.insert(key);
        }
        m_window.activateWindow();
        QTRY_VERIFY(m_window.isActiveWindow());
        for (int i = unreached.size(); i >= 0; --i) {
            QWidget *at = QApplication::focusWidget();
            QTest::keyClick(at ? at : &m_window, Qt::Key_Tab);
            unreached.remove(QApplication::focusWidget());
        }
        QVERIFY(unreached.isEmpty());
    }

    void drawsAndRefusesFromTheCommandLine()
    {
        const QString drive = scenarios + "car-drive-records.jsonl";
        const struct {
            QStringList arguments;
            QString error; ///< empty for none
        } rows[]{
            {{"--screenshot", "panel.png", "--play", drive, "--at", "5", "--dark"}, ""},
            {{"--dark", "--light"}, "--dark and --light exclude each other; see mcupanel --help"},
            {{"--screenshot", "panel.png", "--play", drive}, "expects --at"},
            {{"--screenshot", "panel.png", "--play", "/nowhere", "--at", "1"}, "/nowhere"},
            {{"--screenshot", "panel.png", "--play", "-", "--at", "1"}, "a regular file"},
            {{"--screenshot", "/nowhere/panel.png"}, "cannot write /nowhere/panel.png"},
            {{"no-such-application"}, "no application"},
        };
        const QTemporaryDir folder;
        for (const auto &row : rows) {
            QProcess process;
            process.setWorkingDirectory(folder.path());
            process.start(MCUPANEL, row.arguments);
            QVERIFY(process.waitForFinished(patience));
            const QString error = QString::fromUtf8(process.readAllStandardError());
            QVERIFY2(error.contains(row.error), qPrintable(error));
            QCOMPARE(process.exitCode(), row.error.isEmpty() ? 0 : 2);
            QCOMPARE(error.count('\n'), row.error.isEmpty() ? 0 : 1);
        }
        QCOMPARE(QImage(folder.filePath("panel.png")).size(), QSize(1280, 720));
    }
};

QTEST_MAIN(tst_Panel)
#include "tst_panel.moc"
