// Ends in each way that an application ends. Any output is a failure.
//
//     exitcheck END
#include "autotesthandler.h"
#include "debug.h"
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcuvechiclebridge.h"

#include <QCoreApplication>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <thread>

using substitute::Emitter;

namespace {

/// Logs after all other objects of the program have been destroyed.
struct LastWords {
    ~LastWords()
    {
        AutoPrint trace("last words", 1);
        MCU_DEBUG << "good bye";
        if (!isCriticalLogged())
            std::puts("errors are lost");
    }
};

void report(const char *signal, const QVariantList &arguments, Emitter emitter)
{
    if (!substitute::link::inject(signal, arguments, nullptr, emitter))
        std::puts("not a report");
}

void reportKey() { report("keyEventSgl", {1, 0}, Emitter::Caller); }

/// Emits reports in a thread of its own until the program destroys it.
class BusyLink {
public:
    BusyLink()
    {
        m_thread = std::thread([this] {
            while (!m_stopping) {
                reportKey();
                m_isEmitting = true;
            }
        });
        while (!m_isEmitting)
            std::this_thread::yield();
    }
    ~BusyLink()
    {
        m_stopping = true;
        m_thread.join();
    }
    BusyLink(const BusyLink &) = delete;
    BusyLink &operator=(const BusyLink &) = delete;

private:
    std::atomic<bool> m_stopping{false};
    std::atomic<bool> m_isEmitting{false};
    std::thread m_thread;
};

/// Creates all objects that the library keeps until the process ends.
void createAll()
{
    McuManager::instance();
    mcu::AutoTestHandler::instance();
    mcu::McuRadioInterface::instance();
    McuVechicleBridge::instance();
}

/// Leaves connections, timers that run, and input that is not complete.
void use()
{
    createAll();
    mcu::McuService *service = mcu::McuService::instance();
    service->init();
    service->notifyAutoTestStatus(1);
    McuManager::instance()->setWatchDogEnable(true);
    report("autoTestPkgChanged", {QByteArray("\xff\x55\x03")}, Emitter::ReaderThread);
    report("keyEventSgl", {1, 0}, Emitter::ReaderThread);
    substitute::link::drainReaderThread();
    QCoreApplication::processEvents();
}

} // namespace

int main(int argc, char **argv)
{
    static const LastWords lastWords;
    const std::string_view end = argc > 1 ? argv[1] : "";
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);

    if (end == "emitting")
        reportKey(); // the link is the first object, so it is the last to be destroyed
    static std::unique_ptr<BusyLink> link; // destroyed after the objects of the library

    if (end == "none") {
        createAll();
        mcu::McuService::instance()->onKeyEvent(1, 0);
        return mcu::McuService::instance()->getDest() == 256 ? 0 : 1;
    }
    if (end == "first")
        createAll();
    QCoreApplication application(argc, argv);
    use();
    if (end == "emitting")
        link = std::make_unique<BusyLink>();
    if (end == "alive")
        std::exit(0);
    if (end == "waiting") { // events of another thread for timers of the manager
        std::thread([] {
            McuManager::instance()->updateAudioStatus(McuManager::AudioStatus(1));
            McuManager::instance()->updateAudioStatus(McuManager::AudioStatus(0));
        }).join();
    }
    return 0;
}
