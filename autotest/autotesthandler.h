/// \file
/// The factory end-of-line test for applications: signals for the requests of the station,
/// operations to answer them.
#pragma once

#include "mcuserviceexport.h"

#include <QByteArray>
#include <QObject>

#include <memory>

class QTimer;

namespace mcu {

class AutoTestHandlerPrivate;

/// Implements the protocol of the factory test station. The MCU transfers the packets.
/// docs/factory-test.md describes the packets and all requests.
///
/// Between start() and stop(), McuService::autoTestPkgChanged() delivers chunks of bytes. Packets
/// are assembled from them, verified and emitted as signals, one packet per chunk. Applications
/// answer a read...() signal with sendReadInfo() for the same DID, usually with the requested item
/// as the first byte. Write requests are acknowledged here. A broken or unknown packet gets no
/// answer.
///
/// Each int argument of a read...() or set...() signal is a payload byte, 0 to 255; the codes are
/// the station's. A missing byte is not refused: the packet's checksum takes the place of the first
/// missing byte and 0 that of the others, unless the signal says otherwise.
///
/// Packets are sent with McuService::sendAutoTestPkgToMcu(), outside the test mode too; without a
/// link they are lost. Payloads are cut to 253 bytes. Call everything from the thread that first
/// calls instance(), which must be the facade's; signals are emitted there.
///
/// Kept: getters are not const, because applications are linked against the names without it.
class MCUSERVICE_EXPORT AutoTestHandler : public QObject {
    Q_OBJECT

public:
    /// \name Life cycle
    ///@{

    /// The object: created on first use (thread-safe), destroyed at process exit, never null.
    static AutoTestHandler *instance();
    /// A separate handler over McuService::instance(), for tests; applications use instance().
    explicit AutoTestHandler(QObject *parent = nullptr);
    /// Ends receiving; the station is not informed.
    ~AutoTestHandler() override;
    /// Begins receiving. McuService::notifyAutoTestStatus() calls it; a second call does nothing.
    void start();
    /// Ends receiving and drops the bytes that wait. McuService::notifyAutoTestStatus() calls it.
    /// The key test does not change.
    void stop();
    /// Whether packets are received; false before the first start().
    bool isInAutotestMode();
    /// Whether the key test is on; false at start. Kept: second name of isInKeyTest(); applications
    /// know both.
    bool isKeyDetect();
    ///@}

    /// \name Answers to the station
    /// The DID is the low byte of did. The payload is item (its low byte), then data; or data
    /// alone.
    ///@{

    /// Answers a read request, with the requested item in front.
    void sendReadInfo(int did, int item, const QByteArray &data);
    /// Answers a read request without an item.
    void sendReadInfo(int did, const QByteArray &data);
    /// Sends a write response; the acknowledgement of a request is sent without it.
    void sendWriteInfo(int did, int item, const QByteArray &data);
    /// Sends feedback: the head unit reports something that the station has not requested.
    void sendFeedbackInfo(int did, int item, const QByteArray &data);
    ///@}

    /// \name Milestones
    /// Feedback without a payload.
    ///@{

    /// The head unit has started; code 0x01.
    void sendBootDoneSuccess();
    /// The Bluetooth search has ended; code 0x30.
    void sendBTSearchSuccess();
    /// Bluetooth is connected; code 0x31.
    void sendBTConnSuccess();
    /// The phone book is downloaded; code 0x33.
    void sendBTDownPhoneBookSuccess();
    /// The phone call is set up; code 0x34.
    void sendBTCallSuccess();
    ///@}

Q_SIGNALS:
    /// \name Read requests
    /// Each comment begins with the DID. The application that has the value answers with
    /// sendReadInfo() for this DID; `type` is the requested item.
    ///@{

    /// 0x01: sound settings.
    void readSoundInfo(int type);
    /// 0x02: media source.
    void readMediaSource();
    /// 0x03: screen settings.
    void readScreenInfo(int type);
    /// 0x04: date and time.
    void readDataTime(int type);
    /// 0x05: language. Kept: applications connect to this spelling.
    void readLaguage();
    /// 0x07: radio area.
    void readRadioArea();
    /// 0x08: power status.
    void readPwrStatus();
    /// 0x09: the screen that is shown.
    void readCurrentUI();
    /// 0x23: number of satellites. Kept: applications connect to this spelling.
    void readStatelliteNum(int type);
    /// 0x30: Bluetooth address.
    void readBTAddr();
    /// 0x31: Bluetooth device name.
    void readBTName();
    /// 0x41: panel keys. While the key test is on, each key is also reported without a request.
    void readPanelKeyStatus();
    /// 0x42: radio frequency.
    void readRadioFreqInfo(int type);
    /// 0x44: RDS.
    void readRadioRDSInfo(int type);
    /// 0x45: DAB.
    void readDABInfo(int type);
    /// 0x46: satellite radio.
    void readSXMInfo(int type);
    /// 0x51: CAN.
    void readCANInfo(int type);
    /// 0x81: software version.
    void readSoftVersion(int type);
    /// 0x82: hardware version.
    void readHardVersion(int type);
    /// 0x83: model.
    void readTestModel();
    /// 0xD4: serial number.
    void readSN();
    /// 0x85: UUID.
    void readUUID();
    /// 0xA0: vehicle name.
    void readVehName();
    /// 0xA1: vehicle identification number.
    void readVehVIN();
    /// 0xD0: destination code.
    void readDestCode();
    /// 0xD1: GPS.
    void readGpsInfo();
    /// 0xD2: steering-wheel keys. While the key test is on, each key is also reported without a
    /// request.
    void readWheelKey();
    /// 0xD3: vehicle speed.
    void readSpeed();
    ///@}

