#include "verdicts.h"

#include "process.h"
#include "values.h"

#include <QDataStream>
#include <QXmlStreamWriter>

#include <algorithm>

#include <sys/wait.h>
#include <unistd.h>

namespace mcusim {

namespace {

using Run = std::function<QVector<Verdict>(const QString &file)>;

QVector<Verdict> runOne(const QString &file, const Run &run)
{
    try {
        return run(file);
    } catch (const Refusal &refusal) {
        complain(refusal.text());
        return {{file, Unusable, 0, {refusal.text()}}};
    }
}

/// In a child, which hands its verdicts back through a pipe.
QVector<Verdict> runApart(const QString &file, const Run &run)
{
    int ends[2];
    std::fflush(nullptr);
    const pid_t child = pipe(ends) == 0 ? fork() : -1;
    if (child < 0)
        throw Refusal("cannot start a process: " + qt_error_string());
    QFile channel;
    if (child == 0) {
        close(ends[0]);
        QVariantList verdicts;
        for (const Verdict &verdict : runOne(file, run))
            verdicts += {verdict.name, verdict.status, verdict.duration, verdict.faults};
        QDataStream stream(&channel);
        if (channel.open(ends[1], QIODevice::WriteOnly))
            stream << verdicts;
        channel.close();
        std::exit(written(Passed));
    }
    close(ends[1]);
    QVariantList sent;
    QByteArray bytes;
    if (channel.open(ends[0], QIODevice::ReadOnly, QFile::AutoCloseHandle))
        bytes = channel.readAll();
    QDataStream stream(bytes);
    stream >> sent;
    QVector<Verdict> verdicts;
    for (int i = 0; i + 3 < sent.size(); i += 4) {
        verdicts.append({sent[i].toString(), sent[i + 1].toInt(), sent[i + 2].toLongLong(),
                         sent[i + 3].toStringList()});
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (status != 0)
        verdicts.append({file, Unusable, 0, {QStringLiteral("did not end as it should")}});
    return verdicts;
}

} // namespace

QVector<Verdict> runEach(const QStringList &files, const Run &run)
{
    QVector<Verdict> verdicts;
    for (const QString &file : files) {
        if (!wasInterrupted())
            verdicts += files.size() == 1 ? runOne(file, run) : runApart(file, run);
    }
    return verdicts;
}

int worst(const QVector<Verdict> &verdicts)
{
    int status = wasInterrupted() ? Interrupted : Passed;
    for (const Verdict &verdict : verdicts)
        status = std::max(status, verdict.status);
    return status;
}

JUnitFile::JUnitFile(const QString &path) : m_file(path)
{
    if (!path.isEmpty() && !m_file.open(QIODevice::WriteOnly))
        refuse();
}

void JUnitFile::write(const QString &suite, const QVector<Verdict> &verdicts)
{
    if (!m_file.isOpen())
        return;
    const auto count = [&verdicts](int status) {
        return QString::number(
            std::count_if(verdicts.begin(), verdicts.end(),
                          [status](const Verdict &verdict) { return verdict.status == status; }));
    };
    QXmlStreamWriter xml(&m_file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("testsuite"));
    xml.writeAttribute(QStringLiteral("name"), printable(suite));
    xml.writeAttribute(QStringLiteral("tests"), QString::number(verdicts.size()));
    xml.writeAttribute(QStringLiteral("failures"), count(Failed));
    xml.writeAttribute(QStringLiteral("errors"), count(Unusable));
    for (const Verdict &verdict : verdicts) {
        xml.writeStartElement(QStringLiteral("testcase"));
        xml.writeAttribute(QStringLiteral("name"), printable(verdict.name));
        xml.writeAttribute(QStringLiteral("classname"), QStringLiteral("mcusim"));
        xml.writeAttribute(QStringLiteral("time"), seconds(verdict.duration));
        for (const QString &fault : verdict.faults) {
            xml.writeStartElement(verdict.status == Failed ? QStringLiteral("failure")
                                                           : QStringLiteral("error"));
            xml.writeAttribute(QStringLiteral("message"), printable(fault));
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    if (!m_file.flush() || xml.hasError())
        refuse();
}

void JUnitFile::refuse() const
{
    throw Refusal("cannot write " + m_file.fileName() + ": " + m_file.errorString());
}

} // namespace mcusim
