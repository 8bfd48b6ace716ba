// The factory test handler: its life cycle, received packets, and the packets that it sends.
#include "autotesthandler.h"

#include "autotesthandler_p.h"
#include "factorytest_p.h"

#include "eventhandler.h"

#include <cstdio>

namespace mcu {

namespace {

/// Tools of the test line read the packets from standard error: one line per packet, in one write.
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
    LOG_DEBUG << "start!!!";
    if (m_data->inAutotestMode)
        return;
    m_data->inAutotestMode = 1;
    connect(m_data->service, SIGNAL(autoTestPkgChanged(QByteArray)), this,
            SLOT(onAutoTestPkgChanged(QByteArray)));
}

void AutoTestHandler::stop()
{
    LOG_DEBUG << "stop!!!";
    m_data->inAutotestMode = 0;
    m_data->recvBuffer.clear();
    disconnect(m_data->service, SIGNAL(autoTestPkgChanged(QByteArray)), this,
               SLOT(onAutoTestPkgChanged(QByteArray)));
}

// Without blanks in the signatures a connection takes the fast path of Qt.
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
        // Kept: the dispatcher's keys stay connected, and each further start connects them once
        // more; test stations know the repeated key reports.
        handler->stop();
        QObject::disconnect(facade, SIGNAL(keyEvent(int,int)), handler, SLOT(onKeyHandle(int,int)));
    }
}
// clang-format on

bool AutoTestHandler::isInAutotestMode() { return m_data->inAutotestMode != 0; }

// Received packets

void AutoTestHandler::onAutoTestPkgChanged(QByteArray data)
{
    LOG_DEBUG << data.toHex();
    wire::ReceiveBuffer &buffer = m_data->recvBuffer;
    buffer.append(data);
    if (buffer.isEmpty()) {
        LOG_DEBUG << "recv data 0.";
        return;
    }
    if (!buffer.searchSyncId()) {
        LOG_DEBUG << "not found sync id.";
        return;
    }
    // Kept: one packet per chunk; stations wait for the answer before they send the next. Further
    // packets of the chunk wait for later chunks.
    analysisData();
}

void AutoTestHandler::analysisData()
{
    QByteArray &packet = m_data->packet;
    if (!m_data->recvBuffer.checkPackageIsEntire(packet)) {
        LOG_DEBUG << "package is not entire.";
        return;
    }
    if (!wire::verifiPackageCheckSum(packet.constData(), packet.size())) {
        LOG_CRITICAL << "packet verification failed !!!" << packet.toHex();
        packet.clear();
        return;
    }
    // A copy, because an application may cause the next packet before the signal returns.
    parseDataCmd(QByteArray(packet));
}

void AutoTestHandler::parseDataCmd(const QByteArray &packet)
{
    writeRaw("[AT]<<", packet);
    const int type = wire::byteAt(packet, wire::typeOffset);
    LOG_DEBUG << type;
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

// Sent packets

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
