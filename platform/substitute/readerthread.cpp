// The reader thread of the substitute link.
#include "readerthread.h"

#include <QCoreApplication>

#include <utility>

namespace substitute {

ReaderThread &ReaderThread::instance()
{
    static ReaderThread reader;
    return reader;
}

ReaderThread::~ReaderThread()
{
    qRemovePostRoutine(stopWithApplication);
    stop();
}

void ReaderThread::post(std::function<void()> job)
{
    const std::lock_guard lock(m_mutex);
    m_jobs.push_back(std::move(job));
    if (!m_thread.joinable()) {
        m_thread = std::thread(&ReaderThread::run, this);
        qAddPostRoutine(stopWithApplication);
    }
    m_changed.notify_all();
}

void ReaderThread::drain()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_jobs.empty(); });
}

void ReaderThread::stopWithApplication() { instance().stop(); }

void ReaderThread::stop()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_changed.notify_all();
    }
    m_thread.join();
    m_thread = {};
    m_jobs.clear();
    m_stopping = false;
}

void ReaderThread::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
        if (m_stopping)
            return;
        const auto &job = m_jobs.front();
        lock.unlock();
        job();
        lock.lock();
        m_jobs.pop_front();
        m_changed.notify_all();
    }
}

} // namespace substitute
