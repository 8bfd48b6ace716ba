// The facade and threads other than its own: first use from several at once, and a link that emits
// from its reader thread.
#include "linksubstitute.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "testkit.h"

#include <QThread>

#include <array>
#include <atomic>
#include <thread>

class tst_Threads : public QObject {
    Q_OBJECT

public:
    explicit tst_Threads(substitute::VirtualClock *clock) : m_clock(clock) {}

private:
    substitute::VirtualClock *m_clock;

private Q_SLOTS:
    void firstUseFromTwoThreadsGivesOneObject()
    {
        std::atomic<int> waiting{2};
        std::array<mcu::McuService *, 2> found{};
        const auto find = [&](std::size_t number) {
            for (--waiting; waiting > 0;)
                std::this_thread::yield();
            found[number] = mcu::McuService::instance();
            // The winner's queries answer at once: the object was finished when it was handed out.
            found[number]->getDest();
        };
        std::thread other(find, 1);
        find(0);
        other.join();
        QVERIFY(found[0]);
        QCOMPARE(found[0], found[1]);
        QCOMPARE(found[0]->getDest(), 256);
    }

    void reportsOfTheReaderThreadArriveInOrder()
    {
        mcu::McuService service;
        service.init();
        QThread *const here = QThread::currentThread();
        int emittedElsewhere = 0;
        connect(
            mcu::McuSrv::instance(), &mcu::McuSrv::volumeTurnSgl, &service,
            [&] { emittedElsewhere += QThread::currentThread() != here; }, Qt::DirectConnection);
        QStringList received, wanted;
        const substitute::SignalTap tap(
            &service, [&](const QMetaMethod &signal, const QVariantList &arguments) {
                const char *place = QThread::currentThread() == here ? "" : "elsewhere ";
                received.append(place + testkit::show(signal.name(), arguments));
            });
        const auto inject = [](const char *signal, const QVariantList &arguments) {
            QVERIFY(substitute::link::inject(signal, arguments, nullptr,
                                             substitute::Emitter::ReaderThread));
        };
        for (int i = 0; i < 2500; ++i) {
            const QString text = QString::number(i);
            inject("volumeTurnSgl", {i});
            inject("serialNumberChanged", {text});
            inject("autoTestPkgChanged", {text.toLatin1()});
            inject("reportSteeringAngleChangedSgl", {65535, 0, 0, 0});
            wanted << "volumeTurn(" + text + ')' << "serialNumChanged(\"" + text + "\")"
                   << "autoTestPkgChanged(0x" + text.toLatin1().toHex() + ')'
                   << "syncSteeringAngleInforUpdate(0xffff0000000000000000000000000000)";
            if (i % 25 == 0)
                m_clock->settle(); // while the reader thread goes on emitting
        }
        substitute::link::drainReaderThread();
        m_clock->settle();
        QCOMPARE(received.size(), 10000);
        QCOMPARE(received, wanted);
        QCOMPARE(emittedElsewhere, 2500);
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Threads>(argc, argv); }
#include "tst_threads.moc"
