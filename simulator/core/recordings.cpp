#include "recordings.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <utility>

#include <sys/stat.h>

namespace mcusim {

namespace {

/// While it exists, a line beyond the largest file that the process may write is an error alone:
/// its signal would end the application that is recorded.
class WithoutSignal {
public:
    WithoutSignal()
    {
        sigemptyset(&m_signal);
        sigaddset(&m_signal, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &m_signal, &m_maskBefore);
    }
    ~WithoutSignal()
    {
        const timespec noWait{};
        sigtimedwait(&m_signal, nullptr, &noWait);
        pthread_sigmask(SIG_SETMASK, &m_maskBefore, nullptr);
    }
    WithoutSignal(const WithoutSignal &) = delete;
    WithoutSignal &operator=(const WithoutSignal &) = delete;

private:
    sigset_t m_signal;
    sigset_t m_maskBefore;
};

} // namespace

Recordings::Recordings(Open open, qint64 largest) : m_open(std::move(open)), m_largest(largest)
{
    begin(0);
}

void Recordings::hear(const Event &event)
{
    if (!m_file)
        return;
    if (m_largest > 0 && isOver(event)) {
        finish(event.time);
        begin(event.time);
    }
    m_last = event.time;
    Event counted = event;
    counted.time -= m_began;
    const WithoutSignal withoutSignal;
    m_recorder->hear(counted);
    check();
}

void Recordings::finish(qint64 time)
{
    const WithoutSignal withoutSignal;
    if (m_file)
        m_recorder->finish(time - m_began);
    m_file.reset();
}

bool Recordings::isOver(const Event &event)
{
    constexpr qint64 second = 1000;
    constexpr qint64 day = 86'400 * second;
    const qint64 largest = event.isInput() ? m_largest : m_largest + m_largest / 8;
    if (m_recorder->size() >= largest || event.time - m_began >= day)
        return true;
    if (event.time - m_looked < second)
        return false;
    m_looked = event.time;
    struct stat about {};
    return fstat(descriptor(), &about) == 0 && about.st_nlink == 0;
}

void Recordings::begin(qint64 time)
{
    constexpr std::size_t longLine = 1 << 16;
    Target next = m_open();
    m_path = next.path;
    m_file.reset(next.file);
    m_began = m_looked = time;
    std::setvbuf(next.file, nullptr, _IOLBF, longLine);
    const WithoutSignal withoutSignal;
    m_recorder.emplace(next.file, next.metadata);
    check();
}

void Recordings::check()
{
    if (std::ferror(m_file.get()) == 0)
        return;
    const int error = errno;
    m_file.reset();
    throw Refusal("cannot write " + m_path + ": " + qt_error_string(error) +
                  "; the recording ends");
}

} // namespace mcusim
