// Shared by the test programs: records emitted signals and log lines as texts, for use in tables.
#pragma once

#include "signaltap.h"
#include "substitutelog.h"
#include "virtualclock.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QStringList>
#include <QTest>
#include <QVector>

#include <memory>
#include <vector>

namespace testkit {

/// A value as text: 5, true, "text", [1,2], 0x0aff; fifteen equal bytes as 0x00*15.
inline QString show(const QVariant &value)
{
    const QByteArray bytes = value.toByteArray();
    switch (int(value.type())) {
    case QVariant::String:
    case QVariant::List: {
        const QJsonDocument json(QJsonArray{QJsonValue::fromVariant(value)});
        return QString::fromUtf8(json.toJson(QJsonDocument::Compact)).mid(1).chopped(1);
    }
    case QVariant::ByteArray:
        if (bytes.size() > 5 && bytes.count(bytes[0]) == bytes.size())
            return show(bytes.left(1)) + '*' + QString::number(bytes.size());
        return "0x" + QString::fromLatin1(bytes.toHex());
    default:
        return value.toString();
    }
}

/// A call or a signal as text: keyEvent(5,1).
inline QString show(const QString &name, const QVariantList &arguments)
{
    QStringList texts;
    for (const QVariant &argument : arguments)
        texts.append(show(argument));
    return name + '(' + texts.join(',') + ')';
}

/// The arguments 1, 2, 3 ... in the types of a method; booleans are true and false in turn.
inline QVariantList countedArguments(const QMetaMethod &method)
{
    QVariantList arguments;
    for (int number = 1; number <= method.parameterCount(); ++number) {
        const int type = method.parameterType(number - 1);
        arguments.append(type == QMetaType::Bool ? number % 2 : number);
        arguments.last().convert(type);
    }
    return arguments;
}

/// Records emitted signals and calls of platform classes in one order, as texts.
class Trace {
public:
    Trace() = default;
    Trace(const Trace &) = delete;
    Trace &operator=(const Trace &) = delete;
    ~Trace()
    {
        for (substitute::CallLog *log : m_logs)
            log->setListener(nullptr);
    }

    /// Records all signals of an object from now on.
    void listen(const QObject *source, const QString &prefix = QString())
    {
        m_taps.push_back(std::make_unique<substitute::SignalTap>(
            source, [this, prefix](const QMetaMethod &signal, const QVariantList &arguments) {
                note(prefix + show(signal.name(), arguments));
            }));
    }
    /// Records all calls that a substitute receives from now on.
    void listen(substitute::CallLog &log, const QString &prefix = QString())
    {
        log.setListener([this, prefix](const substitute::Call &call) {
            note(prefix + show(call.name, call.arguments));
        });
        m_logs.push_back(&log);
    }
    void note(const QString &text) { m_texts.append(text); }

    /// The records since the last call.
    QStringList take() { return std::exchange(m_texts, {}); }

private:
    QStringList m_texts;
    std::vector<std::unique_ptr<substitute::SignalTap>> m_taps;
    std::vector<substitute::CallLog *> m_logs;
};

/// Records the signals of one object in order, as texts.
class Emissions : public Trace {
public:
    explicit Emissions(const QObject *source) { listen(source); }
};

/// A message of the Qt message logger with its context.
struct LogLine {
    QtMsgType type;
    QString text;
    QString category;
    QString file;
    int line;
    QString function;
};

/// While it exists, debug output is on and log lines are recorded instead of printed.
class LogCapture {
public:
    LogCapture() : m_previous(qInstallMessageHandler(&LogCapture::keep))
    {
        lines().clear();
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
    }
    ~LogCapture()
    {
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
        qInstallMessageHandler(m_previous);
    }
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QVector<LogLine> take() { return std::exchange(lines(), {}); }
    /// The texts after the "--" of each line since the last call.
    QStringList takeTexts()
    {
        QStringList texts;
        for (const LogLine &line : take())
            texts.append(line.text.mid(line.text.indexOf(QLatin1String(" -- ")) + 4));
        return texts;
    }

private:
    static QVector<LogLine> &lines()
    {
        static QVector<LogLine> kept;
        return kept;
    }
    static void keep(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        lines().append(
            {type, text, context.category, context.file, context.line, context.function});
        if (type == QtWarningMsg || type == QtFatalMsg) // ends the program
            fprintf(stderr, "%s\n", qPrintable(text));
    }

    QtMessageHandler m_previous;
};

/// An application on a virtual clock. A Qt warning ends it, so that a connection that fails is
/// always noticed. The debug lines of the library are off.
struct Application {
    Application(int &argc, char **argv) : application(argc, argv)
    {
        qputenv("QT_FATAL_WARNINGS", "1");
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    }

    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    QCoreApplication application;
};

/// Runs a test object in such an application. A test without a default constructor gets the clock.
template <typename Test>
int run(int argc, char **argv)
{
    const Application application(argc, argv);
    const auto execute = [&](auto &&test) { return QTest::qExec(&test, argc, argv); };
    if constexpr (std::is_default_constructible_v<Test>)
        return execute(Test());
    else
        return execute(Test(application.clock));
}

} // namespace testkit
