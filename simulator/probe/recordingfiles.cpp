#include "recordingfiles.h"

#include "origin.h"

#include <QDir>
#include <QMap>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

constexpr mode_t mode = 0666;

[[noreturn]] void refuse(const char *what, const QString &path, int error)
{
    throw Refusal("cannot " + (what + (' ' + path)) + ": " + qt_error_string(error) +
                  "; the recording ends");
}

Recordings::Target target(const QString &path, int file, const QString &program)
{
    return {path, fdopen(file, "w"), {program, true, true, true, origin()}};
}

/// A setting of the environment; "K" and "M" multiply it.
qint64 readNumber(const char *variable, qint64 usual, qint64 least)
{
    constexpr qint64 most = 1 << 30;
    const QByteArray text = qgetenv(variable);
    if (text.isEmpty())
        return usual;
    const qint64 unit = text.endsWith('K') ? 1 << 10 : text.endsWith('M') ? 1 << 20 : 1;
    bool isNumber = false;
    const qint64 number = text.left(text.size() - (unit > 1 ? 1 : 0)).toInt(&isNumber);
    if (!isNumber || number * unit < least || number * unit > most) {
        throw Refusal(QString(variable) + " expects a number from " + QString::number(least) +
                      " to " + QString::number(most) + ", perhaps with K or M, got \"" +
                      QString::fromUtf8(text) + "\"; nothing is recorded");
    }
    return number * unit;
}

} // namespace

Recordings::Open oneFile(const QByteArray &path, const QString &program)
{
    return [path, program] {
        const QString name = QFile::decodeName(path);
        // Not waiting for a reader of a pipe, nor for another process that records there: that is a
        // child of this one or its parent, with the same settings.
        const int file =
            ::open(path.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, mode);
        struct stat about {};
        if (file < 0 || fstat(file, &about) != 0)
            refuse("write", name, errno);
        const bool isKnown = S_ISREG(about.st_mode) || S_ISCHR(about.st_mode);
        const bool isFree = isKnown && flock(file, LOCK_EX | LOCK_NB) == 0;
        if (!isFree) {
            close(file);
            throw Refusal(name + (isKnown ? ": another process records there"
                                          : ": expected a file, for the recording"));
        }
        if (S_ISREG(about.st_mode) && ftruncate(file, 0) != 0) {
            const int error = errno;
            close(file);
            refuse("write", name, error);
        }
        return target(name, file, program);
    };
}

Ring::Ring(const QString &program)
    : m_program(program),
      m_folder(QDir(QFile::decodeName(qgetenv("MCUPROBE_FOLDER"))).absolutePath()),
      m_fileSize(readNumber("MCUPROBE_SIZE", 4 << 20, 1 << 10)),
      m_files(readNumber("MCUPROBE_FILES", 8, 2))
{
}

Recordings::Target Ring::open() const
{
    QMap<quint64, QString> files;
    const QStringList found = QDir(m_folder).entryList({m_program + ".*.jsonl"}, QDir::Files);
    for (const QString &file : found) {
        const quint64 number = file.section('.', 1, 1).toULongLong();
        if (path(number) == m_folder + '/' + file)
            files.insert(number, path(number));
    }
    quint64 number = files.isEmpty() ? 0 : files.lastKey();
    int file = -1;
    do {
        const QByteArray next = QFile::encodeName(path(++number));
        file = ::open(next.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    } while (file < 0 && errno == EEXIST); // another process was faster
    if (file < 0)
        refuse("write", path(number), errno);
    flock(file, LOCK_EX | LOCK_NB); // as long as it is written
    try {
        while (files.size() >= m_files)
            remove(files.take(files.firstKey()));
    } catch (const Refusal &) {
        close(file);
        unlink(QFile::encodeName(path(number)).constData());
        throw;
    }
    return target(path(number), file, m_program);
}

QString Ring::path(quint64 number) const
{
    constexpr int digits = 6;
    return m_folder + '/' + m_program + '.' + QString::number(number).rightJustified(digits, '0') +
           ".jsonl";
}

void Ring::remove(const QString &path) const
{
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const bool isWritten = file >= 0 && flock(file, LOCK_SH | LOCK_NB) != 0;
    const int error = isWritten || unlink(name.constData()) == 0 ? 0 : errno;
    if (file >= 0)
        close(file);
    if (error != 0 && error != ENOENT)
        refuse("remove", path, error);
}

} // namespace mcusim::probe
