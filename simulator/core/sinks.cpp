#include "sinks.h"

namespace mcusim {

void Counters::hear(const Event &event)
{
    ++m_counts[int(event.what->kind)];
    const bool atOnce = event.time == std::exchange(m_time, event.time);
    if (m_waiting && (event.isInput() || !atOnce))
        ++m_unanswered[m_waiting];
    m_waiting = event.what->kind == Kind::Report ? event.what : nullptr;
}

QMap<QString, qint64> Counters::unanswered() const
{
    QMap<QString, qint64> byName;
    for (auto report = m_unanswered.begin(); report != m_unanswered.end(); ++report)
        byName[report.key()->name] = report.value();
    if (m_waiting)
        ++byName[m_waiting->name];
    return byName;
}

Recorder::Recorder(std::FILE *file, const JsonLinesFile::Metadata &metadata)
    : m_file(file), m_marksEnd(metadata.end)
{
    write(writtenMetadata(metadata));
}

void Recorder::finish(qint64 time)
{
    if (m_marksEnd)
        write(writtenEnd(time));
}

void Recorder::write(const QByteArray &line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), m_file);
    std::fputc('\n', m_file);
    m_size += line.size() + 1;
}

Filter::Filter(const Catalogue &names, const QStringList &only, const QStringList &except)
{
    for (const QString &glob : only.isEmpty() ? QStringList("*") : only) {
        const QVector<const Signature *> matching = names.like(glob);
        for (const Signature *signature : matching)
            m_shown.insert(signature);
    }
    for (const QString &glob : except) {
        const QVector<const Signature *> matching = names.like(glob);
        for (const Signature *signature : matching)
            m_shown.remove(signature);
    }
}

} // namespace mcusim
