// An application in which the probe is tried: it does its arguments one after another.
//
//     app, noapp     makes and destroys the application object
//     manager        makes the manager
//     init           starts the library
//     fork           makes a child that reports a speed and ends, and waits for it
//     exec           goes on in the same process as a new program
//     report         reports a speed from another thread
//     flood N        reports N speeds, ten in each millisecond; prints the growth of its memory
//                    after the first quarter in KiB
//     loop           runs the event loop until the MCU sends the unit to sleep
#include "mcumanager.h"
#include "mcuservice.h"
#include "mcusrv.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

void report(int speed)
{
    Q_EMIT mcu::McuSrv::instance()->reportVehicleSpeedChangedSgl(speed, 1, 0, 0);
}

int residentKib()
{
    QFile statm("/proc/self/statm");
    return statm.open(QFile::ReadOnly)
               ? statm.readAll().split(' ').value(1).toInt() * int(sysconf(_SC_PAGESIZE) / 1024)
               : -1;
}

void flood(int count)
{
    constexpr int atOnce = 10;
    int sent = 0;
    int before = 0;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        for (int i = 0; i < atOnce; ++i)
            report(++sent);
        if (sent <= count / 4)
            before = residentKib();
        if (sent >= count)
            QCoreApplication::exit();
    });
    timer.start(1);
    QCoreApplication::exec();
    std::printf("%d KiB\n", residentKib() - before);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    std::unique_ptr<QCoreApplication> application;
    for (int i = 1; i < argc; ++i) {
        const QByteArray word = argv[i];
        if (word == "app") {
            application = std::make_unique<QCoreApplication>(argc, argv);
        } else if (word == "noapp") {
            application.reset();
        } else if (word == "manager") {
            McuManager::instance();
        } else if (word == "init") {
            mcu::McuService::instance()->init();
        } else if (word == "fork") {
            const pid_t child = fork();
            if (child == 0) {
                report(i);
                QCoreApplication::processEvents();
                return 0;
            }
            waitpid(child, nullptr, 0);
        } else if (word == "exec") {
            argv[i] = argv[0];
            execv("/proc/self/exe", argv + i);
        } else if (word == "report") {
            std::thread(report, i).join();
        } else if (word == "flood") {
            flood(QByteArray(argv[++i]).toInt());
        } else if (word == "loop") {
            QObject::connect(mcu::McuService::instance(), &mcu::McuService::shallowSleep,
                             application.get(), &QCoreApplication::quit);
            QCoreApplication::exec();
        } else {
            return 1;
        }
    }
    return 0;
}
