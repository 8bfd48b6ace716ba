#include "liverecorder.h"

#include "complain.h"

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace mcusim::probe {

LiveRecorder::LiveRecorder(Recordings::Open open, qint64 largest)
    : m_recordings(std::move(open), largest)
{
}

void LiveRecorder::hear(const Event &event)
{
    const std::lock_guard lock(m_mutex);
    try {
        m_recordings.hear(event);
    } catch (const Refusal &refusal) {
        complain(refusal);
    }
}

void LiveRecorder::beChild(int replacement)
{
    if (m_recordings.descriptor() >= 0)
        dup3(replacement, m_recordings.descriptor(), O_CLOEXEC);
}

} // namespace mcusim::probe
