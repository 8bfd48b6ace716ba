#include "liverecorder.h"

#include "complain.h"
#include "refusal.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

/// Throws a Refusal.
std::FILE *opened(const QByteArray &path)
{
    constexpr mode_t mode = 0666;
    const QString name = QFile::decodeName(path);
    // Not waiting for a reader of a pipe, nor for another process that records there: that is a
    // child of this one or its parent, with the same settings.
    const int file = open(path.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, mode);
    struct stat about {};
    if (file < 0 || fstat(file, &about) != 0)
        throw Refusal("cannot write " + name + ": " + qt_error_string());
    const bool isKnown = S_ISREG(about.st_mode) || S_ISCHR(about.st_mode);
    const bool isFree = isKnown && flock(file, LOCK_EX | LOCK_NB) == 0;
    if (!isFree) {
        close(file);
        throw Refusal(name + (isKnown ? ": another process records there"
                                      : ": expected a file, for the recording"));
    }
    if (S_ISREG(about.st_mode) && ftruncate(file, 0) != 0) {
        const int error = errno;
        close(file);
        throw Refusal("cannot write " + name + ": " + qt_error_string(error));
    }
    return fdopen(file, "w");
}

} // namespace

LiveRecorder::LiveRecorder(const QByteArray &path, const QString &program)
    : m_path(QFile::decodeName(path)), m_file(opened(path))
{
    constexpr std::size_t longLine = 1 << 16;
    std::setvbuf(m_file.get(), nullptr, _IOLBF, longLine);
    JsonLinesFile::Metadata metadata;
    metadata.description = program;
    metadata.recording = metadata.end = metadata.live = true;
    m_recorder.emplace(m_file.get(), metadata);
    check();
}

void LiveRecorder::hear(const Event &event)
{
    if (!m_file)
        return;
    try {
        m_recorder->hear(event);
        check();
    } catch (const Refusal &refusal) {
        complain(refusal);
    }
}

void LiveRecorder::finish(qint64 time)
{
    if (m_file)
        m_recorder->finish(time);
    m_file.reset();
}

void LiveRecorder::check()
{
    if (std::ferror(m_file.get()) == 0)
        return;
    const int error = errno;
    m_file.reset();
    throw Refusal("cannot write " + m_path + ": " + qt_error_string(error) +
                  "; the recording ends");
}

} // namespace mcusim::probe
