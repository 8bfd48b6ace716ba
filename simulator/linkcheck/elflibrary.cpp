#include "elflibrary.h"

#include "refusal.h"

#include <QFileInfo>

#include <cxxabi.h>
#include <gelf.h>

#include <cstring>
#include <memory>

namespace mcusim {

namespace {

struct Machine {
    int number;
    const char *name;
    const char *folder; ///< of its libraries on Debian
};

constexpr Machine machines[]{
    {EM_X86_64, "x86-64", "x86_64-linux-gnu"},
    {EM_AARCH64, "arm64", "aarch64-linux-gnu"},
    {EM_ARM, "arm", "arm-linux-gnueabihf"},
    {EM_386, "x86", "i386-linux-gnu"},
};

struct Section {
    GElf_Shdr header;
    Elf_Data *data;
};

QByteArray contentOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        throw Refusal("cannot read " + path + ": not a regular file");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Refusal("cannot read " + path + ": " + file.errorString());
    return file.readAll();
}

} // namespace

/// The sections of a file, while it is read.
struct ElfLibrary::Tables {
    explicit Tables(ElfLibrary &read)
        : library(read),
          elf(elf_memory(read.m_image.data(), std::size_t(read.m_image.size())), &elf_end)
    {
        if (elf_kind(elf.get()) != ELF_K_ELF || !gelf_getehdr(elf.get(), &header))
            refuse("not an ELF file");
        if (header.e_type != ET_DYN)
            refuse("not a shared library");
        if (header.e_ident[EI_DATA] !=
            (Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? ELFDATA2LSB : ELFDATA2MSB))
            refuse("its bytes are in another order than those of this machine");
    }

    [[noreturn]] void refuse(const char *why) const { throw Refusal(library.path + ": " + why); }

    template <typename Use>
    void eachOf(GElf_Word type, Use use)
    {
        for (Elf_Scn *section = nullptr; (section = elf_nextscn(elf.get(), section));) {
            GElf_Shdr found;
            if (!gelf_getshdr(section, &found))
                refuse("damaged: a section has no header");
            if (found.sh_type != type)
                continue;
            Elf_Data *data = elf_getdata(section, nullptr);
            if (!data || (!data->d_buf && data->d_size > 0))
                refuse("damaged: a section is not in the file");
            use(Section{found, data});
        }
    }

    QByteArray text(const Section &section, GElf_Xword offset)
    {
        const bool isInside = offset < quint64(library.m_image.size());
        const char *found =
            isInside ? elf_strptr(elf.get(), section.header.sh_link, std::size_t(offset)) : nullptr;
        if (!found)
            refuse("damaged: a name is not in the file");
        return found;
    }

    ElfLibrary &library;
    std::unique_ptr<Elf, int (*)(Elf *)> elf;
    GElf_Ehdr header{};
    /// By its number in the file: a version, and of a wanted one the library that has to have it.
    QHash<int, QPair<QByteArray, QByteArray>> versions;

    void readProcessor()
    {
        library.wordSize = header.e_ident[EI_CLASS] == ELFCLASS64 ? 8 : 4;
        QString title = "processor " + QString::number(header.e_machine);
        for (const Machine &machine : machines) {
            if (machine.number != header.e_machine)
                continue;
            title = machine.name;
            for (const char *folder : {"/lib/", "/usr/lib/", "/usr/local/lib/"})
                library.folders.append(QString(folder) + machine.folder);
        }
        if (header.e_machine == EM_ARM && (header.e_flags & EF_ARM_ABI_FLOAT_HARD))
            title += " with hardware floating point";
        library.processor = title + QString(", %1 bit").arg(library.wordSize * 8);
        library.folders += {"/lib", "/usr/lib", "/lib64", "/usr/lib64", "/usr/local/lib"};
    }

    void readSegments()
    {
        std::size_t count = 0;
        elf_getphdrnum(elf.get(), &count);
        const auto whole = quint64(library.m_image.size());
        for (std::size_t i = 0; i < count; ++i) {
            GElf_Phdr segment;
            if (!gelf_getphdr(elf.get(), int(i), &segment) || segment.p_type != PT_LOAD)
                continue;
            if (segment.p_offset > whole || segment.p_filesz > whole - segment.p_offset)
                refuse("damaged: the file is too short");
            library.m_segments.append({segment.p_vaddr, segment.p_offset, segment.p_filesz,
                                       (segment.p_flags & PF_W) != 0});
        }
    }

    void readNeeds()
    {
        eachOf(SHT_DYNAMIC, [this](const Section &section) {
            GElf_Dyn entry{};
            for (int i = 0; gelf_getdyn(section.data, i, &entry) && entry.d_tag != DT_NULL; ++i) {
                if (entry.d_tag == DT_NEEDED)
                    library.needed.append(text(section, entry.d_un.d_val));
                if (entry.d_tag == DT_SONAME)
                    library.name = text(section, entry.d_un.d_val);
            }
        });
    }

