// Ends with each order of application object and singletons. Any output is a failure.
//
//     exitcheck gone|first|alive|none
#include "debug.h"
#include "linksubstitute.h"
#include "mcuservice.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <string_view>

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

} // namespace

int main(int argc, char **argv)
{
    static const LastWords lastWords;
    const std::string_view mode = argc > 1 ? argv[1] : "";
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);

    if (mode == "none") {
        mcu::McuService::instance()->onKeyEvent(1, 0);
        return mcu::McuService::instance()->getDest() == 256 ? 0 : 1;
    }
    if (mode == "first")
        mcu::McuService::instance();
    QCoreApplication application(argc, argv);
    mcu::McuService::instance()->init();
    substitute::link::inject("keyEventSgl", {1, 0}, nullptr, substitute::Emitter::ReaderThread);
    substitute::link::drainReaderThread();
    QCoreApplication::processEvents();
    if (mode == "alive")
        std::exit(0);
    return 0;
}
