// Records an application from inside: a line for each event, on the disk before the next one.
#pragma once

#include "sinks.h"

#include <memory>

namespace mcusim::probe {

class LiveRecorder : public Sink {
public:
    /// Throws a Refusal when the file cannot be written.
    LiveRecorder(const QByteArray &path, const QString &program);

    void hear(const Event &event) override;
    /// The application ends in order.
    void finish(qint64 time);

    /// Of the file, or -1.
    int descriptor() const { return m_file ? fileno(m_file.get()) : -1; }

private:
    struct Close {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    /// Throws a Refusal.
    void check();

    QString m_path;
    std::unique_ptr<std::FILE, Close> m_file; ///< null once it could not be written
    std::optional<Recorder> m_recorder;
};

} // namespace mcusim::probe
