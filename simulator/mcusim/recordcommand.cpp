// mcusim record: what goes in and comes out of a running application, as a recording.
#include "commandline.h"
#include "liveclient.h"
#include "process.h"

#include "sinks.h"
#include "substituteplatform.h"

#include <QFile>

namespace mcusim {

namespace {

/// Each line is in the file as soon as it comes. A file that is full becomes FILE.1, what was that
/// FILE.2 and so on; each is a whole recording.
class Recording : public Sink {
public:
    Recording(const QString &path, const QString &description, qint64 largest, int kept)
        : m_path(path), m_metadata{description, true, true, true}, m_largest(largest), m_kept(kept)
    {
        open();
    }
    ~Recording() override
    {
        if (m_file)
            finish();
    }
    Recording(const Recording &) = delete;
    Recording &operator=(const Recording &) = delete;

    /// Throws a Refusal when something cannot be written.
    void hear(const Event &event) override
    {
        if (m_largest > 0 && std::ftell(m_file) >= m_largest) {
            finish();
            rotate();
            open();
        }
        m_recorder->hear(event);
        m_last = event.time;
        if (std::ferror(m_file) != 0)
            refuse();
    }

private:
    void open()
    {
        m_file = std::fopen(QFile::encodeName(m_path).constData(), "we");
        if (!m_file)
            refuse();
        std::setvbuf(m_file, nullptr, _IOLBF, 0);
        m_recorder.emplace(m_file, m_metadata);
        if (std::ferror(m_file) != 0)
            refuse();
    }

    void finish()
    {
        m_recorder->finish(m_last);
        std::fclose(m_file);
    }

    void rotate()
    {
        const auto path = [this](int number) { return QFile::encodeName(numbered(number)); };
        int last = 1;
        while (last != m_kept && QFile::exists(numbered(last)))
            ++last;
        for (int number = last; number > 0; --number)
            std::rename(path(number - 1).constData(), path(number).constData());
    }

    QString numbered(int number) const
    {
        return number == 0 ? m_path : m_path + '.' + QString::number(number);
    }

    [[noreturn]] void refuse() const
    {
        throw Refusal("cannot write " + m_path + ": " + qt_error_string());
    }

    QString m_path;
    JsonLinesFile::Metadata m_metadata;
    qint64 m_largest;
    int m_kept;
    std::FILE *m_file = nullptr;
    std::optional<Recorder> m_recorder;
    qint64 m_last = 0;
};

} // namespace

int recordCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"record",
         "[NAME] FILE",
         "Records what goes in and comes out of a running application, until it ends or Ctrl-C.",
         {{"max-size", "MIB", "Begin a new file at this size; the last one becomes FILE.1."},
          {"keep", "N", "Keep N of the files before the last one; 0, as without it, all."}}});
    line.expectOperands(1, 2, "a file, and the application's name before it");
    constexpr double bytes = 1 << 20; // of a MiB
    const auto largest = qint64(line.number("max-size", 0) * bytes);
    const int kept = line.count("keep", 0);
    SubstitutePlatform platform;
    const Catalogue names(platform);
    noteInterrupts();
    LiveClient client(
        names, findProcess(line.operands().size() > 1 ? line.operands().first() : QString()));
    Recording recording(line.operands().last(), "recorded in " + client.process().text(), largest,
                        kept);
    client.addSink(&recording);
    int status = Passed;
    client.onMissed = [&](qint64 count) {
        complain(client.process().text() + ": " + counted(count, "event") + " missed");
        status = Failed;
    };
    constexpr int interval = 200;
    while (client.receive(interval) && !wasInterrupted()) {
    }
    return status;
}

} // namespace mcusim
