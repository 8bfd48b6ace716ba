// The log line and the scope tracer: items, context, times, and no output while debug is off.
#include "logline_p.h"
#include "mcuservice.h"
#include "testkit.h"

#include <QRegularExpression>

#include <limits>
#include <string>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <time.h>
#include <unistd.h>

using testkit::LogCapture;
using testkit::LogLine;

namespace {

QString thisThread() { return QString::number(syscall(SYS_gettid)); }

/// The texts of all lines so far, with "<tid>" for the thread id.
QStringList texts(LogCapture &log)
{
    QStringList found;
    for (const LogLine &line : log.take())
        found.append(QString(line.text).replace(thisThread() + ' ', "<tid> "));
    return found;
}

/// An application's operator for a type of another library: only the place of the call finds it.
QDebug operator<<(QDebug stream, const std::string &text) { return stream << text.size(); }

/// A type whose operator takes it as a variable.
struct Position {
    int x, y;
};

QDebug operator<<(QDebug stream, Position &position) { return stream << position.x << position.y; }

enum Plain { Five = 5 };

/// The times that the monotonic clock returns in turn; every call is logged.
QVector<timespec> readings;

} // namespace

// The linker redirects the library's clock_gettime to this function (see the CMake file).
int readTestClock(clockid_t clock, timespec *time) asm("__wrap_clock_gettime");

int readTestClock(clockid_t clock, timespec *time)
{
    *time = clock == CLOCK_MONOTONIC && !readings.isEmpty() ? readings.takeFirst() : timespec{};
    qDebug("reading");
    return 0;
}

