// Writes what passes as lines of a scenario.
#pragma once

#include "scenario.h"

#include <cstdio>

namespace mcusim {

class Recorder : public Sink {
public:
    Recorder(std::FILE *file, const Metadata &metadata) : m_file(file), m_metadata(metadata)
    {
        write(writtenMetadata(metadata));
    }

    void hear(const Event &event) override { write(writtenEvent(event)); }
    /// Nothing more comes, up to this moment.
    void finish(qint64 time)
    {
        if (m_metadata.marksEnd)
            write(writtenEnd(time));
    }

private:
    void write(QByteArray line)
    {
        line += '\n';
        std::fwrite(line.constData(), 1, std::size_t(line.size()), m_file);
    }

    std::FILE *m_file;
    Metadata m_metadata;
};

} // namespace mcusim
