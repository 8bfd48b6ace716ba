// Virtual time: the order of timers, timers that slots change, posted events between timers, and
// the event loop.
#include "testkit.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <thread>

class VirtualClockTest : public QObject {
    Q_OBJECT

public:
    explicit VirtualClockTest(substitute::VirtualClock *clock) : m_clock(clock) {}

private:
    using Slot = std::function<void()>;

    /// A timer that, when it fires, records its name and the time since the start of the test, then
    /// runs the slot.
    QTimer *timer(
        const QString &name, int interval, bool once = false, const Slot &slot = [] {})
    {
        auto *timer = new QTimer(m_owner.get());
        timer->setSingleShot(once);
        connect(timer, &QTimer::timeout, timer, [=] { note(name), slot(); });
        timer->start(interval);
        return timer;
    }
    void note(const QString &name) { m_trace += name + QString::number(m_clock->now() - m_start); }
    QString trace() { return std::exchange(m_trace, {}).join(' '); }
    Q_INVOKABLE void arrive() { ++m_arrived; }

    substitute::VirtualClock *m_clock;
    std::unique_ptr<QObject> m_owner;
    QStringList m_trace;
    qint64 m_start = 0;
    int m_arrived = 0;

private Q_SLOTS:
    void init()
    {
        m_owner = std::make_unique<QObject>();
        m_clock->advance(1); // timers without interval of an earlier test have fired at this time
        m_start = m_clock->now();
    }

    void order()
    {
        // Timers, "!" for those that fire once, and steps of time.
        const QStringList rows{
            // By due time, then by start; a repeating timer starts again when it fires.
            "a20 b10 c10 +20: b10 c10 a20 b20 c20",
            "a20! b10 c20! +20: b10 a20 c20 b20",
            // The size of the steps does not matter; the end of a step is included.
            "a7 b10! +6 +1 +5 +9: a7 b10 a14 a21",
            "a3 b4! +3: a3",
            // Interval 0: once at each time.
            "z0 a2! +0 +0 +2: z0 z1 a2 z2",
            "z0! y0! +5: z0 y0",
            // Time never goes back.
            "a5 +5 +-3 +5: a5 a10",
        };
        for (const QString &row : rows) {
            init();
            const QString steps = row.section(": ", 0, 0);
            for (QString step : steps.split(' ')) {
                const bool once = step.endsWith('!');
                if (step.startsWith('+'))
                    m_clock->advance(step.mid(1).toInt());
                else
                    timer(step.left(1), step.remove('!').mid(1).toInt(), once);
            }
            QCOMPARE(steps + ": " + trace(), row);
        }
    }

    void slotsChangeTimers()
    {
        QTimer *stopped = timer("stopped", 10);
        QTimer *deleted = timer("deleted", 12);
        QTimer *restarted = timer("restarted", 20);
        timer("a", 9, true, [&] {
            stopped->stop();
            delete deleted;
            restarted->start(4);
            timer("late", 6, true);
            timer("within", 5, true, [this] { timer("now", 0, true); });
        });
        m_clock->advance(14);
        QCOMPARE(trace(), QString("a9 restarted13 within14 now14"));
        QCOMPARE(m_clock->nextDue() - m_start, qint64(15));
    }

    void aTimerThatKeepsArmingItselfCannotHoldTheClock()
    {
        const Slot again = [&] { timer("z", 0, true, [&] { again(); }); };
        again();
        m_clock->advance(3);
        QCOMPARE(trace(), QString("z0 z1 z2 z3"));
    }

    void postedEventsComeBetweenTimers()
    {
        const auto post = [this] {
            QMetaObject::invokeMethod(
                this, [this] { note("posted"); }, Qt::QueuedConnection);
        };
        post();
        timer("a", 10, true, post);
        timer("b", 10, true);
        m_clock->settle();
        m_clock->advance(10);
        QCOMPARE(trace(), QString("posted0 a10 posted10 b10"));

        QPointer<QObject> gone = new QObject;
        gone->deleteLater();
        m_clock->settle();
        QVERIFY(!gone);
    }

    void eventLoopHurriesFromTimerToTimer()
    {
        timer("a", 1800000);
        QTimer::singleShot(3600001, qApp, &QCoreApplication::quit);
        QCoreApplication::processEvents();
        QCOMPARE(trace(), QString()); // no timer is due, and time does not advance without exec()
        QCoreApplication::exec();
        QCOMPARE(trace(), QString("a1800000 a3600000"));
        QCOMPARE(m_clock->now() - m_start, qint64(3600001));
    }

    void eventLoopWithoutTimersWaitsForOtherThreads()
    {
        std::thread other;
        // The other thread starts when the loop has nothing to do. It calls by name: a functor
        // would be shared by both threads, and the thread sanitizer does not see the reference
        // count of Qt.
        connect(m_clock, &QAbstractEventDispatcher::aboutToBlock, m_owner.get(), [&] {
            if (other.joinable())
                return;
            other = std::thread([this] {
                for (int i = 0; i < 1000; ++i)
                    QMetaObject::invokeMethod(this, "arrive", Qt::QueuedConnection);
                QMetaObject::invokeMethod(qApp, "quit", Qt::QueuedConnection);
            });
        });
        QCoreApplication::exec();
        other.join();
        QCOMPARE(m_arrived, 1000);
        QCOMPARE(m_clock->now(), m_start);
    }
};

int main(int argc, char **argv) { return testkit::run<VirtualClockTest>(argc, argv); }
#include "tst_virtualclock.moc"
