#include "jsonlines.h"

#include "values.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mcusim {

namespace {

/// A key as it is meant: a letter may be written as an escape sequence.
std::string unescaped(std::string_view key)
{
    if (key.find('\\') == key.npos)
        return std::string(key);
    const QByteArray array = "[\"" + QByteArray(key.data(), int(key.size())) + "\"]";
    return QJsonDocument::fromJson(array).array().at(0).toString().toStdString();
}

/// Looks at the text, because the parser keeps only the last of several keys.
void refuseRepeatedKeys(const QByteArray &line)
{
    std::vector<std::vector<std::string>> open; // the keys of each object that has not ended
    std::string_view text;                      // the last one, a key if a colon follows
    for (int i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            const int begin = ++i;
            while (i < line.size() && line[i] != '"')
                i += line[i] == '\\' ? 2 : 1;
            text = {line.constData() + begin, std::size_t(std::min(i, line.size()) - begin)};
        } else if (c == '{') {
            open.emplace_back();
        } else if (c == ':' && !open.empty()) {
            open.back().push_back(unescaped(text));
        } else if (c == '}' && !open.empty()) {
            std::vector<std::string> &keys = open.back();
            std::sort(keys.begin(), keys.end());
            const auto repeated = std::adjacent_find(keys.begin(), keys.end());
            if (repeated != keys.end())
                throw Refusal(excerpt(QString::fromStdString(*repeated)) + " is there twice");
            open.pop_back();
        }
    }
}

} // namespace

void LineReader::feed(const char *bytes, int size)
{
    if (m_endless) {
        const void *end = std::memchr(bytes, '\n', std::size_t(size));
        if (!end)
            return;
        m_endless = false;
        const int skipped = int(static_cast<const char *>(end) - bytes) + 1;
        bytes += skipped;
        size -= skipped;
    }
    m_bytes.remove(0, m_begin);
    m_searched -= m_begin;
    m_begin = 0;
    m_bytes.append(bytes, size);
}

bool LineReader::next(QByteArray *line)
{
    const int found = m_bytes.indexOf('\n', m_searched);
    const int end = found < 0 ? m_bytes.size() : found;
    const bool tooLong = end - m_begin > longest;
    m_searched = end;
    if (found < 0 && !tooLong)
        return false;
    *line = m_bytes.mid(m_begin, end - m_begin);
    m_begin = m_searched = found < 0 ? end : end + 1;
    ++m_number;
    if (tooLong) {
        m_endless = found < 0;
        throw Refusal("expected a line of at most 1 MiB");
    }
    return true;
}

QByteArray LineReader::rest()
{
    QByteArray line = m_bytes.mid(std::exchange(m_begin, m_bytes.size()));
    m_number += line.isEmpty() ? 0 : 1;
    return line;
}

QJsonObject readObject(const QByteArray &line)
{
    refuseRepeatedKeys(line);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (!document.isObject()) {
        throw Refusal("expected a JSON object (" +
                      (document.isArray()
                           ? "found an array"
                           : error.errorString() + " at column " + QString::number(error.offset)) +
                      "), got " +
                      excerpt(QString::fromUtf8(line.constData(), std::min(line.size(), 200))));
    }
    return document.object();
}

void allowKeys(const QJsonObject &object, const QStringList &keys)
{
    const QStringList present = object.keys();
    for (const QString &key : present) {
        if (!keys.contains(key))
            throw Refusal("unexpected " + excerpt(key) + "; expected " + keys.join(", "));
    }
}

void refuseValue(const QJsonObject &object, const char *key, const char *expected)
{
    throw Refusal('"' + QString(key) + "\" expects " + expected + ", got " +
                  excerpt(object.value(QLatin1String(key))));
}

QString readText(const QJsonObject &object, const char *key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isString() && !value.isUndefined())
        refuseValue(object, key, "a text");
    return value.toString();
}

bool readFlag(const QJsonObject &object, const char *key)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isBool() && !value.isUndefined())
        refuseValue(object, key, "true or false");
    return value.toBool();
}

