// The byte image of one vehicle report. A description has all properties of a kind of report; the
// layout is computed from it at compile time.
#pragma once

#include <QByteArray>
#include <QtEndian>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace mcu {

class McuService;

/// One field of a record, or a gap byte between fields that is always 0.
struct Field {
    const char *name;  ///< the report's parameter; null for a gap
    std::size_t width; ///< bytes, little-endian

    constexpr bool isGap() const { return name == nullptr; }

    /// The value of the bytes from `at` on: 8- and 16-bit fields are unsigned, 32-bit fields
    /// signed.
    int read(const char *at) const
    {
        quint32 value = 0;
        for (std::size_t i = 0; i < width; ++i)
            value |= quint32(quint8(at[i])) << (8 * i);
        return int(value);
    }
};

/// A bit in the set of reports that CANDataReady() waits for.
struct Readiness {
    enum class Set { None, Car, Truck };

    Set set = Set::None;
    quint32 bit = 0;
};

/// How long reports are held back after one has been emitted.
struct Hold {
    int command = 0;       ///< code of the report for checkCmdUpdateToApp(); 0 is never held back
    qint8 ticks = 0;       ///< length in ticks of the CAN check timer
    bool restarts = false; ///< whether each report during the hold restarts it
};

/// One kind of vehicle report: its names, its layout and how it is published.
struct RecordDescription {
    static constexpr std::size_t maximumFields = 18;

    const char *title;
    const char *linkSignal;
    void (McuService::*signal)(QByteArray image);
    const char *getter;          ///< getter of the facade for the record; null for none
    const char *dumpTag;         ///< tag of the log line; null for none
    Field fields[maximumFields]; ///< in argument order; unused ones are 0 bytes wide
    Readiness readiness = {};
    Hold hold = {};

    /// Number of bytes of the image.
    constexpr std::size_t size() const
    {
        std::size_t sum = 0;
        for (const Field &field : fields)
            sum += field.width;
        return sum;
    }

    /// Number of fields without the gaps.
    constexpr std::size_t valueCount() const
    {
        std::size_t count = 0;
        for (const Field &field : fields)
            count += field.isGap() ? 0u : 1u;
        return count;
    }
};

/// The image of the last report of a kind, all zeros until the first store(). It does not depend on
/// byte order and padding of the machine.
template <const RecordDescription &Description>
class Record {
public:
    /// Stores one value per field, in order; a field keeps the low bits of its value.
    template <typename... Values>
    void store(Values... values)
    {
        static_assert(sizeof...(Values) == Description.valueCount(), "one value for each field");
        static_assert((std::is_same_v<Values, int> && ...), "reports are ints");
        storeInOrder(std::index_sequence_for<Values...>(), values...);
    }

    /// The stored value of the field with this number; gaps are not counted.
    template <std::size_t Number>
    int value() const
    {
        constexpr Place place = placeOf(Number);
        return Description.fields[place.index].read(m_bytes.data() + place.offset);
    }

    /// A copy of the whole image.
    QByteArray bytes() const { return QByteArray(m_bytes.data(), int(m_bytes.size())); }

private:
    struct Place {
        std::size_t index;
        std::size_t offset;
    };

    static constexpr Place placeOf(std::size_t number)
    {
        Place place{0, 0};
        for (; Description.fields[place.index].isGap() || number-- > 0; ++place.index)
            place.offset += Description.fields[place.index].width;
        return place;
    }

    template <std::size_t... Numbers, typename... Values>
    void storeInOrder(std::index_sequence<Numbers...>, Values... values)
    {
        (storeOne<Numbers>(quint32(values)), ...);
    }

    template <std::size_t Number>
    void storeOne(quint32 value)
    {
        constexpr Place place = placeOf(Number);
        constexpr std::size_t width = Description.fields[place.index].width;
        char *at = m_bytes.data() + place.offset;
        // One store per field: for wide fields a loop over the bytes takes twice the instructions.
        if constexpr (width == sizeof(quint32))
            qToLittleEndian(value, at);
        else if constexpr (width == sizeof(quint16))
            qToLittleEndian(quint16(value), at);
        else
            *at = char(value);
    }

    std::array<char, Description.size()> m_bytes{};
};

/// The last records of these kinds.
template <const RecordDescription &...Descriptions>
class RecordSet : Record<Descriptions>... {
public:
    static constexpr const RecordDescription *descriptions[]{&Descriptions...};

    template <const RecordDescription &Description>
    Record<Description> &of()
    {
        return *this;
    }
};

} // namespace mcu
