// The least that can be done for a report: store the bytes, copy them into one byte array, emit it.
// Written by hand, with the facade's signal names, to measure the library against.
#pragma once

#include <QByteArray>
#include <QObject>

class Floor : public QObject {
    Q_OBJECT

public:
    /// Connects to the link as the facade does.
    void init();

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
