// The files that the probe records into.
#pragma once

#include "liverecorder.h"

namespace mcusim::probe {

/// A file of this name. A Refusal unless it can be written and no other process records there.
Recordings::Open oneFile(const QByteArray &path, const QString &program);

/// A new file each time in the folder that the environment names, PROGRAM.000001.jsonl and so on;
/// beyond a number of them, the oldest that no process writes is removed.
class Ring {
public:
    /// The settings in the environment. Throws a Refusal for those that cannot be used.
    explicit Ring(const QString &program);

    Recordings::Target open() const;
    qint64 fileSize() const { return m_fileSize; }

private:
    QString path(quint64 number) const;
    void remove(const QString &path) const;

    QString m_program;
    QString m_folder;
    qint64 m_fileSize;
    qint64 m_files;
};

} // namespace mcusim::probe
