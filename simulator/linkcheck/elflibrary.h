// A shared library of any processor, read as a file: none of its code runs.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QVector>

namespace mcusim {

/// A name that a library defines for others, or that it wants from them.
struct Symbol {
    QByteArray name;    ///< as the linker sees it
    QByteArray version; ///< empty without
    QByteArray file;    ///< of a wanted one with a version: the library that has to have it
    quint64 address = 0;
    bool isDefined = false;
    bool isWanted = false; ///< the library does not load without it
};

/// What a pointer in the library's data is at run time: an address in the library, or a symbol.
struct Pointer {
    quint64 address = 0;
    QByteArray symbol;
};

class ElfLibrary {
public:
    /// Throws a Refusal for all that is not a whole shared library.
    explicit ElfLibrary(const QString &file);

    QString path;
    QByteArray name;         ///< by which others load it
    QString processor;       ///< "arm64, 64 bit"
    QStringList folders;     ///< of the system's libraries for its processor
    QByteArrayList needed;   ///< libraries, by name
    QVector<Symbol> symbols; ///< in the order of its table
    int wordSize = 0;

    /// Its memory as loaded; what is outside of it reads as 0 and as an empty text.
    Pointer pointer(quint64 address) const;
    quint32 number(quint64 address) const;
    quint64 word(quint64 address) const;
    QByteArray bytes(quint64 address, quint64 size) const;
    /// The addresses of all words that can be pointers.
    QVector<quint64> writableWords() const;

private:
    struct Segment {
        quint64 address, offset, size;
        bool isWritable;
    };
    struct Relocation {
        quint64 addend;
        int symbol;
        bool isInPlace; ///< the addend is the word itself
    };
    struct Tables;

    const char *memory(quint64 address, quint64 size) const;

    QByteArray m_image;
    QVector<Segment> m_segments;
    QHash<quint64, Relocation> m_relocations;
};

/// "mcu::McuSrv::init()"; other names stay as they are.
QString demangled(const QByteArray &name);

} // namespace mcusim
