// The file of the socket by which clients find this process: NAME.PID in a folder of the user
// alone.
#pragma once

#include <QByteArray>

namespace mcusim::probe {

/// A socket that listens, and its file.
class SocketFile {
public:
    /// Throws a Refusal.
    explicit SocketFile(const QByteArray &name);
    ~SocketFile();
    SocketFile(const SocketFile &) = delete;
    SocketFile &operator=(const SocketFile &) = delete;

    int descriptor() const { return m_descriptor; }
    /// The connection of the next client, or -1. Other users are turned away.
    int accept() const;
    /// Clients do not find this process any more.
    void remove() const;

private:
    QByteArray m_path;
    int m_descriptor = -1;
};

} // namespace mcusim::probe
