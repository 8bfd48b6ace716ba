// Opens a scenario and plays it: play and pause, single steps, the speed.
#pragma once

#include "target.h"

#include "player.h"
#include "scenario.h"

#include <QWidget>

class QAction;
class QComboBox;
class QLabel;

namespace mcupanel {

class Transport : public QWidget {
public:
    explicit Transport(Target &target);

    /// Throws a Refusal for a file that cannot be used.
    void open(const QString &path);
    void play();
    /// Plays all up to a moment at once, on a clock that can be moved.
    void playUntil(qint64 moment);
    void setSpeed(double speed);
    /// Shows how far the play is.
    void refresh();

private:
    QAction *add(const char *name, const QString &text, const QKeySequence &keys,
                 void (Transport::*act)());
    void choose();
    void playOrPause();
    void step();
    void stop(const QString &why);
    void rewind();
    double speed() const;

    Target &m_target;
    QString m_path;
    std::unique_ptr<mcusim::ScenarioFile> m_file;
    std::unique_ptr<mcusim::Player> m_player;
    QAction *m_play = nullptr;
    QAction *m_step = nullptr;
    QComboBox *m_speed = nullptr;
    QLabel *m_position = nullptr;
};

} // namespace mcupanel
