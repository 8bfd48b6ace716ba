// What the process holds, sampled at moments at which nothing is under way.
#pragma once

#include <QDir>
#include <QFile>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace soak {

class Vitals {
public:
    void sample()
    {
        m_samples.append(
            {anonymousKib(), entriesOf("/proc/self/fd"), entriesOf("/proc/self/task")});
    }

    static constexpr int warm = 9; ///< the tenth sample

    /// Prints the first, the tenth and the last sample. False if the memory of the last one is not
    /// within 2 % of that of the tenth or within 128 KiB, or if descriptors or threads changed
    /// after the tenth.
    bool print() const
    {
        constexpr int portion = 50;      // 2 %
        static constexpr int step = 128; // what the allocator takes at a time
        const auto line = [this](const char *name, int Sample::*value, auto isLikeTenth) {
            const bool isGood = isLikeTenth(m_samples[warm].*value);
            std::printf("%-40s %9d %9d %9d%s\n", name, m_samples.first().*value,
                        m_samples[warm].*value, m_samples.last().*value,
                        isGood ? "" : "  NOT CONSTANT");
            return isGood;
        };
        const auto remains = [this](int Sample::*value) {
            return [this, value](int tenth) {
                return std::all_of(m_samples.begin() + warm, m_samples.end(),
                                   [&](const Sample &sample) { return sample.*value == tenth; });
            };
        };
        std::printf("%-40s %9s %9s %9s\n", "", "first", "tenth", "last");
        bool isGood = line("private memory in KiB", &Sample::kib, [this](int tenth) {
            return tenth > 0 &&
                   std::abs(m_samples.last().kib - tenth) <= std::max(tenth / portion, step);
        });
        isGood &= line("open descriptors", &Sample::descriptors, remains(&Sample::descriptors));
        isGood &= line("threads", &Sample::threads, remains(&Sample::threads));
        return isGood;
    }

private:
    struct Sample {
        int kib;
        int descriptors;
        int threads;
    };

    /// Memory that no file backs: heap, stacks and changed data of libraries.
    static int anonymousKib()
    {
        QFile file("/proc/self/smaps_rollup");
        if (file.open(QFile::ReadOnly)) {
            for (const QByteArray &line : file.readAll().split('\n')) {
                if (line.startsWith("Anonymous:"))
                    return line.simplified().split(' ')[1].toInt();
            }
        }
        return 0; // never right
    }

    static int entriesOf(const char *folder)
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    }

    QVector<Sample> m_samples;
};

} // namespace soak
