// The interface of the factory test, and what neither the replayed packets (fuzz/) nor the scripts
// can show of it.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "packettext.h"
#include "testkit.h"

#include <QFile>

using mcu::AutoTestHandler;

namespace {

void receive(AutoTestHandler *handler, const QString &packet)
{
    QMetaObject::invokeMethod(handler, "onAutoTestPkgChanged",
                              Q_ARG(QByteArray, testkit::packetOf(packet)));
}

/// The packets that the station has received since the last call.
QByteArrayList sent()
{
    QByteArrayList packets;
    for (const substitute::Call &call : substitute::link::log().take())
        packets += call.arguments.value(1).toByteArray();
    return packets;
}

} // namespace

class tst_AutoTestHandler : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(mcu::McuService::instance()->init());
        QVERIFY(!AutoTestHandler::instance()->parent());
    }
    void init() { sent(); }

    void declaresItsInterface()
    {
        const QMetaObject &meta = AutoTestHandler::staticMetaObject;
        QByteArray declared;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            declared += method.access() == QMetaMethod::Private ? "private " : "";
            declared += method.methodType() == QMetaMethod::Signal ? "signal " : "slot ";
            declared += method.typeName();
            declared += ' ' + substitute::describe(method).toLatin1() + '\n';
        }
        QFile wanted(HANDLER_METHODS);
        QVERIFY(wanted.open(QFile::ReadOnly));
        QCOMPARE(declared, wanted.readAll());
    }

    void aListenerMayLetTheNextPacketIn()
    {
        AutoTestHandler handler;
        connect(&handler, &AutoTestHandler::setLanguage, [&] { receive(&handler, "2e:06:7778"); });
        receive(&handler, "2e:05:02");
        QCOMPARE(sent(), QByteArrayList()
                             << testkit::packetOf("6e:06:7778") << testkit::packetOf("6e:05:02"));
    }

    void payloadsEndWhereTheLengthByteDoes()
    {
        const QByteArray longest = testkit::packet(0x62, 0x85, QByteArray(253, '\1'));
        for (const int size : {253, 254, 255, 256, 1000}) {
            AutoTestHandler::instance()->sendReadInfo(0x85, QByteArray(size, '\1'));
            AutoTestHandler::instance()->sendReadInfo(0x85, 1, QByteArray(size - 1, '\1'));
            QCOMPARE(sent(), QByteArrayList() << longest << longest);
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_AutoTestHandler>(argc, argv); }
#include "tst_autotesthandler.moc"
