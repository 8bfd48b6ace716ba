// The reader thread of the substitute link: runs what it is handed, in order, in a thread of its
// own.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace substitute {

/// The thread starts with the first job. It ends with the application object, so that nothing is
/// posted to an event loop that is going, and starts again when there is another job.
class ReaderThread {
public:
    static ReaderThread &instance();
    ~ReaderThread();

    /// Hands over a job; it runs after all earlier ones.
    void post(std::function<void()> job);
    /// Waits until every job so far has run.
    void drain();

private:
    ReaderThread() = default;

    static void stopWithApplication();
    void stop();
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs; ///< the front one is under way
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace substitute
