// The library with other threads under load: first use from two threads at once, a link that emits
// from its reader thread while the event loop runs, audio statuses from another thread.
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuservice.h"
#include "platformsubstitute.h"
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
            // The object is complete when instance() returns, so its getters can be called at once.
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
        testkit::Emissions emissions(&service);
        QStringList wanted;
        const auto report = [](const char *signal, const QVariant &argument) {
            QVERIFY(substitute::link::inject(signal, {argument}, nullptr,
                                             substitute::Emitter::ReaderThread));
        };
        for (int i = 0; i < 2500; ++i) {
            const QString text = "é" + QString::number(i);
            report("volumeTurnSgl", i);
            report("serialNumberChanged", text);
            report("autoTestPkgChanged", text.toUtf8());
            wanted << testkit::show("volumeTurn", {i}) << testkit::show("serialNumChanged", {text})
                   << testkit::show("autoTestPkgChanged", {text.toUtf8()});
            if (i % 25 == 0)
                m_clock->settle(); // while the reader thread continues to emit
        }
        substitute::link::drainReaderThread();
        m_clock->settle();
        QCOMPARE(emissions.take(), wanted);
    }

    void audioStatusesComeFromAnotherThread()
    {
        mcu::McuService service;
        service.init();
        McuManager::instance(); // created in this thread; all managers mute through it
        McuManager manager(&service);
        testkit::Trace trace;
        trace.listen(substitute::link::log());
        trace.listen(substitute::platform::log());
        QStringList wanted;
        for (int i = 0; i < 5000; ++i)
            wanted.append(testkit::show("updateAudioStatus", {i % 29}));

        std::atomic<bool> done{false};
        std::thread caller([&] {
            for (int i = 0; i < wanted.size(); ++i)
                manager.updateAudioStatus(McuManager::AudioStatus(i % 29));
            done = true;
        });
        while (!done) {
            m_clock->advance(3000); // the restore timer starts, stops and fires
            manager.audioStatus();
            // Both threads write to the trace; only the manager's lock protects it.
            manager.unduckAudio(1);
        }
        caller.join();
        const QString commands = trace.take().join(' ');
        QVERIFY(!commands.contains(") unduckAudio(1) AudioService.setMainAudioMute"));
        QVERIFY(!commands.contains("AudioService.setMainAudioMute(false) unduckAudio"));
        QCOMPARE(commands.split(' ').filter("updateAudioStatus"), wanted);
    }
};

int main(int argc, char **argv) { return testkit::run<tst_Threads>(argc, argv); }
#include "tst_threads.moc"
