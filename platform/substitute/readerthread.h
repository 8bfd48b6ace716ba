// The reader thread of the substitute link: a thread that runs posted jobs in their order.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace substitute {

/// The thread starts with the first job. It ends with the application object, so that no job uses
/// an event loop that no longer exists. The next job starts it again.
class ReaderThread {
public:
    static ReaderThread &instance();
    ~ReaderThread();

    /// Adds a job; it runs after all earlier ones.
    void post(std::function<void()> job);
    /// Waits until all jobs have run.
    void drain();

private:
    ReaderThread() = default;

    static void stopWithApplication();
    void stop();
    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs; ///< the front one is running
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace substitute
