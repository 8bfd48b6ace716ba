// For what goes on longer than a file should: one recording after another.
#pragma once

#include "sinks.h"

#include <functional>
#include <memory>

namespace mcusim {

/// Writes what passes, each line at once, and begins the next file when the last one is full or
/// gone. Each file is whole: it has metadata, times from its own start and an end mark.
class Recordings : public Sink {
public:
    struct Target {
        QString path;
        std::FILE *file = nullptr; ///< to be closed by the recordings
        JsonLinesFile::Metadata metadata;
    };
    /// Opens the next file. Throws a Refusal.
    using Open = std::function<Target()>;

    /// A file is full when it has so many bytes, or lines of a whole day; 0 is without end. What an
    /// input causes stays with it, up to an eighth more.
    Recordings(Open open, qint64 largest);
    /// Nothing more comes after the last event.
    ~Recordings() override { finish(m_last); }
    Recordings(const Recordings &) = delete;
    Recordings &operator=(const Recordings &) = delete;

    /// The first Refusal, when something cannot be written, ends the recording.
    void hear(const Event &event) override;
    /// Nothing more comes, up to this moment.
    void finish(qint64 time);

    /// Of the present file, or -1.
    int descriptor() const { return m_file ? fileno(m_file.get()) : -1; }

private:
    struct Close {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    bool isOver(const Event &event);
    void begin(qint64 time);
    void check();

    Open m_open;
    qint64 m_largest;
    QString m_path;
    std::unique_ptr<std::FILE, Close> m_file; ///< null once it could not be written
    std::optional<Recorder> m_recorder;
    qint64 m_began = 0;
    qint64 m_last = 0;
    qint64 m_looked = 0; ///< for the file in its folder
};

} // namespace mcusim
