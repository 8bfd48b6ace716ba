// The factory test's life cycle, its way from received bytes to a verified packet, and its answers.
#include "autotesthandler.h"

#include "autotesthandler_p.h"
#include "factorytest_p.h"

#include "eventhandler.h"

#include <cstdio>

namespace mcu {

namespace {

/// Line tooling reads the traffic from standard error: one line a packet, in one write.
void writeRaw(const char *mark, const QByteArray &packet)
{
    std::fprintf(stderr, "%s %s\n", mark, packet.toHex(' ').toUpper().constData());
}

} // namespace

AutoTestHandler *AutoTestHandler::instance()
{
    static AutoTestHandler handler;
    return &handler;
}

AutoTestHandler::AutoTestHandler(QObject *parent)
    : QObject(parent), m_data(std::make_unique<AutoTestHandlerPrivate>())
{
    m_data->owner = this;
}

AutoTestHandler::~AutoTestHandler() = default;

void AutoTestHandler::start()
{
    MCU_DEBUG << "start!!!";
    if (m_data->inAutotestMode)
        return;
    m_data->inAutotestMode = 1;
    connect(m_data->service, SIGNAL(autoTestPkgChanged(QByteArray)), this,
            SLOT(onAutoTestPkgChanged(QByteArray)));
}

void AutoTestHandler::stop()
{
    MCU_DEBUG << "stop!!!";
    m_data->inAutotestMode = 0;
    m_data->recvBuffer = {};
    disconnect(m_data->service, SIGNAL(autoTestPkgChanged(QByteArray)), this,
               SLOT(onAutoTestPkgChanged(QByteArray)));
}

// A blank in a signature costs Qt a second search.
// clang-format off
void switchFactoryTest(McuService *facade, bool on)
{
    AutoTestHandler *handler = AutoTestHandler::instance();
    if (on) {
        handler->start();
        QObject::connect(facade, SIGNAL(keyEvent(int,int)), handler, SLOT(onKeyHandle(int,int)));
        // Kept: with blanks, as the dispatcher declares its signal.
        QObject::connect(EventHandler::instance(), SIGNAL(keyEventForAutotest(int, int, int)),
                         handler, SLOT(onHuKeyHandle(int,int,int)));
    } else {
        // Kept: the dispatcher's keys stay connected. They reach the handler after the mode has
        // ended too, and each further entry into it adds one more connection.
        handler->stop();
        QObject::disconnect(facade, SIGNAL(keyEvent(int,int)), handler, SLOT(onKeyHandle(int,int)));
    }
}
// clang-format on

bool AutoTestHandler::isInAutotestMode() { return m_data->inAutotestMode != 0; }

// Packets in

void AutoTestHandler::onAutoTestPkgChanged(QByteArray data)
{
    MCU_DEBUG << data.toHex();
    wire::ReceiveBuffer &buffer = m_data->recvBuffer;
    buffer.append(data);
    if (buffer.isEmpty()) {
        MCU_DEBUG << "recv data 0.";
        return;
    }
    if (buffer.searchSyncId() < 0) {
        MCU_DEBUG << "not found sync id.";
        return;
    }
    // Kept: one packet for each chunk; stations wait for the answer before they send on. What else
    // is in the chunk waits for later ones.
    analysisData();
}

void AutoTestHandler::analysisData()
{
    QByteArray &packet = m_data->packet;
    if (!m_data->recvBuffer.checkPackageIsEntire(packet)) {
        MCU_DEBUG << "package is not entire.";
        return;
    }
    if (!wire::verifiPackageCheckSum(packet.constData(), packet.size())) {
        MCU_CRITICAL << "packet verification failed !!!" << packet.toHex();
        packet.clear();
        return;
    }
    // A listener may let the next packet in before it returns: work on a copy of its own.
    parseDataCmd(QByteArray(packet));
}

void AutoTestHandler::parseDataCmd(const QByteArray &packet)
{
    writeRaw("[AT]<<", packet);
    const int type = wire::byteAt(packet, wire::typeOffset);
    MCU_DEBUG << type;
    switch (type) {
    case wire::ReadRequest:
        parseReadData(packet);
        break;
    case wire::WriteRequest:
        parseWriteData(packet);
        break;
    case wire::Feedback:
        parseFeedbackData(packet);
        break;
    default:
        break;
    }
}

// Packets out

void AutoTestHandler::sendReadInfo(int did, int item, const QByteArray &data)
{
    m_data->sendReadInfo(quint8(did), char(item) + data);
}

void AutoTestHandler::sendReadInfo(int did, const QByteArray &data)
{
    m_data->sendReadInfo(quint8(did), data);
}

void AutoTestHandler::sendWriteInfo(int did, int item, const QByteArray &data)
{
    m_data->sendWriteInfo(quint8(did), char(item) + data);
}

void AutoTestHandler::sendFeedbackInfo(int did, int item, const QByteArray &data)
{
    m_data->sendPkgToMcu(m_data->cmdPacket(wire::Feedback, quint8(did), char(item) + data));
}

void AutoTestHandler::sendBootDoneSuccess() { m_data->sendFeedbackInfo(0x01); }

void AutoTestHandler::sendBTSearchSuccess() { m_data->sendFeedbackInfo(0x30); }

void AutoTestHandler::sendBTConnSuccess() { m_data->sendFeedbackInfo(0x31); }

void AutoTestHandler::sendBTDownPhoneBookSuccess() { m_data->sendFeedbackInfo(0x33); }

void AutoTestHandler::sendBTCallSuccess() { m_data->sendFeedbackInfo(0x34); }

QByteArray AutoTestHandlerPrivate::cmdPacket(unsigned char type, unsigned char did,
                                             const QByteArray &payload) const
{
    return wire::build(type, did, payload);
}

void AutoTestHandlerPrivate::sendReadInfo(unsigned char did, const QByteArray &payload)
{
    sendPkgToMcu(cmdPacket(wire::ReadResponse, did, payload));
}

void AutoTestHandlerPrivate::sendWriteInfo(unsigned char did, const QByteArray &payload)
{
    sendPkgToMcu(cmdPacket(wire::WriteResponse, did, payload));
}

void AutoTestHandlerPrivate::sendFeedbackInfo(unsigned char code)
{
    sendPkgToMcu(cmdPacket(wire::Feedback, code, {}));
}

void AutoTestHandlerPrivate::sendPkgToMcu(const QByteArray &pkt)
{
    writeRaw("[AT]>>", pkt);
    service->sendAutoTestPkgToMcu(pkt.size(), pkt);
}

} // namespace mcu
