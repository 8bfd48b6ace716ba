#include "window.h"

#include "values.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QVBoxLayout>

namespace mcupanel {

using namespace mcusim;

namespace {

constexpr int interval = 17; // milliseconds: below 60 a second
constexpr int shownCommands = 200;

} // namespace

Window::Window(Target &target)
{
    setWindowTitle("mcupanel: " + target.title());
    m_views = {makeCarView(m_state), makeDriveView(m_state), makeMediaView(m_state),
               makeClimateView(m_state)};
    m_plot = makePlot(target.names(), m_state);
    m_transport = new Transport(target);
    m_commands = new QPlainTextEdit;
    m_commands->setObjectName("Link commands");
    m_commands->setAccessibleName("Last commands to the link");
    m_commands->setPlaceholderText("Commands to the link");
    m_commands->setReadOnly(true);
    m_commands->setTabChangesFocus(true);
    m_commands->setMaximumBlockCount(shownCommands);
    m_commands->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_commands->setMinimumWidth(300);

    auto *middle = new QVBoxLayout;
    middle->addWidget(m_views[1]);
    middle->addWidget(m_views[2]);
    auto *shown = new QHBoxLayout;
    shown->addWidget(m_views.first(), 40);
    shown->addLayout(middle, 33);
    shown->addWidget(m_views.last(), 23);
    auto *below = new QHBoxLayout;
    if (m_plot)
        below->addWidget(m_plot, 3);
    below->addWidget(m_commands, 2);
    auto *left = new QVBoxLayout;
    left->addWidget(m_transport);
    left->addLayout(shown, 43);
    left->addLayout(below, 20);
    auto *all = new QHBoxLayout;
    all->addLayout(left, 1);
    all->addWidget(new Controls(target));
    auto *centre = new QWidget;
    centre->setLayout(all);
    setCentralWidget(centre);

    statusBar()->addPermanentWidget(new QLabel(target.title()));
    auto *quit = new QAction(this);
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);

    m_refreshing.setSingleShot(true);
    m_refreshing.setTimerType(Qt::PreciseTimer);
    m_refreshing.setInterval(interval);
    connect(&m_refreshing, &QTimer::timeout, this, &Window::refresh);
    target.onTrouble = [this](const QString &why) { statusBar()->showMessage(why); };
    target.addSink(this);
    target.start();
}

void Window::hear(const Event &event)
{
    m_state.hear(event);
    if (event.what->kind == Kind::Command) {
        m_newCommands.append(seconds(event.time) + "  " + event.text());
        if (m_newCommands.size() > shownCommands)
            m_newCommands.removeFirst();
    }
    if (!m_refreshing.isActive())
        m_refreshing.start();
}

void Window::refresh()
{
    const QSet<QString> changed = m_state.takeChanged();
    for (View *view : std::as_const(m_views))
        view->refresh(changed);
    if (!m_newCommands.isEmpty())
        m_commands->appendPlainText(std::exchange(m_newCommands, {}).join('\n'));
    if (m_plot)
        m_plot->sample();
    m_transport->refresh();
}

} // namespace mcupanel
