// Verdicts of several files, each played in a process of its own: the library has one state.
#pragma once

#include "commands.h"

#include <QFile>
#include <QVector>

#include <functional>

namespace mcusim {

struct Verdict {
    QString name;
    int status = Passed;
    qint64 duration = 0; ///< virtual milliseconds
    QStringList faults;
};

/// Runs each file and collects what came of it. A file that cannot be used is one more verdict.
QVector<Verdict> runEach(const QStringList &files,
                         const std::function<QVector<Verdict>(const QString &file)> &run);

/// The worst status of all.
int worst(const QVector<Verdict> &verdicts);

/// A file of verdicts for continuous integration; made before the run, so that no run is in vain.
class JUnitFile {
public:
    /// Empty for no file. Throws a Refusal when it cannot be written.
    explicit JUnitFile(const QString &path);

    void write(const QString &suite, const QVector<Verdict> &verdicts);

private:
    [[noreturn]] void refuse() const;

    QFile m_file;
};

} // namespace mcusim
