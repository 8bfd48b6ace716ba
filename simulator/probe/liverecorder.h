// Records an application from inside: a line for each event, with the system before the next one.
#pragma once

#include "recordings.h"

#include <mutex>

namespace mcusim::probe {

/// Stops with one line when something cannot be written. The application goes on.
class LiveRecorder : public Sink {
public:
    /// Throws a Refusal when the first file cannot be written.
    LiveRecorder(Recordings::Open open, qint64 largest);

    void hear(const Event &event) override;
    /// The application ends in order.
    void finish(qint64 time) { m_recordings.finish(time); }

    /// Around a fork, as the server does: the file is the parent's alone.
    void holdStill() { m_mutex.lock(); }
    void goOn() { m_mutex.unlock(); }
    void beChild(int replacement);

private:
    std::mutex m_mutex;
    Recordings m_recordings;
};

} // namespace mcusim::probe