JsonLinesFile::JsonLinesFile(const QString &path, GoOn goOn, const QStringList &metadataKeys)
    : m_name(path == "-" ? "standard input" : printable(path)), m_goOn(std::move(goOn)),
      m_metadataKeys(metadataKeys),
      m_file(path == "-"
                 ? dup(STDIN_FILENO)
                 : open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
{
    struct stat about {};
    const bool exists = m_file.number >= 0 && fstat(m_file.number, &about) == 0;
    if (!exists || S_ISDIR(about.st_mode))
        throw Refusal("cannot read " + m_name + ": " + qt_error_string(exists ? EISDIR : errno));
    if (S_ISREG(about.st_mode))
        m_size = about.st_size;
    m_start = lseek(m_file.number, 0, SEEK_CUR); // standard input may be in the middle of a file
    readMetadata();
}

JsonLinesFile::~JsonLinesFile() = default;

JsonLinesFile::Descriptor::~Descriptor() { close(number); }

void JsonLinesFile::rewind()
{
    lseek(m_file.number, m_start, SEEK_SET);
    m_lines = {};
    m_read = 0;
    m_count = m_tornLine = 0;
    m_isAtEnd = m_hasMetadata = m_hasEnded = false;
    readMetadata();
}

QString JsonLinesFile::warning() const
{
    return m_name + ": " +
           (m_tornLine > 0 ? "line " + QString::number(m_tornLine) + " is torn and left out"
                           : "the end is missing") +
           (m_metadata.recording ? "; what is there of the recording is compared" : "");
}

void JsonLinesFile::readMetadata()
{
    QByteArray line;
    while (nextLine(&line) && line.trimmed().isEmpty()) {
    }
    if (m_wasInterrupted)
        return;
    const QByteArray opening = R"({"metadata":)"; // a recording can be cut in it, too
    if (m_size == 0 || (isTorn(line) && opening.startsWith(line.left(opening.size())))) {
        m_tornLine = 1;
        return;
    }
    try {
        const QJsonObject object = line.isEmpty() ? QJsonObject() : readObject(line);
        const QJsonObject metadata = object.value("metadata").toObject();
        if (metadata.value("version") != QJsonValue(1) || object.size() != 1) {
            throw Refusal(R"(expected {"metadata":{"version":1,...}} alone in the first line)" +
                          (line.isEmpty() ? QString() : ", got " + excerpt(QJsonValue(object))));
        }
        allowKeys(metadata, QStringList("version") + m_metadataKeys);
        m_metadata = {readText(metadata, "description"), readFlag(metadata, "recording"),
                      readFlag(metadata, "end"), readFlag(metadata, "live"),
                      metadata.value("made").toObject()};
        if (metadata.contains("made") && !metadata.value("made").isObject())
            refuseValue(metadata, "made", "an object");
        if (m_metadata.live && !m_metadata.recording)
            throw Refusal("\"live\" expects a \"recording\"");
        m_hasMetadata = true;
    } catch (const Refusal &refusal) {
        throw located(refusal);
    }
}

bool JsonLinesFile::advance()
{
    QByteArray line;
    while (m_tornLine == 0 && nextLine(&line)) {
        if (line.trimmed().isEmpty())
            continue;
        if (isTorn(line)) {
            m_tornLine = number();
            break;
        }
        try {
            if (m_hasEnded)
                throw Refusal("expected nothing after the end mark");
            m_hasEnded = !take(readObject(line));
        } catch (const Refusal &refusal) {
            throw located(refusal);
        }
        if (!m_hasEnded) {
            ++m_count;
            return true;
        }
    }
    if (m_count == 0 && m_hasMetadata && !m_metadata.recording && !m_wasInterrupted)
        throw Refusal(m_name + ": expected at least one line after the metadata");
    return false;
}

/// The last line may have no line end.
bool JsonLinesFile::nextLine(QByteArray *line)
{
    try {
        while (!m_lines.next(line)) {
            if (!fill()) {
                m_isAtEnd = true;
                *line = m_wasInterrupted ? QByteArray() : m_lines.rest();
                // A file system that lost its power may not have written the last bytes.
                while (line->endsWith('\0'))
                    line->chop(1);
                return !line->isEmpty();
            }
        }
        return true;
    } catch (const Refusal &refusal) {
        throw located(refusal);
    }
}

/// Reads more; false when there is nothing more.
bool JsonLinesFile::fill()
{
    // Waits here alone: neither read() nor open() returns for a pipe without a writer.
    constexpr int interval = 200;
    pollfd input{m_file.number, POLLIN, 0};
    while (poll(&input, 1, interval) <= 0) {
        m_wasInterrupted = m_goOn && !m_goOn();
        if (m_wasInterrupted)
            return false;
    }
    char bytes[1 << 16];
    const ssize_t size = read(m_file.number, bytes, sizeof bytes);
    if (size < 0)
        throw Refusal("cannot be read (" + qt_error_string() + ')');
    m_lines.feed(bytes, int(size));
    m_read += size;
    return size > 0;
}

bool JsonLinesFile::isTorn(const QByteArray &line) const
{
    if (!m_isAtEnd || !line.trimmed().startsWith('{'))
        return false;
    // The parser stops where the text ends, or before the word or letter that is cut there.
    constexpr int longestRest = 4;
    QJsonParseError error{};
    QJsonDocument::fromJson(line, &error);
    return error.error != QJsonParseError::NoError &&
           error.error != QJsonParseError::GarbageAtEnd &&
           line.size() - error.offset <= longestRest;
}

Refusal JsonLinesFile::located(const Refusal &refusal) const
{
    return Refusal(m_name + ": line " + QString::number(std::max(1, number())) + ": " +
                   refusal.text());
}

} // namespace mcusim