    /// \name Write requests
    /// Each comment begins with the DID. The station is answered after the signal has returned,
    /// whether or not anything is connected to it.
    ///@{

    /// 0x01: a sound setting. With one payload byte, value is the checksum; with none, the first
    /// byte of the packet.
    void setSoundInfo(int type, int value);
    /// 0x02: media source. The first missing byte is the checksum, further ones are read from the
    /// packet's start. Kept: applications connect to this spelling.
    void setMedisSource(int type, int value1, int value2);
    /// 0x03: a screen setting. Missing bytes as in setMedisSource().
    void setScreenInfo(int type, int value);
    /// 0x04: date and time; data is the payload after the type byte. Not emitted without payload.
    void setTimeDataInfo(int type, QByteArray data);
    /// 0x05: language.
    void setLanguage(int type);
    /// 0x06: reset to factory settings.
    void setFactoryReset();
    /// 0x07: radio area.
    void setRadioArea(int);
    /// 0x10: RDS function and its state.
    void setRadioRds(int, int);
    /// 0x09: screen to show.
    void setUI(int type);
    /// 0x0B: tuner seek.
    void setTunerSeek(int type);
    /// 0x0D: fill the screen with a colour.
    void setScreenColor(int type);
    /// 0x30: Bluetooth search. Kept: applications connect to this spelling.
    void setSearCh(int type);
    /// 0x31: Bluetooth connection.
    void setConnect(int type);
    /// 0x32: download the phone book.
    void setDownloadPhonebook();
    /// 0x33: play Bluetooth music.
    void setPlayBTMusic();
    /// 0x34: call; data is the number, the payload after its first byte. Not emitted without
    /// payload.
    void setCallPhone(QByteArray data);
    /// 0x35: microphone test.
    void setEnterMicTest(int type);
    /// 0x37: Bluetooth on or off.
    void setOpenBT(int type);
    /// 0x38: Bluetooth test mode.
    void setEnterBTTestMode(int type);
    /// 0x39: detect the Bluetooth address.
    void detectBTAddr();
    /// 0x3A: pair with the phone.
    void btMatchPhone();
    /// 0x3D: phone connection.
    void phoneConnected(int type);
    /// 0x3E: reverse view.
    void setReverse(int type);
    /// 0x46: steering-wheel key to learn.
    void setSWCKey(int key);
    /// 0x50: sound the buzzer.
    void setBuzzerSound();
    /// 0xE0: warning screen at start.
    void setBootWarnScreen(int type);
    /// 0xF1: destination code.
    void setDestCode(int code);
    /// 0xF2: confirm the destination code.
    void setDestCodeOK();
    /// 0xF0: show the destination code screen.
    void setDestCodeUi();
    /// 0x3C with 1: the key test is on.
    void enterWheelStudyUi();
    /// 0x3C with anything else: the key test is off.
    void exitWheelStudyUi();
    /// 0xF4: steering-wheel adapter.
    void setSWCAdapter(int adapter);
    /// 0xF5: camera.
    void setCamera(int camara);
    /// Kept: never emitted here; applications connect to it.
    void setSN(QByteArray SN);
    ///@}

public Q_SLOTS:
    /// \name Key test
    ///@{

    /// A steering-wheel key: onHuKeyHandle() with kind 0.
    void onKeyHandle(int key, int state);
    /// A key of kind 0 (steering wheel) or 1 (panel). Reports nothing while the key test is off.
    /// A steering-wheel key is reported as DID 0xD2 with its code, whatever the state; the payload
    /// is empty for a key without a code. A panel key is reported as DID 0x41 when it is pressed
    /// (state 0), held for 500 ms (state 2) and released (state 1). docs/factory-test.md lists the
    /// codes.
    /// Kept: key 1 is reported only as held, 500 ms after its press, even when it was released
    /// before; test stations expect it so.
    void onHuKeyHandle(int key, int state, int kind);
    /// Whether the key test is on; false at start.
    bool isInKeyTest();
    ///@}

private Q_SLOTS:
    void onAutoTestPkgChanged(QByteArray data);
    void onTimerOut();

private:
    friend class AutoTestHandlerPrivate;

    // From a chunk to the handler of its packet's DID.
    void analysisData();
    void parseDataCmd(const QByteArray &packet);
    void parseReadData(const QByteArray &packet);
    void parseWriteData(const QByteArray &packet);
    void parseFeedbackData(const QByteArray &packet);

    // Steps of the audio-setting test: 0 switches on, 1 switches off.
    void setSubWooferStatus(int v);
    void setDemoModeStatus(int v);
    void setLPFStatus(int v);

    void reportPanelKey(int key, int state);
    void startLongPress(int key);

    std::unique_ptr<AutoTestHandlerPrivate> m_data;
    QTimer *m_longPress = nullptr; ///< made with the first panel key
    int m_pressedKey = 0;          ///< the panel key that the timer is for
};

} // namespace mcu
