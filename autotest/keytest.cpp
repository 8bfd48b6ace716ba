// The factory key test: reports every key to the station.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

#include <QTimer>

namespace mcu {

namespace {

constexpr int wheelKeyDid = 0xd2;
constexpr int panelKeyDid = 0x41;

enum Kind : int { WheelKey = 0, PanelKey = 1 };
enum State : int { Pressed = 0, Released = 1, Held = 2 };

/// Kept: this panel key is reported only as held, even if it was released before; the station
/// expects this.
constexpr int heldOnlyKey = 1;

struct KeyCode {
    int key;
    char code;
};

constexpr KeyCode wheelCodes[]{
    {0xa1, 0x04}, {0xa2, 0x05}, {0xa3, 0x01}, {0xa5, 0x02}, {0xa6, 0x07},
    {0xa7, 0x06}, {0xa8, 0x09}, {0xa9, 0x0a}, {0xaa, 0x0d}, {0xac, 0x08},
    {0xb0, 0x0b}, {0xb1, 0x0c}, {0xb2, 0x03},
};

constexpr KeyCode panelCodes[]{
    {heldOnlyKey, '\x2f'}, {2, '\x2f'},    {6, '\xaf'},    {14, '\xad'},
    {15, '\xae'},          {0xa6, '\xa4'}, {0xa7, '\xa3'},
};

/// The station's code of a key; empty if it has none.
template <std::size_t Rows>
QByteArray codeOf(int key, const KeyCode (&table)[Rows])
{
    for (const KeyCode &row : table) {
        if (row.key == key)
            return QByteArray(1, row.code);
    }
    return {};
}

} // namespace

void AutoTestHandlerPrivate::setKeyTest(bool on)
{
    keyDetect = on;
    if (on)
        Q_EMIT owner->enterWheelStudyUi();
    else
        Q_EMIT owner->exitWheelStudyUi();
}

bool AutoTestHandler::isKeyDetect() { return m_data->keyDetect != 0; }

// Kept: two names for one flag; applications use both.
bool AutoTestHandler::isInKeyTest() { return isKeyDetect(); }

void AutoTestHandler::onKeyHandle(int key, int state) { onHuKeyHandle(key, state, WheelKey); }

void AutoTestHandler::onTimerOut() { onHuKeyHandle(m_pressedKey, Held, PanelKey); }

void AutoTestHandler::onHuKeyHandle(int key, int state, int kind)
{
    LOG_DEBUG << key << state;
    if (!m_data->keyDetect)
        return;
    switch (kind) {
    case WheelKey:
        m_data->sendReadInfo(wheelKeyDid, codeOf(key, wheelCodes));
        break;
    case PanelKey:
        if (state != Pressed && state != Released && state != Held)
            LOG_DEBUG << "wrong state";
        reportPanelKey(key, state);
        break;
    default:
        LOG_DEBUG << "wrong kind";
    }
}

void AutoTestHandler::reportPanelKey(int key, int state)
{
    if (state == Released) {
        // The timer of this key is not stopped: the key is reported as held after its release too.
        if (key == heldOnlyKey)
            return;
        if (m_longPress)
            m_longPress->stop();
        m_data->sendReadInfo(panelKeyDid, QByteArray(2, '\0'));
        return;
    }
    QByteArray report;
    if (state == Pressed) {
        report.append('\x01');
        startLongPress(key);
    } else if (state == Held) {
        report.append('\x02');
    }
    if (key != heldOnlyKey || state == Held)
        m_data->sendReadInfo(panelKeyDid, report + codeOf(key, panelCodes));
}

void AutoTestHandler::startLongPress(int key)
{
    if (!m_longPress) {
        m_longPress = new QTimer(this);
        m_longPress->setInterval(500);
        m_longPress->setSingleShot(true);
        connect(m_longPress, SIGNAL(timeout()), this, SLOT(onTimerOut()));
    }
    m_pressedKey = key;
    m_longPress->start();
}

} // namespace mcu
