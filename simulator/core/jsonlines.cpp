#include "jsonlines.h"

#include "values.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mcusim {

namespace {

QJsonDocument parse(const QByteArray &line, QString *error)
{
    QJsonParseError parsed{};
    QJsonDocument document = QJsonDocument::fromJson(line, &parsed);
    if (document.isArray())
        *error = QStringLiteral("found an array");
    else if (!document.isObject())
        *error = parsed.errorString() + " at column " + QString::number(parsed.offset);
    return document;
}

int countKeys(const QJsonValue &value)
{
    const QJsonObject object = value.toObject();
    const QJsonArray array = value.toArray();
    int count = object.size();
    for (const QJsonValue &member : object)
        count += countKeys(member);
    for (const QJsonValue &item : array)
        count += countKeys(item);
    return count;
}

/// One for each key that was written.
int countColons(const QByteArray &line)
{
    int count = 0;
    bool inText = false;
    for (const char *c = line.begin(); c < line.end(); ++c) {
        if (*c == '"')
            inText = !inText;
        else if (*c == '\\')
            ++c;
        else if (*c == ':' && !inText)
            ++count;
    }
    return count;
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
        throw Refusal(QStringLiteral("expected a line of at most 1 MiB"));
    }
    return true;
}

QByteArray LineReader::rest()
{
    const QByteArray line = m_bytes.mid(std::exchange(m_begin, m_bytes.size()));
    m_number += line.isEmpty() ? 0 : 1;
    return line;
}

LineFile::LineFile(const QString &path, GoOn goOn)
    : m_name(path == QLatin1String("-") ? QStringLiteral("standard input") : path),
      m_goOn(std::move(goOn)),
      m_descriptor(path == QLatin1String("-")
                       ? dup(STDIN_FILENO)
                       : open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC))
{
    struct stat about {};
    const bool exists = m_descriptor >= 0 && fstat(m_descriptor, &about) == 0;
    if (!exists || S_ISDIR(about.st_mode)) {
        throw Refusal("cannot read " + m_name + ": " + qt_error_string(exists ? EISDIR : errno));
    }
    if (S_ISREG(about.st_mode))
        m_size = about.st_size;
}

LineFile::~LineFile() { close(m_descriptor); }

bool LineFile::next(QByteArray *line)
{
    try {
        while (!m_lines.next(line)) {
            if (!fill()) {
                m_isTail = true;
                *line = m_wasInterrupted ? QByteArray() : m_lines.rest();
                return !line->isEmpty();
            }
        }
        return true;
    } catch (const Refusal &refusal) {
        throw located(refusal);
    }
}

void LineFile::rewind()
{
    lseek(m_descriptor, 0, SEEK_SET);
    m_read = 0;
    m_lines = {};
    m_isTail = false;
}

Refusal LineFile::located(const Refusal &refusal) const
{
    return Refusal(m_name + ": line " + QString::number(number()) + ": " + refusal.text());
}

/// Reads more; false when there is nothing more.
bool LineFile::fill()
{
    constexpr int interval = 200;
    pollfd input{m_descriptor, POLLIN, 0};
    while (m_goOn && poll(&input, 1, interval) <= 0) {
        if (!m_goOn()) {
            m_wasInterrupted = true;
            return false;
        }
    }
    char bytes[1 << 16];
    const ssize_t size = read(m_descriptor, bytes, sizeof bytes);
    if (size < 0)
        throw Refusal("cannot be read (" + qt_error_string() + ')');
    m_lines.feed(bytes, int(size));
    m_read += size;
    return size > 0;
}

QJsonObject readObject(const QByteArray &line)
{
    QString error;
    const QJsonObject object = parse(line, &error).object();
    if (!error.isEmpty())
        throw Refusal("expected a JSON object (" + error + "), got " +
                      excerpt(QString::fromUtf8(line.left(200))));
    if (countKeys(object) != countColons(line)) {
        for (const QString &key : object.keys()) {
            if (line.count('"' + key.toUtf8() + '"') > 1)
                throw Refusal(excerpt(key) + " stands there twice");
        }
        throw Refusal(QStringLiteral("a key stands there twice"));
    }
    return object;
}

bool isTorn(const QByteArray &line)
{
    QString error;
    parse(line, &error);
    return !error.isEmpty() && line.trimmed().startsWith('{');
}

QString expectedMetadata()
{
    return QStringLiteral(R"(expected {"metadata":{"version":1,...}} alone in the first line)");
}

QJsonObject readMetadata(const QJsonObject &line, const QStringList &keys)
{
    const QJsonObject metadata = line.value(QLatin1String("metadata")).toObject();
    if (metadata.value(QLatin1String("version")) != QJsonValue(1) || line.size() != 1) {
        throw Refusal(expectedMetadata() + ", got " + excerpt(QJsonValue(line)));
    }
    allowKeys(metadata, QStringList(QStringLiteral("version")) + keys);
    return metadata;
}

void allowKeys(const QJsonObject &object, const QStringList &keys)
{
    for (const QString &key : object.keys()) {
        if (!keys.contains(key))
            throw Refusal("unexpected " + excerpt(key) + "; expected " +
                          keys.join(QStringLiteral(", ")));
    }
}

void refuseValue(const QJsonObject &object, const char *key, const char *expected)
{
    throw Refusal('"' + QString::fromLatin1(key) + "\" expects " + expected + ", got " +
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

} // namespace mcusim
