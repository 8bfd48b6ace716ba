// Measures the cost of a factory packet in the codec and in the floor, in one run.
//
//     codecbench            measures times with Google Benchmark and takes its options
//     codecbench --count    writes one callgrind dump per row, named CODEC/ROW
#include "codecfloor.h"
#include "counting.h"

#include "autotestpacket_p.h"

#include <QLoggingCategory>

#include <benchmark/benchmark.h>

#include <string>

namespace {

/// The library's codec, called as the factory test handler calls it.
class Codec {
public:
    void append(const QByteArray &chunk) { m_buffer.append(chunk); }

    bool take(QByteArray &packet)
    {
        return m_buffer.searchSyncId() && m_buffer.checkPackageIsEntire(packet) &&
               mcu::wire::verifiPackageCheckSum(packet.constData(), packet.size());
    }

private:
    mcu::wire::ReceiveBuffer m_buffer;
};

/// A way in which packets arrive.
struct Row {
    const char *name;
    int size;    ///< bytes of a packet
    int waiting; ///< packets that wait from the start
    int burst;   ///< packets per chunk
    bool byByte; ///< each byte is a chunk of its own
    int times;   ///< number of acts that are counted
};

constexpr Row rows[]{
    {"9 bytes", 9, 0, 1, false, 1000},
    {"64 bytes", 64, 0, 1, false, 1000},
    {"9, hundred a chunk", 9, 0, 100, false, 100},
    {"64, hundred a chunk", 64, 0, 100, false, 100},
    {"9, byte by byte", 9, 0, 1, true, 1000},
    {"64, byte by byte", 64, 0, 1, true, 200},
    {"9, 100 waiting", 9, 100, 1, false, 20000},
    {"9, 1000 waiting", 9, 1000, 1, false, 20000},
};

/// One act of a row with one codec: a chunk arrives and its packets are taken.
template <typename Buffer>
class Act {
public:
    explicit Act(const Row &row) : m_row(row)
    {
        constexpr int frame = 6;
        m_chunk = mcu::wire::build(0x2e, 0x05, QByteArray(row.size - frame, '\x01'));
        for (int i = 0; i < row.waiting; ++i)
            m_buffer.append(m_chunk);
        m_chunk = m_chunk.repeated(row.burst);
        for (const char byte : m_chunk)
            m_bytes.push_back(QByteArray(1, byte));
    }

    void operator()()
    {
        if (m_row.byByte) {
            for (const QByteArray &byte : m_bytes) {
                m_buffer.append(byte);
                benchmark::DoNotOptimize(m_buffer.take(m_packet));
            }
            return;
        }
        m_buffer.append(m_chunk);
        for (int i = 0; i < m_row.burst; ++i)
            benchmark::DoNotOptimize(m_buffer.take(m_packet));
    }

private:
    const Row &m_row;
    Buffer m_buffer;
    QByteArray m_packet;
    QByteArray m_chunk;
    std::vector<QByteArray> m_bytes;
};

/// Bytes without a sync pair; half of them are possible first bytes of one.
template <typename Buffer>
void countFlood(const std::string &name)
{
    constexpr int chunks = 5000;
    Buffer buffer;
    QByteArray packet;
    const QByteArray chunk = QByteArray("\xff\x01").repeated(500);
    // The first five million bytes are not counted. They must not leave anything that makes the next
    // five million, which are counted, more expensive.
    countActs(name, chunks, [&] {
        buffer.append(chunk);
        benchmark::DoNotOptimize(buffer.take(packet));
    });
}

template <typename Buffer>
void countAll(const std::string &codec)
{
    for (const Row &row : rows)
        countActs(codec + '/' + row.name, row.times, Act<Buffer>(row));
    countFlood<Buffer>(codec + "/flood");
}

template <typename Buffer>
void timeAll(const std::string &codec)
{
    for (const Row &row : rows) {
        benchmark::RegisterBenchmark((codec + '/' + row.name).c_str(),
                                     [&row](benchmark::State &state) {
                                         Act<Buffer> act(row);
                                         for (auto iteration : state) {
                                             benchmark::DoNotOptimize(iteration);
                                             act();
                                         }
                                     });
    }
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    if (argc > 1 && std::string(argv[1]) == "--count") {
        countAll<CodecFloor>("floor");
        countAll<Codec>("library");
    } else {
        timeAll<CodecFloor>("floor");
        timeAll<Codec>("library");
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    }
    return 0;
}
