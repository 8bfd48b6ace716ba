// Media and phone records: type, length and bytes as the MCU gets them.
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuservice.h"
#include "testkit.h"

class tst_MediaInfo : public QObject {
    Q_OBJECT

public:
    explicit tst_MediaInfo(substitute::VirtualClock *) {}

private Q_SLOTS:
    void sendsEachReportAtOnce();
};

void tst_MediaInfo::sendsEachReportAtOnce()
{
    mcu::McuService service;
    service.init();
    const QString accented = QString::fromUtf8("\xc3\xa9");
    testkit::Trace trace;
    trace.listen(substitute::link::log());
    const auto report = [&](mcu::McuService *to) {
        McuManager manager(to);
        trace.take();
        manager.updateMediaSourceState(0x1234);
        for (int frequency : {87500, -1, INT_MIN})
            manager.updateMediaRadioFreq(frequency);
        manager.updateMediaId3(QString(), "b", accented);
        manager.updateBTState(true);
        manager.updateBTState(true); // unchanged, and sent again
        manager.updateBTState(false);
        manager.updateBtDeveciname(accented + 'x');
        manager.updateCallState(256);
        manager.updateCallState(-2);
        manager.updateCallNumber("+49");
        manager.updateCallName(QString(300, 'x'));
        manager.updateCallName(QString(QChar()));
        manager.updateCallTime(1, 2, 300);
        return trace.take().replaceInStrings("updateMultiMediaInfo", "");
    };
    QCOMPARE(report(&service),
             (QStringList{"(48,4,0x34000000)", "(49,4,0xcc550100)", "(49,4,0xffffffff)",
                          "(49,4,0x00000080)", "(52,0,0x)", "(51,1,0x62)", "(50,2,0xc3a9)",
                          "(80,1,0x01)", "(80,1,0x01)", "(80,1,0x00)", "(81,3,0xc3a978)",
                          "(82,1,0x00)", "(82,1,0xfe)", "(83,3,0x2b3439)",
                          "(84,300,0x" + QString("78").repeated(300) + ')', "(84,1,0x00)",
                          "(85,3,0x01022c)"}));
    QCOMPARE(report(nullptr), QStringList());
}

int main(int argc, char **argv) { return testkit::run<tst_MediaInfo>(argc, argv); }
#include "tst_mediainfo.moc"
