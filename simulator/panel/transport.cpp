#include "transport.h"

#include "values.h"

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace mcupanel {

using namespace mcusim;

namespace {

constexpr double speeds[]{0.25, 0.5, 1, 2, 4, 10, 100};

} // namespace

Transport::Transport(Target &target) : m_target(target)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 0);
    add("Open", "&Open…", QKeySequence::Open, &Transport::choose);
    m_play = add("Play", "Pause (&Y)", Qt::Key_F5, &Transport::playOrPause);
    m_step = add("Step", "&Step", Qt::Key_F10, &Transport::step);
    auto *caption = new QLabel("Sp&eed");
    m_speed = new QComboBox;
    m_speed->setObjectName("Play speed");
    m_speed->setAccessibleName("Play speed");
    for (const double speed : speeds)
        m_speed->addItem(QString::number(speed) + " ×", speed);
    caption->setBuddy(m_speed);
    m_position = new QLabel;
    m_position->setObjectName("Position");
    m_position->setAccessibleName("Position");
    row->addWidget(caption);
    row->addWidget(m_speed);
    row->addWidget(m_position, 1);
    connect(m_speed, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
        if (m_player && m_player->isRunning())
            play();
    });
    setSpeed(1);
    refresh();
}

QAction *Transport::add(const char *name, const QString &text, const QKeySequence &keys,
                        void (Transport::*act)())
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumWidth(button->sizeHint().width()); // also of a shorter text
    layout()->addWidget(button);
    return action;
}

void Transport::open(const QString &path)
{
    // A pipe would stop the window until its next line comes.
    if (path == "-" || (QFileInfo::exists(path) && !QFileInfo(path).isFile()))
        throw Refusal(path + ": expected a regular file");
    auto file = std::make_unique<ScenarioFile>(m_target.names(), path);
    // Read once to its end, so that a fault in it is shown before anything is played.
    while (file->next()) {
    }
    m_path = path;
    m_player.reset();
    m_file = std::move(file);
    rewind();
    refresh();
}

void Transport::rewind()
{
    m_file->rewind();
    m_player = std::make_unique<Player>([this] { return m_file->next(); },
                                        [this](const Event &input) { return m_target.play(input); },
                                        m_target.clock());
}

void Transport::choose()
{
    const QString path = QFileDialog::getOpenFileName(this, "Open a scenario", m_path,
                                                      "Scenarios (*.jsonl);;All files (*)");
    if (path.isEmpty())
        return;
    try {
        open(path);
    } catch (const Refusal &refusal) {
        m_target.onTrouble(refusal.text());
    }
}

void Transport::playOrPause()
{
    if (m_player->isRunning())
        m_player->pause();
    else
        play();
    refresh();
}

void Transport::play()
{
    if (!m_player->isRunning() && !m_player->next())
        rewind();
    m_player->start(speed(), [this](const QString &why) { stop(why); });
    refresh();
}

void Transport::playUntil(qint64 moment)
{
    m_player->run(moment);
    m_target.clock().advanceTo(moment);
}

void Transport::step()
{
    m_player->pause();
    try {
        // Lines of what is expected do nothing here.
        while (m_player->next() && !m_player->next()->isInput())
            m_player->step();
        m_player->step();
    } catch (const Refusal &refusal) {
        m_target.onTrouble(refusal.text());
    }
    refresh();
}

void Transport::stop(const QString &why)
{
    if (!why.isEmpty())
        m_target.onTrouble(why);
    refresh();
}

double Transport::speed() const { return m_speed->currentData().toDouble(); }

void Transport::setSpeed(double speed)
{
    int index = m_speed->findData(speed);
    if (index < 0) {
        index = m_speed->count();
        m_speed->addItem(QString::number(speed) + " ×", speed);
    }
    m_speed->setCurrentIndex(index);
}

void Transport::refresh()
{
    m_play->setEnabled(m_player != nullptr);
    m_step->setEnabled(m_player != nullptr);
    m_play->setText(m_player && m_player->isRunning() ? "Pause (&Y)" : "Pla&y");
    m_position->setText(m_player
                            ? seconds(m_player->position()) + " s   " + QFileInfo(m_path).fileName()
                            : "no scenario");
}

} // namespace mcupanel