class tst_Log : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lineHasItemsAndContext()
    {
        LogCapture log;
        MCU_DEBUG << "value=" << 3 << QString("a \"é\"") << true << QByteArray("0aff");
        const int line = __LINE__ - 1;
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
        MCU_CRITICAL << "no radio" << -1;
        const QVector<LogLine> lines = log.take();
        QCOMPARE(lines.size(), 2);
        const QString place = thisThread() + ' ' + Q_FUNC_INFO + ' ';
        QCOMPARE(lines[0].text, "[DBG] " + place + QString::number(line) +
                                    " -- value= 3 \"a \\\"é\\\"\" true \"0aff\"");
        QCOMPARE(lines[1].text, "[ERR] " + place + QString::number(line + 3) + " -- no radio -1");
        QCOMPARE(lines[1].type, QtCriticalMsg);
        for (const LogLine &found : lines) {
            QCOMPARE(found.category + ' ' + found.file, QString("default tests/tst_log.cpp"));
            QCOMPARE(found.function, QString(Q_FUNC_INFO));
            QCOMPARE(found.line, found.type == QtDebugMsg ? line : line + 3);
        }
    }

    void lineOfTheLibraryNamesItsSource()
    {
        mcu::McuService service;
        LogCapture log;
        service.notifyDabMcuRequest(6, 7);
        service.init(); // its line has another signature than the compiler's
        const QVector<LogLine> lines = log.take();
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].file, QString("service/mcunotifications.cpp"));
        QCOMPARE(lines[0].function, QString("void mcu::McuService::notifyDabMcuRequest(int, int)"));
        QCOMPARE(lines[1].function, QString("void mcu::McuService::init()"));
    }

    /// A line has the bytes that a QDebug writes which gets all items one by one.
    void itemsAreThoseOfQDebug()
    {
        LogCapture log;
        static constexpr CallSite site{"a/file.cpp", -7, "void f(\"\xc3\xa9\", char)"};
        const auto all = [](QDebug stream) {
            return stream << "[DBG]" << qlonglong(syscall(SYS_gettid)) << site.function << site.line
                          << "--";
        };
        const auto sameLines = [&log](int count) {
            const QVector<LogLine> lines = log.take();
            QCOMPARE(lines.size(), count);
            for (const LogLine &line : lines) {
                QCOMPARE(line.text, lines[0].text);
                QCOMPARE(line.category + ' ' + line.file, QString("default a/file.cpp"));
                QCOMPARE(line.function, QString(site.function));
                QCOMPARE(line.line, -7);
                QCOMPARE(line.type, QtDebugMsg);
            }
        };
        const QMessageLogger logger(site.file, site.line, site.function, "default");
        const auto same = [&](const auto &...items) {
            (all(logger.debug()) << ... << items);
            (debugLine(site) << ... << items);
            (mcu::LogLine(QtDebugMsg, site) << ... << items);
            sameLines(3);
        };
        const auto sameStreams = [&](auto write) {
            write(all(logger.debug()));
            write(debugLine(site));
            sameLines(2);
        };
        const char *none = nullptr;
        char buffer[] = "buffer";
        const QByteArray zero("a\0b", 3);
        same("");
        same("end ");
        same("a", "", "\t\"\\\n", "\xc3\xa9", none, buffer);
        same("\xff", "\xef\xbb\xbf mark", "cut \xe2\x82", 1);
        same(QString(), QString(""), QString("all ~"), QString("\"q\" \\ \n\x7f \u00e9 \u20ac"),
             "x");
        same(QString("one\"quote"), QString("one\\slash"), QString("one\x7f"), QString("one\t"));
        same(QByteArray("one\"quote"), QByteArray("one\\slash"));
        same(QString(QChar(0xd800)), QString("a\0b").append(QChar(0)), QString(999, 'x'), 1);
        same(QByteArray(), QByteArray("0aff"), QByteArray("\"\\\n\xc3\x61"), zero, true, false);
        same(std::numeric_limits<qint64>::min(), std::numeric_limits<quint64>::max(), 0, qint8(-1),
             quint8(255), short(-2), quint16(3), 4u, 5l, 6ul, L'7');
        same('c', u'c', U'c', 1.5f, -0.1, nullptr, static_cast<void *>(buffer), QChar('c'), 3);
        same(QList<int>{1, 2}, "text", Five, QtCriticalMsg, QLatin1String("l\"1"), QString("s"));
        same(1, Qt::hex, 255, Qt::dec, "x", 255, QString("a") + "b");
        sameStreams([](QDebug line) { line.nospace() << 1 << "a" << QString("b") << ' '; });
        sameStreams([](QDebug line) { line.noquote() << QString("b") << QByteArray("c") << "d"; });
        sameStreams([](QDebug line) { line.maybeSpace().maybeQuote('\'') << QString("b") << 1; });

        criticalLine(site) << QString("q");
        mcu::LogLine(QtCriticalMsg, site) << QString("q");
        const QVector<LogLine> lines = log.take();
        QCOMPARE(lines.size(), 2);
        for (const LogLine &line : lines) {
            QCOMPARE(line.text, lines[0].text);
            QVERIFY(line.text.startsWith("[ERR] "));
            QCOMPARE(line.type, QtCriticalMsg);
        }
    }

    /// An application's operators work as with any QDebug, also for the first item.
    void operatorsOfAnApplication()
    {
        LogCapture log;
        Position position{1, 2};
        MCU_DEBUG << std::string("abc") << position << 3;
        MCU_CRITICAL << position << std::string("abc");
        QStringList ends;
        for (const LogLine &line : log.take())
            ends.append(line.text.section(" -- ", -1));
        QCOMPARE(ends, QStringList({"3 1 2 3", "1 2 3"}));
    }

    void threadIdIsTheKernels()
    {
        LogCapture log;
        const auto isLogged = [&log](const QString &thread) {
            MCU_DEBUG;
            return log.take().value(0).text.section(' ', 1, 1) == thread;
        };
        bool isRight = false;
        std::thread([&] { isRight = isLogged(thisThread()); }).join();
        QVERIFY(isRight);
        QVERIFY(isLogged(thisThread())); // a stored id would be wrong in the child
        const pid_t child = fork();
        if (child == 0)
            _exit(isLogged(QString::number(getpid())) ? 0 : 1);
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
    }

    void nothingIsEvaluatedWhileSilent()
    {
        int evaluated = 0;
        LogCapture log;
        MCU_DEBUG << ++evaluated;
        QLoggingCategory *category = QLoggingCategory::defaultCategory();
        category->setEnabled(QtDebugMsg, false);
        MCU_CRITICAL << ++evaluated;
        category->setEnabled(QtCriticalMsg, false);
        MCU_DEBUG << ++evaluated;
        MCU_CRITICAL << ++evaluated;
        {
            AutoPrint trace("silent", 1);
        }
        category->setEnabled(QtCriticalMsg, true);
        QCOMPARE(evaluated, 2);
        QCOMPARE(log.take().size(), 2);
    }

    /// The clock is read after the entry line, so that the time does not include it, and before the
    /// time line.
    void tracerTellsItsTime()
    {
        const struct {
            timespec start, end;
            const char *milliseconds;
        } cases[]{
            {{7, 1000000}, {7, 1999999}, "0"},
            {{7, 1999999}, {7, 2000000}, "1"},
            {{7, 999999999}, {8, 0}, "1"},
            {{1, 5000000}, {7201, 9000000}, "7200004"},
            {{0, 0}, {2147483, 648000000}, "2147483648"},
            {{4294967, 295000000}, {4294967, 303000000}, "8"}, // the 32-bit milliseconds wrap
        };
        for (const auto &[start, end, milliseconds] : cases) {
            LogCapture log;
            readings = {start, end};
            {
                AutoPrint trace("f \"é\"\n", -7);
            }
            const QString front = "[DBG] <tid> \"f \\\"é\\\"\\n\" \"-7\" ";
            QCOMPARE(texts(log),
                     (QStringList{front + "[--IN--]", "reading", "reading",
                                  front + "[--ExecTime--] " + milliseconds, front + "[--OUT--]"}));
        }
    }

    void tracersNest()
    {
        LogCapture log;
        {
            AutoPrint outer("outer", 1);
            AutoPrint inner("", 0);
        }
        QVector<LogLine> lines = log.take();
        QStringList order;
        for (const LogLine &line : qAsConst(lines)) {
            if (line.text == "reading")
                continue;
            order.append(line.text.section(' ', 2));
            QCOMPARE(line.type, QtDebugMsg);
            QCOMPARE(line.category + ' ' + line.file, QString("default include/debug"));
            QCOMPARE(QString(line.function).remove(' '),
                     QString(line.text.endsWith("[--IN--]") ? "AutoPrint::AutoPrint(constchar*,int)"
                                                            : "AutoPrint::~AutoPrint()"));
        }
        QCOMPARE(order,
                 (QStringList{R"("outer" "1" [--IN--])", R"("" "0" [--IN--])",
                              R"("" "0" [--ExecTime--] 0)", R"("" "0" [--OUT--])",
                              R"("outer" "1" [--ExecTime--] 0)", R"("outer" "1" [--OUT--])"}));
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Log>(argc, argv); }
#include "tst_log.moc"
