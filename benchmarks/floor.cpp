// The floor for two reports, for broadcast text and for a log line. The relay is a connection
// without code.
#include "floor.h"

#include "radiostringconnver.h"

#include <cstring>

#include <sys/syscall.h>
#include <unistd.h>

void Floor::init()
{
    connect(m_link, SIGNAL(eqTypeChangedSgl(int)), this, SIGNAL(eqTypeChanged(int)));
    connect(m_link,
            SIGNAL(reportAcChangedSgl(int, int, int, int, int, int, int, int, int, int, int, int,
                                      int, int, int)),
            this,
            SLOT(onReportAcChanged(int, int, int, int, int, int, int, int, int, int, int, int, int,
                                   int, int)));
    connect(m_link,
            SIGNAL(reportTruckPerformanceParametersChangedSgl(int, int, int, int, int, int, int,
                                                              int, int, int, int, int, int, int)),
            this,
            SLOT(onReportTruckPerformanceParametersChanged(int, int, int, int, int, int, int, int,
                                                           int, int, int, int, int, int)));
}

void Floor::onReportAcChanged(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j,
                              int k, int l, int m, int n, int o)
{
    m_ac[0] = quint8(a);
    m_ac[1] = quint8(b);
    m_ac[2] = quint8(c);
    m_ac[3] = quint8(d);
    m_ac[4] = quint8(e);
    m_ac[5] = quint8(f);
    m_ac[6] = quint8(g);
    m_ac[7] = quint8(h);
    m_ac[8] = quint8(i);
    m_ac[9] = quint8(j);
    m_ac[10] = quint8(k);
    m_ac[11] = quint8(l);
    m_ac[12] = quint8(m);
    m_ac[13] = quint8(n);
    m_ac[14] = quint8(o);
    Q_EMIT syncACInforUpdate(QByteArray(reinterpret_cast<const char *>(m_ac), sizeof m_ac));
}

void Floor::onReportTruckPerformanceParametersChanged(int a, int b, int c, int d, int e, int f,
                                                      int g, int h, int i, int j, int k, int l,
                                                      int m, int n)
{
    m_truck = {a, b,          quint16(c), quint8(d), quint8(e),  quint16(f), quint16(g), quint8(h),
               0, quint16(i), quint8(j),  quint8(k), quint16(l), quint16(m), quint8(n),  0};
    Q_EMIT syncTruckPerformanceParametersInforUpdate(
        QByteArray(reinterpret_cast<const char *>(&m_truck), sizeof m_truck));
}

QString Floor::convertFromEBU(const char *data, int len)
{
    QString text(len, Qt::Uninitialized);
    auto *const out = reinterpret_cast<ushort *>(text.data());
    quint64 below = 0; // bit 7 is set if a byte is below 0x20: only those can be no character
    int done = 0;
    for (; len - done >= 8; done += 8) {
        quint64 eight;
        std::memcpy(&eight, data + done, sizeof eight);
        below |= (eight - 0x2020202020202020) & ~eight;
        for (int i = done; i < done + 8; ++i)
            out[i] = radioStringConnver::table_dab_charset0[quint8(data[i])];
    }
    for (; done < len; ++done) {
        out[done] = radioStringConnver::table_dab_charset0[quint8(data[done])];
        below |= quint8(data[done] - 0x20);
    }
    if (below & 0x8080808080808080)
        text.remove(QChar::Null);
    return text;
}

QDebug Floor::debugLine(const CallSite &site)
{
    return QMessageLogger(site.file, site.line, site.function, "default").debug()
           << "[DBG]" << qlonglong(syscall(SYS_gettid)) << site.function << site.line << "--";
}
