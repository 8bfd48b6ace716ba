// The factory station at the far end of the link: what it sends, and what comes of it.
#pragma once

#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "platformsubstitute.h"
#include "testkit.h"

namespace testkit {

/// A packet as the station builds it: all from the length byte on adds up to 0.
inline QByteArray packet(int type, int did, const QByteArray &payload = {})
{
    const QByteArray body = char(payload.size() + 2) + (char(type) + (char(did) + payload));
    int checksum = 0;
    for (const char byte : body)
        checksum -= byte;
    return "\xff\x55" + body + char(checksum);
}

/// "2e:05:0102" for a packet with type, DID and payload, plain hex for all other bytes.
inline QString describe(const QByteArray &data)
{
    const QByteArray payload = data.mid(5, data.size() - 6);
    if (data.size() < 6 || data != packet(data[3], data[4], payload))
        return data.toHex();
    return data.mid(3, 1).toHex() + ':' + data.mid(4, 1).toHex() + ':' + payload.toHex();
}

/// The bytes of such a text; "&" puts several together.
inline QByteArray bytes(const QByteArray &text)
{
    QByteArray all;
    for (const QByteArray &part : text.split('&')) {
        const QByteArray data = QByteArray::fromHex(part);
        all += part.contains(':') ? packet(data[0], data[1], data.mid(2)) : data;
    }
    return all;
}

/// A handler of its own in test mode, bound to the substitute link through the facade.
class FactoryStation {
public:
    FactoryStation()
    {
        static const bool bound = mcu::McuService::instance()->init();
        Q_UNUSED(bound)
        substitute::link::reset();
        substitute::platform::reset();
        m_trace.listen(&handler);
        m_trace.listen(substitute::link::log());
        m_trace.listen(substitute::platform::log());
        handler.start();
    }

    /// What came since the last call: signals, commands, and packets as describe() gives them.
    QString effects()
    {
        QStringList texts;
        for (const QString &text : m_trace.take()) {
            const QByteArray sent = QByteArray::fromHex(text.section("0x", 1).toLatin1());
            if (text == show("sendAutoTestPkgToMcu", {sent.size(), sent}))
                texts.append(describe(sent));
            else if (!text.startsWith("SettingsExe."))
                texts.append(text);
        }
        return texts.join(' ');
    }
    /// What comes at once of a chunk.
    QString send(QByteArray chunk)
    {
        mcu::McuService::instance()->notifyAutoTestPackage(chunk.size(), chunk.data());
        return effects();
    }
    /// What comes of each of several steps, with "/" between: "start", "stop", "+500" for time
    /// that passes, "key,state,kind" for a key, everything else is a chunk, "-" an empty one.
    QString play(const QByteArray &steps)
    {
        QStringList all;
        for (const QByteArray &step : steps.split(' ')) {
            const QByteArrayList key = step.split(',');
            if (step == "start")
                handler.start();
            else if (step == "stop")
                handler.stop();
            else if (step.startsWith('+'))
                static_cast<substitute::VirtualClock *>(QAbstractEventDispatcher::instance())
                    ->advance(step.toInt());
            else if (key.size() == 3)
                handler.onHuKeyHandle(key[0].toInt(), key[1].toInt(), key[2].toInt());
            else
                m_trace.note(send(bytes(step)));
            all.append(effects());
        }
        return all.join('/');
    }

    mcu::AutoTestHandler handler;

private:
    Trace m_trace;
};

} // namespace testkit
