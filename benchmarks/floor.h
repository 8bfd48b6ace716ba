// The floor: the minimum of work, written by hand with the names of the library, that the library
// is compared with. For a report: store the bytes, copy them into one byte array, emit it. For a
// command: call the link. For broadcast text: eight bytes at a time into a text of the right size.
// For a log line: all items streamed into a QDebug.
#pragma once

#include "debug.h"
#include "mcusrv.h"

#include <QByteArray>
#include <QObject>

class Floor : public QObject {
    Q_OBJECT

public:
    /// Connects to the link as the facade does.
    void init();

    void SetVolume(int level) { m_link->SetVolume(level); }
    void setAudioMute(int mute, int type, int flag) { m_link->setAudioMute(mute, type, flag); }
    void updateAppVersion(const QString &version) { m_link->updateAppVersion(version); }
    void set_amb_data(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j, int k,
                      int l, int m, int n)
    {
        m_link->set_amb_data(a, b, c, d, e, f, g, h, i, j, k, l, m, n);
    }
    static QString convertFromEBU(const char *data, int len);
    static QDebug debugLine(const CallSite &site);

Q_SIGNALS:
    void syncACInforUpdate(QByteArray air_infor);
    void syncTruckPerformanceParametersInforUpdate(QByteArray truck_performance_parameters_infor);
    void eqTypeChanged(int type);

public Q_SLOTS:
    void onReportAcChanged(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j,
                           int k, int l, int m, int n, int o);
    void onReportTruckPerformanceParametersChanged(int a, int b, int c, int d, int e, int f, int g,
                                                   int h, int i, int j, int k, int l, int m, int n);

private:
    mcu::McuSrv *m_link = mcu::McuSrv::instance();
    unsigned char m_ac[15] = {};
    struct {
        qint32 a, b;
        quint16 c;
        quint8 d, e;
        quint16 f, g;
        quint8 h, gap1;
        quint16 i;
        quint8 j, k;
        quint16 l, m;
        quint8 n, gap2;
    } m_truck = {};
    static_assert(sizeof(m_truck) == 28);
};
