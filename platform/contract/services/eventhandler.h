/// \file
/// The platform event dispatcher, a closed class, as far as the factory test uses it.
#pragma once

#include <QObject>

/// Dispatches platform events and panel keys. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT EventHandler : public QObject {
    Q_OBJECT

public:
    /// The one object; never null.
    static EventHandler *instance();

    /// Posts a platform event by its code. The library posts 52 when the factory test switches demo
    /// mode off while display 30 is shown.
    void onEvent(int event);

Q_SIGNALS:
    /// A key for the factory key test: state 0 pressed, 1 released, 2 held; kind 0 is a wheel key,
    /// 1 a panel key.
    void keyEventForAutotest(int key, int state, int kind);
};
