// mcusim station: single packets by name or by bytes, or a whole sequence with a verdict.
#include "catalogue.h"
#include "commands.h"
#include "station.h"

#include "mcuservice.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QXmlStreamWriter>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace mcusim {

namespace {

/// Shows bytes and, where they are one packet, what they say.
void printPacket(qint64 time, const char *sender, const QByteArray &bytes)
{
    StationPacket packet;
    bool good = false;
    const QString text = takeApart(bytes, &packet, &good)
                             ? packet.text() + QLatin1String(good ? "" : "  BAD CHECKSUM")
                             : QStringLiteral("(no single whole packet)");
    std::printf("%9.3f  %-7s  %-36s  %s\n", double(time) / 1000, sender,
                bytes.toHex(' ').toUpper().constData(), qUtf8Printable(text));
}

void printSignal(qint64 time, const QString &name, const QVariantList &values)
{
    QStringList texts;
    for (const QVariant &value : values)
        texts.append(shown(value));
    std::printf("%9.3f  %-7s  %s(%s)\n", double(time) / 1000, "  apps", qUtf8Printable(name),
                qUtf8Printable(texts.join(QStringLiteral(", "))));
}

/// The library writes its traffic raw to standard error, which would stand between the lines here.
void silenceStandardError()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

bool writeJUnit(const QString &fileName, const StationSequence &sequence,
                const QVector<StationResult> &results, int failed)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("testsuite"));
    xml.writeAttribute(QStringLiteral("name"), sequence.description);
    xml.writeAttribute(QStringLiteral("tests"), QString::number(results.size()));
    xml.writeAttribute(QStringLiteral("failures"), QString::number(failed));
    for (int i = 0; i < results.size(); ++i) {
        xml.writeStartElement(QStringLiteral("testcase"));
        xml.writeAttribute(QStringLiteral("name"), sequence.tests[i].name);
        xml.writeAttribute(QStringLiteral("classname"), QStringLiteral("station"));
        xml.writeAttribute(QStringLiteral("time"),
                           QString::number(double(results[i].duration) / 1000, 'f', 3));
        for (const QString &fault : results[i].faults) {
            xml.writeStartElement(QStringLiteral("failure"));
            xml.writeAttribute(QStringLiteral("message"), fault);
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return file.flush() && !xml.hasError();
}

/// The packets of the command line as a test that expects nothing in particular.
bool readPackets(const QStringList &texts, StationSequence *sequence, QString *error)
{
    StationTest test;
    test.status = 1;
    for (const QString &text : texts) {
        QByteArray bytes;
        StationPacket packet;
        if (readHex(text, &bytes) && !bytes.isEmpty())
            test.chunks.append(bytes);
        else if (readPacket(text, &packet, error))
            test.chunks.append(packet.bytes());
        else
            return false;
    }
    sequence->tests.append(test);
    return true;
}

int runSequence(const StationSequence &sequence, Station &station, const QString &junit)
{
    QVector<StationResult> results;
    int failed = 0;
    for (const StationTest &test : sequence.tests) {
        results.append(station.run(test));
        const QStringList &faults = results.last().faults;
        failed += faults.isEmpty() ? 0 : 1;
        std::printf("%s  %s\n", faults.isEmpty() ? "PASS" : "FAIL", qUtf8Printable(test.name));
        for (const QString &fault : faults)
            std::printf("      line %d: %s\n", test.line, qUtf8Printable(fault));
    }
    std::printf("\n%s: %d passed, %d failed\n", qUtf8Printable(sequence.description),
                results.size() - failed, failed);
    if (!junit.isEmpty() && !writeJUnit(junit, sequence, results, failed)) {
        std::printf("cannot write %s\n", qUtf8Printable(junit));
        return Unusable;
    }
    return failed == 0 ? Passed : Failed;
}

} // namespace

int stationCommand(const QStringList &arguments, substitute::VirtualClock *clock)
{
    const QCommandLineOption listOption(QStringLiteral("list"),
                                        QStringLiteral("Show all types and DIDs by name."));
    const QCommandLineOption sendOption(
        QStringLiteral("send"),
        QStringLiteral("Send packets by name or chunks by bytes instead of a sequence."));
    const QCommandLineOption junitOption(QStringLiteral("junit"),
                                         QStringLiteral("Write the verdicts as JUnit XML."),
                                         QStringLiteral("FILE"));
    const QCommandLineOption quietOption(QStringLiteral("quiet"),
                                         QStringLiteral("Show the verdicts alone."));
    const QCommandLineOption rawOption(
        QStringLiteral("raw"), QStringLiteral("Keep the library's raw lines on standard error."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A factory test station at the desk.\n\n"
                       "  mcusim station SEQUENCE                       runs a test sequence\n"
                       "  mcusim station --send 'read SOUND 02'         sends a packet by name\n"
                       "  mcusim station --send 'FF 55 02 21 01 DC'     sends bytes as they are"));
    parser.addOption(helpOption());
    parser.addOptions({listOption, sendOption, junitOption, quietOption, rawOption});
    parser.addPositionalArgument(QStringLiteral("station"), QString());
    parser.addPositionalArgument(QStringLiteral("SEQUENCE"),
                                 QStringLiteral("the sequence, or with --send the packets"));
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return unusable(parser.errorText() + QStringLiteral("; see mcusim station --help"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(Passed);
    const QStringList values = parser.positionalArguments().mid(1);
    if (parser.isSet(listOption)) {
        for (const QString &line : didList())
            std::printf("%s\n", qUtf8Printable(line));
        return written(Passed);
    }
    const bool single = parser.isSet(sendOption);
    if (values.isEmpty() || (!single && values.size() != 1))
        return unusable(QStringLiteral("station expects one sequence, or --send and packets; "
                                       "see mcusim station --help"));

    StationSequence sequence;
    QString error;
    if (single) {
        if (!readPackets(values, &sequence, &error))
            return unusable(error);
    } else {
        QFile file(values.first());
        if (!file.open(QIODevice::ReadOnly)) {
            return unusable(
                QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString()));
        }
        if (!readSequence(file.readAll(), &sequence, &error))
            return unusable(QStringLiteral("%1: %2").arg(file.fileName(), error));
    }

    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    QLoggingCategory::defaultCategory()->setEnabled(QtCriticalMsg, parser.isSet(rawOption));
    if (!parser.isSet(rawOption))
        silenceStandardError();
    const bool quiet = parser.isSet(quietOption);
    Station station(
        clock,
        [quiet](qint64 time, Station::Sender sender, const QByteArray &bytes) {
            if (!quiet)
                printPacket(time, sender == Station::Sender::Station ? "station" : "unit", bytes);
        },
        [quiet](qint64 time, const QString &name, const QVariantList &signalValues) {
            if (!quiet)
                printSignal(time, name, signalValues);
        });
    mcu::McuService::instance()->init();
    if (single) {
        station.run(sequence.tests.first());
        return Passed;
    }
    return runSequence(sequence, station, parser.value(junitOption));
}

} // namespace mcusim
