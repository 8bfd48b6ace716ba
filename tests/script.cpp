#include "script.h"

#include "stage.h"

#include <QFile>
#include <QRegularExpression>

#include <climits>

#include <sys/syscall.h>
#include <unistd.h>

namespace testkit {

namespace {

/// How many times a row with letters is played.
constexpr int rounds = 4;

/// The value of the letter at a place.
QString anyValue(int type, int round, int place)
{
    const int numbers[rounds]{10, -51, INT_MAX - 20, INT_MIN};
    const QString texts[rounds]{"a%1", "é€%1", "\U0001f697 \"%1\"", ""};
    switch (type) {
    case QMetaType::Bool:
        return show((round + place) % 2 == 0);
    case QMetaType::QString:
        return show(texts[round].contains('%') ? texts[round].arg(place) : texts[round]);
    case QMetaType::QByteArray:
        return show(QByteArray("\xff\x00\x7f", round) + QByteArray(round, char(place)));
    default:
        return show(numbers[round] + place);
    }
}

/// The row with values for the letters among its arguments; unchanged if it has none.
Row filled(Row row, const QVector<int> &types, int round)
{
    const QStringList arguments =
        splitOutside(row.stimulus.section('(', 1).section(')', 0, -2), ",");
    static const QRegularExpression letter("^[a-z]$");
    for (int place = 0; place < arguments.size(); ++place) {
        if (!letter.match(arguments[place]).hasMatch())
            continue;
        const QRegularExpression use("(?<![\\w\".])" + arguments[place] + "(?![\\w\"(:])");
        const QString value = anyValue(types.value(place), round, place);
        for (QString *text : {&row.stimulus, &row.effects, &row.log})
            text->replace(use, value);
    }
    return row;
}

/// A log line without the items that all lines have: its function without the class, and its text.
QString logText(const LogLine &line)
{
    const QString tag = line.type == QtDebugMsg ? "[DBG]" : "[ERR]";
    const QString front = QStringList{tag, QString::number(syscall(SYS_gettid)), line.function,
                                      QString::number(line.line), "--"}
                              .join(' ');
    if (!line.text.startsWith(front) || line.category != "default" || line.file.startsWith('/'))
        return "bad front: " + line.text;
    static const QRegularExpression function("([~\\w]+)\\(");
    const QString text = line.text.mid(front.size()).replace('\n', "\\n").simplified();
    const QString mark = line.type == QtDebugMsg ? "" : "[ERR] ";
    return (mark + function.match(line.function).captured(1) + ": " + text).trimmed();
}

/// The equal beginning, then the expected (-) and the received (+) texts from the first difference
/// on.
QString difference(QStringList wanted, QStringList received)
{
    QString text;
    for (; !wanted.isEmpty() && wanted.value(0) == received.value(0); received.removeFirst())
        text += "      " + wanted.takeFirst() + '\n';
    for (const QString &one : qAsConst(wanted))
        text += "    - " + one + '\n';
    for (const QString &one : qAsConst(received))
        text += "    + " + one + '\n';
    return text;
}

QString playRow(const Row &row, Stage &stage, LogCapture *capture)
{
    const QStringList received = stage.play(row.stimulus);
    const QStringList wanted = splitOutside(row.effects, " ");
    QStringList logged, wantedLog = splitOutside(row.log, " | ");
    if (capture) {
        for (const LogLine &line : capture->take())
            logged.append(logText(line));
    }
    if (!capture || row.log.isNull())
        wantedLog = logged;
    if (received == wanted && logged == wantedLog)
        return {};
    return QString(":%1: %2\n").arg(row.line).arg(row.stimulus) + difference(wanted, received) +
           (logged == wantedLog ? QString() : "    log:\n" + difference(wantedLog, logged));
}

Row parsedRow(int number, const QString &line)
{
    static const QRegularExpression logMark(" --( |$)");
    const int log = line.indexOf(logMark);
    const QString row = line.left(log);
    const int arrow = row.indexOf(" -> ");
    return {number, row.left(arrow).trimmed(), arrow < 0 ? QString() : row.mid(arrow + 4),
            log < 0 ? QString() : "" + line.mid(log + 3).trimmed()};
}

/// The section once for each value of the name in ", for X in 1 3 5..8".
QVector<Section> expanded(const Section &section)
{
    static const QRegularExpression loop("^(.*), for ([A-Z]+) in (.*)$");
    const QRegularExpressionMatch match = loop.match(section.title);
    if (!match.hasMatch())
        return {section};
    QVector<Section> sections;
    for (const QString &item : match.captured(3).split(' ')) {
        const qint64 first = item.section("..", 0, 0).toInt();
        for (qint64 value = first; value <= item.section("..", -1).toInt(); ++value) {
            sections.append({section.file, match.captured(1), section.rows});
            const QRegularExpression use("\\b" + match.captured(2) + "\\b");
            for (Row &row : sections.last().rows) {
                for (QString *text : {&row.stimulus, &row.effects, &row.log})
                    text->replace(use, QString::number(value));
            }
        }
    }
    return sections;
}

} // namespace

QVector<Section> readScript(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QVector<Section> sections;
    QVector<QPair<QRegularExpression, QString>> words;
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    for (int number = 1; !lines.isEmpty(); ++number) {
        QString line = lines.takeFirst();
        const int first = number;
        for (; lines.value(0).startsWith(' '); ++number)
            line += ' ' + lines.takeFirst().trimmed();
        for (const auto &[word, meaning] : qAsConst(words))
            line.replace(word, meaning);
        if (line.startsWith("let "))
            words.append({QRegularExpression("\\b" + line.section(' ', 1, 1) + "\\b"),
                          line.section('=', 1).trimmed()});
        else if (line.startsWith("== "))
            sections.append({path, line.mid(3), {}});
        else if (!line.isEmpty() && !line.startsWith('#'))
            sections.last().rows.append(parsedRow(first, line));
    }
    QVector<Section> all;
    for (const Section &section : qAsConst(sections))
        all += expanded(section);
    return all;
}

QString playSection(const Section &section, substitute::VirtualClock *clock)
{
    for (const Stage::Inputs inputs : {Stage::Inputs::MainThread, Stage::Inputs::OtherThread}) {
        const auto stage = std::make_unique<Stage>(clock, inputs); // in memory that is not 0
        const bool isLogged = inputs == Stage::Inputs::MainThread;
        LogCapture capture;
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, isLogged);
        for (const Row &row : section.rows) {
            static const QRegularExpression letters("[(,][a-z][,)]");
            const bool hasLetters = letters.match(row.stimulus).hasMatch();
            const auto types = hasLetters ? stage->parameterTypes(row.stimulus) : QVector<int>();
            for (int round = 0; round < (hasLetters ? rounds : 1); ++round) {
                const QString failure =
                    playRow(filled(row, types, round), *stage, isLogged ? &capture : nullptr);
                if (!failure.isEmpty())
                    return section.file + failure + "    in: " + section.title +
                           (isLogged ? "\n" : ", with inputs from another thread\n");
            }
        }
    }
    return {};
}

} // namespace testkit
