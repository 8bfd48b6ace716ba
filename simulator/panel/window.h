// The window: shows the state of the car, at most sixty times a second, and holds the controls.
#pragma once

#include "controls.h"
#include "plot.h"
#include "transport.h"
#include "view.h"

#include <QMainWindow>
#include <QTimer>

class QPlainTextEdit;

namespace mcupanel {

class Window : public QMainWindow, private mcusim::Sink {
public:
    explicit Window(Target &target);

    Transport &transport() { return *m_transport; }
    /// Brings all that was heard onto the screen.
    void refresh();

private:
    void hear(const mcusim::Event &event) override;

    CarState m_state;
    QVector<View *> m_views;
    Plot *m_plot = nullptr;
    Transport *m_transport = nullptr;
    QPlainTextEdit *m_commands = nullptr;
    QStringList m_newCommands;
    QTimer m_refreshing;
};

} // namespace mcupanel
