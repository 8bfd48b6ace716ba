// Clients of the probe: their lines are played in the application's main thread, what happens is
// sent to them as scenario lines.
#pragma once

#include "backlog.h"
#include "simulation.h"
#include "sinks.h"
#include "socketfile.h"

#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace mcusim::probe {

/// Made anew for each application object, in whose thread it works; only hear() may be called from
/// others.
class Server : public QObject, public Sink {
public:
    /// Throws a Refusal when there can be no socket. Calls `endRecordings` for a client that ends
    /// them.
    Server(Simulation &simulation, const QByteArray &name, std::function<void()> endRecordings);
    ~Server() override;

    /// Begins to accept clients, at once in its own thread, else as soon as that can.
    void open();
    void hear(const Event &event) override;

    /// The process ends, in whatever thread and state: tells clients what they have not got yet.
    void abandon();
    /// Around a fork: holds what a child must find whole, and in the child gives away all
    /// connections. They stay open to the parent alone.
    void holdStill() { m_mutex.lock(); }
    void goOn() { m_mutex.unlock(); }
    void beChild(int replacement);

    bool event(QEvent *event) override;

private:
    struct Client {
        explicit Client(int connection);
        ~Client();
        Client(const Client &) = delete;
        Client &operator=(const Client &) = delete;

        int socket;
        QSocketNotifier readable;
        QSocketNotifier writable;
        LineReader lines;
        std::optional<Filter> filter; ///< none: everything is sent
        Backlog backlog;
        bool isEnding = false; ///< nothing more comes from it
        std::atomic<bool> isGone = false;
    };
    using ClientPointer = std::shared_ptr<Client>;

    void accept();
    void read(const ClientPointer &client);
    QByteArray take(Client &client, const QByteArray &line);
    void setFilter(Client &client, const QJsonObject &line);
    void workSoon();
    void flush();

    Simulation &m_simulation;
    std::function<void()> m_endRecordings;
    SocketFile m_file;
    std::optional<QSocketNotifier> m_waiting;
    QTimer m_pause{this}; ///< moves to another thread with its parent
    std::atomic<bool> m_willWork = false;
    std::atomic<bool> m_isChild = false;
    bool m_isSink = false;

    std::mutex m_mutex; ///< guards what follows, with filters and backlogs
    std::vector<ClientPointer> m_clients;
};

} // namespace mcusim::probe
