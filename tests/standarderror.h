// What a program writes to its standard error itself, past the message logger.
#pragma once

#include <QByteArray>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace testkit {

/// Catches what is written to the stream while it lives.
class StandardError {
public:
    StandardError() { stderr = open_memstream(&m_text, &m_size); }
    StandardError(const StandardError &) = delete;
    StandardError &operator=(const StandardError &) = delete;
    ~StandardError()
    {
        std::fclose(std::exchange(stderr, m_before));
        std::free(m_text);
    }
    /// What was written since the last call.
    QByteArray take()
    {
        std::fflush(stderr);
        const QByteArray text(m_text, int(m_size));
        std::rewind(stderr);
        return text;
    }

private:
    FILE *m_before = stderr;
    char *m_text = nullptr;
    std::size_t m_size = 0;
};

} // namespace testkit
