// The platform event dispatcher as the factory test needs it: EventHandler, closed.
#pragma once

#include <QObject>

/// Dispatches platform events and panel keys.
class Q_DECL_IMPORT EventHandler : public QObject {
    Q_OBJECT

public:
    static EventHandler *instance();

    /// Posts a platform event by its code.
    void onEvent(int event);

Q_SIGNALS:
    /// A panel key for the factory key test.
    void keyEventForAutotest(int key, int state, int kind);
};
