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

/// The object of a line. Throws a Refusal when it is none or has a key twice.
QJsonObject readObject(const QByteArray &line);
/// Throws a Refusal when an object has other keys.
void allowKeys(const QJsonObject &object, const QStringList &keys);
/// Throws a Refusal that names the key, what it expects and its value.
[[noreturn]] void refuseValue(const QJsonObject &object, const char *key, const char *expected);
/// What a key holds; empty and false without the key. Throws a Refusal for another type.
QString readText(const QJsonObject &object, const char *key);
bool readFlag(const QJsonObject &object, const char *key);

/// A file, a pipe or, as "-", standard input, with its metadata in the first line and one thing in
/// each other. It is read as it is asked for: what a pipe brings is there as soon as its line is.
class JsonLinesFile {
public:
    /// Asked several times a second while a pipe brings nothing; false ends the waiting.
    using GoOn = std::function<bool()>;

    struct Metadata {
        QString description;
        /// All that came out is there: playing it must give exactly that again.
        bool recording = false;
        /// A recording that closes with an end mark, so that a cut one is noticed.
        bool end = false;
    };

    virtual ~JsonLinesFile();
    JsonLinesFile(const JsonLinesFile &) = delete;
    JsonLinesFile &operator=(const JsonLinesFile &) = delete;

    const QString &name() const { return m_name; }
    const Metadata &metadata() const { return m_metadata; }
    /// How many things have been read.
    int count() const { return m_count; }
    /// Whether the end mark has been read.
    bool hasEnded() const { return m_hasEnded; }
    /// At the end: whether lines are missing there, and the warning for it.
    bool isCut() const { return m_tornLine > 0 || (m_metadata.end && !m_hasEnded); }
    QString warning() const;

    /// Only a regular file can begin again.
    bool isRegular() const { return m_size >= 0; }
    virtual void rewind();
    /// How much of a regular file has been read, from 0 to 1.
    double portion() const { return m_size > 0 ? double(m_read) / double(m_size) : 0; }

protected:
    /// Reads the metadata, which may have these keys beside the version. Like advance(), throws a
    /// Refusal with name and line.
    JsonLinesFile(const QString &path, GoOn goOn, const QStringList &metadataKeys);

    /// Reads on to the next thing. False at the end, and when the waiting was ended.
    bool advance();
    /// Takes a line; false when it is the end mark.
    virtual bool take(const QJsonObject &line) = 0;
    int number() const { return m_lines.number(); }

    bool m_hasEnded = false;

private:
    bool nextLine(QByteArray *line);
    bool fill();
    void readMetadata();
    bool isTorn(const QByteArray &line) const;
    Refusal located(const Refusal &refusal) const;

    QString m_name;
    GoOn m_goOn;
    QStringList m_metadataKeys;
    int m_descriptor;
    qint64 m_size = -1;
    qint64 m_start = 0;
    qint64 m_read = 0;
    bool m_isAtEnd = false;
    bool m_wasInterrupted = false;

    LineReader m_lines;
    Metadata m_metadata;
    bool m_hasMetadata = false;
    int m_count = 0;
    int m_tornLine = 0;
};

} // namespace mcusim