    void readVersions()
    {
        // Each entry says how far the next one is, forward, so that a damaged table ends, too.
        eachOf(SHT_GNU_verneed, [this](const Section &section) {
            GElf_Verneed need;
            for (qint64 at = 0; gelf_getverneed(section.data, int(at), &need); at += need.vn_next) {
                GElf_Vernaux entry;
                for (qint64 in = at + need.vn_aux; gelf_getvernaux(section.data, int(in), &entry);
                     in += entry.vna_next) {
                    versions[entry.vna_other] = {text(section, entry.vna_name),
                                                 text(section, need.vn_file)};
                    if (entry.vna_next == 0)
                        break;
                }
                if (need.vn_next == 0)
                    break;
            }
        });
        eachOf(SHT_GNU_verdef, [this](const Section &section) {
            GElf_Verdef version;
            GElf_Verdaux entry;
            for (qint64 at = 0; gelf_getverdef(section.data, int(at), &version) &&
                                gelf_getverdaux(section.data, int(at + version.vd_aux), &entry);
                 at += version.vd_next) {
                // The base is the name of the library and no version.
                if ((version.vd_flags & VER_FLG_BASE) == 0)
                    versions[version.vd_ndx] = {text(section, entry.vda_name), {}};
                if (version.vd_next == 0)
                    break;
            }
        });
    }

    void readSymbols()
    {
        eachOf(SHT_DYNSYM, [this](const Section &section) {
            GElf_Sym entry;
            for (int i = 0; gelf_getsym(section.data, i, &entry); ++i) {
                const bool isDefined = entry.st_shndx != SHN_UNDEF;
                const auto binding = GELF_ST_BIND(entry.st_info);
                library.symbols.append({text(section, entry.st_name),
                                        {},
                                        {},
                                        entry.st_value,
                                        isDefined && binding != STB_LOCAL,
                                        !isDefined && binding == STB_GLOBAL});
            }
        });
        if (library.symbols.isEmpty())
            refuse("damaged, or without a table of dynamic symbols");
        eachOf(SHT_GNU_versym, [this](const Section &section) {
            constexpr int hiddenVersion = 0x8000; // no default for others
            GElf_Versym number;
            for (int i = 0; i < library.symbols.size() && gelf_getversym(section.data, i, &number);
                 ++i) {
                const auto version = versions.value(number & ~hiddenVersion);
                library.symbols[i].version = version.first;
                library.symbols[i].file = version.second;
            }
        });
    }

    void readRelocations()
    {
        eachOf(SHT_RELA, [this](const Section &section) {
            GElf_Rela entry;
            for (int i = 0; gelf_getrela(section.data, i, &entry); ++i)
                library.m_relocations[entry.r_offset] = {quint64(entry.r_addend),
                                                         int(GELF_R_SYM(entry.r_info)), false};
        });
        eachOf(SHT_REL, [this](const Section &section) {
            GElf_Rel entry;
            for (int i = 0; gelf_getrel(section.data, i, &entry); ++i)
                library.m_relocations[entry.r_offset] = {0, int(GELF_R_SYM(entry.r_info)), true};
        });
    }
};

ElfLibrary::ElfLibrary(const QString &file)
    : path(file), name(QFile::encodeName(QFileInfo(file).fileName())), m_image(contentOf(file))
{
    elf_version(EV_CURRENT);
    Tables tables(*this);
    tables.readProcessor();
    tables.readSegments();
    tables.readNeeds();
    tables.readVersions();
    tables.readSymbols();
    tables.readRelocations();
}

const char *ElfLibrary::memory(quint64 address, quint64 size) const
{
    for (const Segment &segment : m_segments) {
        const quint64 from = address - segment.address;
        if (address >= segment.address && from <= segment.size && size <= segment.size - from)
            return m_image.constData() + segment.offset + from;
    }
    return nullptr;
}

QByteArray ElfLibrary::bytes(quint64 address, quint64 size) const
{
    const char *found = memory(address, size);
    return found ? QByteArray(found, int(size)) : QByteArray();
}

quint32 ElfLibrary::number(quint64 address) const
{
    quint32 value = 0;
    if (const char *found = memory(address, sizeof value))
        std::memcpy(&value, found, sizeof value);
    return value;
}

quint64 ElfLibrary::word(quint64 address) const
{
    const quint64 low = number(address);
    return wordSize == 4 ? low : low | quint64(number(address + 4)) << 32;
}

Pointer ElfLibrary::pointer(quint64 address) const
{
    const auto relocation = m_relocations.constFind(address);
    if (relocation == m_relocations.constEnd())
        return {word(address), {}};
    const Symbol symbol = symbols.value(relocation->symbol);
    return {symbol.address + (relocation->isInPlace ? word(address) : relocation->addend),
            symbol.name};
}

QVector<quint64> ElfLibrary::writableWords() const
{
    QVector<quint64> addresses;
    for (const Segment &segment : m_segments) {
        const auto step = quint64(wordSize);
        for (quint64 at = 0; segment.isWritable && at + step <= segment.size; at += step)
            addresses.append(segment.address + at);
    }
    return addresses;
}

QString demangled(const QByteArray &name)
{
    int status = 0;
    const std::unique_ptr<char, void (*)(void *)> text(
        name.startsWith("_Z") ? abi::__cxa_demangle(name.constData(), nullptr, nullptr, &status)
                              : nullptr,
        &std::free);
    return QString::fromLocal8Bit(text ? text.get() : name.constData());
}

} // namespace mcusim
