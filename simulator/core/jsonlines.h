// JSON Lines: bytes as they arrive become lines, lines become objects with nothing in them that
// nobody reads.
#pragma once

#include "refusal.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

#include <functional>

namespace mcusim {

/// Cuts lines out of bytes that arrive in pieces.
class LineReader {
public:
    static constexpr int longest = 1 << 20;

    void feed(const char *bytes, int size);
    /// The next line without its end; false when it is not whole yet. A Refusal for a line that is
    /// too long; the next call goes on with the line after it.
    bool next(QByteArray *line);
    /// The last line when no line end closes it; empty without such.
    QByteArray rest();
    /// The number of the line last given.
    int number() const { return m_number; }

private:
    QByteArray m_bytes;
    int m_begin = 0;    ///< of the next line
    int m_searched = 0; ///< no line end before it
    int m_number = 0;
    bool m_endless = false; ///< the rest of a refused line is still to come
};

/// The lines of a file, of a pipe or, as "-", of standard input. Read as they are asked for: what a
/// pipe brings is there as soon as its line is.
class LineFile {
public:
    /// Asked several times a second while a pipe brings nothing; false ends the waiting.
    using GoOn = std::function<bool()>;

    /// Throws a Refusal when there is no such file.
    explicit LineFile(const QString &path, GoOn goOn = {});
    ~LineFile();
    LineFile(const LineFile &) = delete;
    LineFile &operator=(const LineFile &) = delete;

    /// False at the end and when the waiting was ended. A Refusal for a line that is too long and
    /// when reading fails.
    bool next(QByteArray *line);
    /// Whether nothing follows the line that next() gave, not even a line end.
    bool isTail() const { return m_isTail; }
    bool wasInterrupted() const { return m_wasInterrupted; }

    /// Only a regular file can begin again.
    bool isRegular() const { return m_size >= 0; }
    void rewind();
    /// How much of a regular file has been read, from 0 to 1.
    double portion() const { return m_size > 0 ? double(m_read) / double(m_size) : 0; }

    const QString &name() const { return m_name; }
    int number() const { return m_lines.number(); }
    /// A refusal of the line that next() gave, with its place.
    Refusal located(const Refusal &refusal) const;

private:
    bool fill();

    QString m_name;
    GoOn m_goOn;
    int m_descriptor;
    qint64 m_size = -1;
    qint64 m_read = 0;
    LineReader m_lines;
    bool m_isTail = false;
    bool m_wasInterrupted = false;
};

/// The object of a line. A Refusal when it is none or has a key twice.
QJsonObject readObject(const QByteArray &line);
/// Whether a line without an end may be one that was cut off.
bool isTorn(const QByteArray &line);

/// The inside of a first line {"metadata":{"version":1,...}} that may hold these keys, too.
QJsonObject readMetadata(const QJsonObject &line, const QStringList &keys);

/// What to say where such a line is missing.
QString expectedMetadata();

/// A Refusal when the object has other keys.
void allowKeys(const QJsonObject &object, const QStringList &keys);
/// A Refusal that names the key, what it expects and what stands there.
[[noreturn]] void refuseValue(const QJsonObject &object, const char *key, const char *expected);
/// What a key holds; empty and false without the key, a Refusal for another type.
QString readText(const QJsonObject &object, const char *key);
bool readFlag(const QJsonObject &object, const char *key);

} // namespace mcusim
