// Verdicts of several files, each played in a process of its own: the library has one state.
#pragma once

#include "process.h"

#include <QFile>
#include <QVector>

#include <functional>

class QXmlStreamWriter;

namespace mcusim {

/// The result of a file, or of one test in it.
struct Verdict {
    QString name;
    qint64 duration = 0; ///< virtual milliseconds
    QStringList faults;  ///< one line each; empty when all is well
};

/// JUnit XML for continuous integration.
class JUnitFile {
public:
    /// Opened before the run: throws a Refusal when the file cannot be written. An empty path is no
    /// file.
    explicit JUnitFile(const QString &path);

    bool isOpen() const { return m_file.isOpen(); }
    /// A suite for a file that could be used, or not.
    void write(const QString &suite, const QVector<Verdict> &verdicts, bool isUsable = true);
    /// Writes text around the suites.
    void frame(const char *text);

private:
    QFile m_file;
};

/// Runs each file, which writes its suite, and returns the worst status. For a file that
/// cannot be used it shows one line on standard error and goes on with the next one.
int runEach(const QStringList &files, JUnitFile &junit,
            const std::function<int(const QString &file)> &run);

} // namespace mcusim
