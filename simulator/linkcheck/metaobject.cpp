#include "metaobject.h"

#include <QMetaType>

namespace mcusim {

namespace {

// From Qt's private headers, the same since Qt 5.0: the words of a QMetaObject, the numbers of the
// table that it points to, and the elements of its table of texts.
enum Word { SuperWord, TextsWord, TableWord };
enum Header { Revision, ClassName, MethodCount = 4, MethodTable = 5 };
enum Method { MethodName, ArgumentCount, Parameters, MethodFlags = 4, MethodSize };
constexpr quint32 methodTypeMask = 0x0c;
constexpr quint32 signalType = 0x04;
constexpr quint32 isText = 0x80000000; // a type that is a text, not the number of a built-in type
constexpr quint32 staticText = 0xffffffff;
constexpr quint32 mostNumbers = 1'000'000; // in a table

class Reader {
public:
    Reader(const ElfLibrary &library, quint64 address)
        : m_library(library), m_address(address), m_texts(pointer(TextsWord)),
          m_table(pointer(TableWord))
    {
    }

    /// Empty for data that is no meta-object: a class has a name, and its last method, too.
    QByteArray className() const
    {
        const quint32 methods = number(MethodCount);
        const bool isQt5 = number(Revision) == 7 || number(Revision) == 8;
        if (!isQt5 || number(MethodTable) >= mostNumbers || methods >= mostNumbers)
            return {};
        if (methods > 0 && signatureOf(number(MethodTable) + (methods - 1) * MethodSize).isEmpty())
            return {};
        return text(number(ClassName));
    }

    MetaObject read() const
    {
        MetaObject object{className(), superClass(), {}};
        for (quint32 i = 0; i < number(MethodCount); ++i) {
            const quint32 method = number(MethodTable) + i * MethodSize;
            const QByteArray signature = signatureOf(method);
            if (signature.isEmpty())
                break;
            if ((number(method + MethodFlags) & methodTypeMask) == signalType)
                object.signatures.append(signature);
        }
        return object;
    }

private:
    quint64 pointer(Word word) const
    {
        return m_library.pointer(m_address + quint64(word * m_library.wordSize)).address;
    }

    quint32 number(quint32 index) const { return m_library.number(m_table + quint64(index) * 4); }

    /// An element is a reference count, a size, a capacity and the way from it to the text.
    QByteArray text(quint32 index) const
    {
        constexpr quint32 longest = 4096;
        const quint64 wayAt = m_library.wordSize == 8 ? 16 : 12;
        const quint64 element = m_texts + index * (wayAt + quint64(m_library.wordSize));
        const quint32 size = m_library.number(element + 4);
        if (m_library.number(element) != staticText || size > longest)
            return {};
        return m_library.bytes(element + m_library.word(element + wayAt), size);
    }

    QByteArray superClass() const
    {
        const Pointer super = m_library.pointer(m_address);
        if (super.symbol.isEmpty())
            return super.address ? Reader(m_library, super.address).className() : QByteArray();
        return demangled(super.symbol).section("::", 0, -2).toUtf8();
    }

    QByteArray signatureOf(quint32 method) const
    {
        const QByteArray name = text(number(method + MethodName));
        constexpr quint32 most = 1000;
        QByteArrayList types;
        for (quint32 i = 0; i < std::min(number(method + ArgumentCount), most); ++i) {
            const quint32 type = number(number(method + Parameters) + 1 + i);
            types.append(type & isText ? text(type & ~isText)
                                       : QByteArray(QMetaType::typeName(int(type))));
        }
        return name.isEmpty() ? name : name + '(' + types.join(',') + ')';
    }

    const ElfLibrary &m_library;
    quint64 m_address, m_texts, m_table;
};

} // namespace

QVector<MetaObject> metaObjects(const ElfLibrary &library)
{
    // By what they look like: a link need not export them.
    QVector<MetaObject> found;
    const QVector<quint64> addresses = library.writableWords();
    for (const quint64 address : addresses) {
        const Reader reader(library, address);
        if (!reader.className().isEmpty())
            found.append(reader.read());
    }
    return found;
}

} // namespace mcusim
