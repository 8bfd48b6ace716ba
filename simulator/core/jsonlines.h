// JSON Lines: cuts bytes into lines as they arrive, and reads lines into objects that have no key
// twice and no unknown one.
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
    /// The next line without its end; false when it is not complete yet. Throws a Refusal for a
    /// line that is too long; the next call continues with the line after it.
    bool next(QByteArray *line);
    /// The last line if it has no line end; empty otherwise.
    QByteArray rest();
    /// The number of the line last returned.
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
/// The value of a key; empty and false without the key. Throws a Refusal for another type.
QString readText(const QJsonObject &object, const char *key);
bool readFlag(const QJsonObject &object, const char *key);

/// A file, a pipe or, as "-", standard input, with its metadata in the first line and one item in
/// each line after it. Reads no further than to the next item: a line from a pipe can be used as
/// soon as it has arrived.
class JsonLinesFile {
public:
    /// Called several times per second while a pipe has no data; false ends the waiting.
    using GoOn = std::function<bool()>;

    struct Metadata {
        QString description;
        /// Has all outputs: playing it must produce exactly these again.
        bool recording = false;
        /// Ends with an end mark, so that a cut recording is noticed.
        bool end = false;
        /// A recording of a real application, by the real clock.
        bool live = false;
        /// Of a recording: where, when and by what it was made.
        QJsonObject made{};
    };

    virtual ~JsonLinesFile();
    JsonLinesFile(const JsonLinesFile &) = delete;
    JsonLinesFile &operator=(const JsonLinesFile &) = delete;

    const QString &name() const { return m_name; }
    const Metadata &metadata() const { return m_metadata; }
    /// How many items have been read.
    int count() const { return m_count; }
    /// Whether the end mark has been read.
    bool hasEnded() const { return m_hasEnded; }
    /// At the end: whether lines are missing there, and the warning for it.
    bool isCut() const { return m_tornLine > 0 || (m_metadata.end && !m_hasEnded); }
    QString warning() const;

    /// Only a regular file can be read again from its start.
    bool isRegular() const { return m_size >= 0; }
    virtual void rewind();
    /// How much of a regular file has been read, from 0 to 1.
    double portion() const { return m_size > 0 ? double(m_read) / double(m_size) : 0; }

protected:
    /// Reads the metadata, which may have these keys beside the version. Like advance(), throws a
    /// Refusal with name and line.
    JsonLinesFile(const QString &path, GoOn goOn, const QStringList &metadataKeys);

    /// Reads the next item. False at the end, and when the waiting was ended.
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
    /// An open file; closed also when the constructor refuses what is in it.
    struct Descriptor {
        explicit Descriptor(int opened) : number(opened) {}
        ~Descriptor();
        Q_DISABLE_COPY(Descriptor)
        const int number;
    };
    const Descriptor m_file;
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
