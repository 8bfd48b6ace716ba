#include "verdicts.h"

#include "values.h"

#include <QXmlStreamWriter>

#include <algorithm>

#include <sys/wait.h>
#include <unistd.h>

namespace mcusim {

JUnitFile::JUnitFile(const QString &path) : m_file(path)
{
    if (!path.isEmpty() && !m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw Refusal("cannot write " + path + ": " + m_file.errorString());
    frame("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n");
}

void JUnitFile::write(const QString &suite, const QVector<Verdict> &verdicts, bool isUsable)
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    const auto failed = std::count_if(verdicts.begin(), verdicts.end(), [](const Verdict &verdict) {
        return !verdict.faults.isEmpty();
    });
    xml.writeStartElement("testsuite");
    xml.writeAttribute("name", printable(suite));
    xml.writeAttribute("tests", QString::number(verdicts.size()));
    xml.writeAttribute("failures", QString::number(isUsable ? failed : 0));
    xml.writeAttribute("errors", QString::number(isUsable ? 0 : failed));
    for (const Verdict &verdict : verdicts) {
        xml.writeStartElement("testcase");
        xml.writeAttribute("name", printable(verdict.name));
        xml.writeAttribute("classname", "mcusim");
        xml.writeAttribute("time", seconds(verdict.duration));
        for (const QString &fault : verdict.faults) {
            xml.writeStartElement(isUsable ? "failure" : "error");
            xml.writeAttribute("message", printable(fault));
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
    frame(text.constData());
}

void JUnitFile::frame(const char *text)
{
    if (m_file.isOpen() && m_file.write(text) < 0)
        throw Refusal("cannot write " + m_file.fileName() + ": " + m_file.errorString());
}

int runEach(const QStringList &files, JUnitFile &junit,
            const std::function<int(const QString &file)> &run)
{
    const auto runOne = [&](const QString &file) {
        try {
            return run(file);
        } catch (const Refusal &refusal) {
            complain(refusal.text());
            junit.write(file, {{file, 0, {refusal.text()}}}, false);
            return int(Unusable);
        }
    };
    int worst = Passed;
    for (const QString &file : files) {
        if (files.size() == 1) {
            worst = runOne(file);
            break;
        }
        std::fflush(stdout);
        const pid_t child = fork();
        if (child < 0)
            throw Refusal("cannot start a process: " + qt_error_string());
        if (child == 0)
            std::exit(written(runOne(file)));
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
        }
        if (!WIFEXITED(status))
            complain(file + ": ended by signal " + QString::number(WTERMSIG(status)));
        worst = std::max(worst, WIFEXITED(status) ? WEXITSTATUS(status) : int(Unusable));
        if (wasInterrupted())
            break;
    }
    junit.frame("\n</testsuites>\n");
    return worst;
}

} // namespace mcusim
