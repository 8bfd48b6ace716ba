// The log line and the scope tracer: their items, their context, and silence while debug is off.
#include "debug.h"
#include "mcuservice.h"
#include "testkit.h"

#include <QRegularExpression>

#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using testkit::LogCapture;
using testkit::LogLine;

namespace {

QString thisThread() { return QString::number(syscall(SYS_gettid)); }

/// The one line of a capture, its front checked and replaced by its type and place.
QString only(LogCapture &log)
{
    const QVector<LogLine> lines = log.take();
    if (lines.size() != 1)
        return QString("%1 lines").arg(lines.size());
    const LogLine &line = lines[0];
    const QString tag = line.type == QtDebugMsg ? "[DBG]" : "[ERR]";
    const QString front =
        QStringList{tag, thisThread(), line.function, QString::number(line.line), "--"}.join(' ');
    if (!line.text.startsWith(front))
        return "bad front: " + line.text;
    return QStringList{tag, line.category, line.file, line.function}.join('|') +
           line.text.mid(front.size());
}

void traced(int depth)
{
    AutoPrint trace(depth == 0 ? "inner" : "outer", depth);
    if (depth > 0)
        traced(depth - 1);
}

/// A line of the tracer with the parts that vary left out.
QString withoutVarying(QString text)
{
    text.replace("[DBG] " + thisThread(), "[DBG] <tid>");
    return text.replace(QRegularExpression("\\[--ExecTime--\\] \\d+$"), "[--ExecTime--] <ms>");
}

} // namespace

class tst_Log : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lineHasItemsAndContext()
    {
        const QString place = QString("|default|tests/tst_log.cpp|") + Q_FUNC_INFO;
        LogCapture log;
        MCU_DEBUG << "value=" << 3 << QString("a \"b\"") << true << QByteArray("0aff");
        QCOMPARE(only(log), "[DBG]" + place + " value= 3 \"a \\\"b\\\"\" true \"0aff\"");
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
        MCU_CRITICAL << "no radio" << -1;
        QCOMPARE(only(log), "[ERR]" + place + " no radio -1");
    }

    void lineKnowsItsNumber()
    {
        LogCapture log;
        const int next = __LINE__ + 1;
        MCU_DEBUG;
        QCOMPARE(log.take().value(0).line, next);
    }

    void lineOfTheLibraryNamesItsSource()
    {
        mcu::McuService service;
        LogCapture log;
        service.notifyDabMcuRequest(6, 7);
        QCOMPARE(only(log), QString("[DBG]|default|service/mcunotifications.cpp|"
                                    "void mcu::McuService::notifyDabMcuRequest(int, int) 6 7"));
        service.init(); // not with the signature that the compiler gives
        QCOMPARE(log.take().value(0).function, QString("void mcu::McuService::init()"));
    }

    void threadIdIsTheKernels()
    {
        LogCapture log;
        const auto loggedId = [&log] {
            MCU_DEBUG;
            return log.take().value(0).text.section(' ', 1, 1);
        };
        QString idOfOther;
        std::thread([&] { idOfOther = loggedId() == thisThread() ? thisThread() : ""; }).join();
        QVERIFY(!idOfOther.isEmpty() && idOfOther != thisThread());
        QCOMPARE(loggedId(), thisThread()); // an id kept from here would be wrong in the child
        const pid_t child = fork();
        if (child == 0)
            _exit(loggedId() == QString::number(getpid()) ? 0 : 1);
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
    }

    void nothingIsEvaluatedWhileSilent()
    {
        int evaluated = 0;
        LogCapture log;
        MCU_DEBUG << ++evaluated;
        QCOMPARE(evaluated, 1);
        QLoggingCategory *category = QLoggingCategory::defaultCategory();
        category->setEnabled(QtDebugMsg, false);
        category->setEnabled(QtCriticalMsg, false);
        MCU_DEBUG << ++evaluated;
        MCU_CRITICAL << ++evaluated;
        traced(1);
        category->setEnabled(QtCriticalMsg, true);
        QCOMPARE(evaluated, 1);
        QCOMPARE(log.take().size(), 1);
    }

    void tracerLinesNest()
    {
        LogCapture log;
        traced(1);
        QStringList texts;
        for (const LogLine &line : log.take()) {
            texts.append(withoutVarying(line.text));
            QCOMPARE(line.type, QtDebugMsg);
            QCOMPARE(line.category + ' ' + line.file, QString("default include/debug"));
            QCOMPARE(QString(line.function).remove(' '),
                     QString(line.text.endsWith("[--IN--]") ? "AutoPrint::AutoPrint(constchar*,int)"
                                                            : "AutoPrint::~AutoPrint()"));
        }
        QCOMPARE(texts, (QStringList{R"([DBG] <tid> "outer" "1" [--IN--])",
                                     R"([DBG] <tid> "inner" "0" [--IN--])",
                                     R"([DBG] <tid> "inner" "0" [--ExecTime--] <ms>)",
                                     R"([DBG] <tid> "inner" "0" [--OUT--])",
                                     R"([DBG] <tid> "outer" "1" [--ExecTime--] <ms>)",
                                     R"([DBG] <tid> "outer" "1" [--OUT--])"}));
    }

    void tracerQuotesItsName()
    {
        const std::pair<const char *, const char *> names[]{
            {"f(\"x\")\\\n", "\"f(\\\"x\\\")\\\\\\n\""},
            {"T\xc3\xbcr", "\"T\xc3\xbcr\""},
            {"", "\"\""}};
        for (const auto &[name, shown] : names) {
            LogCapture log;
            AutoPrint(name, -7);
            QCOMPARE(withoutVarying(log.take().value(0).text),
                     QString("[DBG] <tid> %1 \"-7\" [--IN--]").arg(shown));
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Log>(argc, argv); }
#include "tst_log.moc"
