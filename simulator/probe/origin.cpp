#include "origin.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

#include <link.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

struct Part {
    const char *key;
    const char *file; ///< begins so, up to its version
};
constexpr Part parts[]{{"library", "libmcuservice.so."}, {"link", "libmcusrv.so."}};

/// The identity that the linker gave a loaded library; empty without one.
QByteArray buildIdentity(const dl_phdr_info &loaded)
{
    for (const ElfW(Phdr) *segment = loaded.dlpi_phdr;
         segment != loaded.dlpi_phdr + loaded.dlpi_phnum; ++segment) {
        if (segment->p_type != PT_NOTE)
            continue;
        const ElfW(Addr) address = loaded.dlpi_addr + segment->p_vaddr;
        const char *notes = nullptr;
        std::memcpy(&notes, &address, sizeof notes);
        const std::size_t unit = std::max<std::size_t>(segment->p_align, 4);
        const auto padded = [unit](std::size_t size) { return (size + unit - 1) / unit * unit; };
        ElfW(Nhdr) note{};
        for (std::size_t at = 0; at + sizeof note <= segment->p_memsz;) {
            std::memcpy(&note, notes + at, sizeof note);
            const std::size_t content = at + padded(sizeof note + note.n_namesz);
            if (note.n_type == NT_GNU_BUILD_ID && qstrcmp(notes + at + sizeof note, "GNU") == 0)
                return QByteArray(notes + content, int(note.n_descsz)).toHex();
            at = content + padded(note.n_descsz);
        }
    }
    return {};
}

int describe(dl_phdr_info *loaded, std::size_t, void *found)
{
    const QFileInfo file(QFile::decodeName(loaded->dlpi_name));
    for (const Part &part : parts) {
        if (file.fileName().startsWith(QLatin1String(part.file)))
            static_cast<QJsonObject *>(found)->insert(
                QLatin1String(part.key),
                QJsonObject{{"file", file.canonicalFilePath()},
                            {"build", QString::fromLatin1(buildIdentity(*loaded))}});
    }
    return 0;
}

} // namespace

QJsonObject origin()
{
    constexpr double second = 1000;
    QElapsedTimer now;
    now.start();
    QJsonObject made{
        {"time", QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
        {"monotonic", double(now.msecsSinceReference()) / second},
        {"program", QFileInfo("/proc/self/exe").symLinkTarget()},
        {"pid", int(getpid())},
    };
    dl_iterate_phdr(describe, &made);
    return made;
}

} // namespace mcusim::probe
