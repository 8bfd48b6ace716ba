// Plays updatefiles.txt, which describes its format: the files that the manager finds on the media.
// The test has its own root folder, so that "/media" is a folder of the test.
#include "mcumanager.h"
#include "testkit.h"

#include <QDir>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

namespace {

void makeMedia(const QStringList &entries)
{
    QDir("/media").removeRecursively();
    for (const QString &entry : entries) {
        const QString path = "/media/" + entry.section('>', 0, 0);
        QDir().mkpath(path.section('/', 0, -2));
        if (entry.contains('>'))
            QFile::link(entry.section('>', 1), path);
        else if (!entry.endsWith('/'))
            QFile(path).open(QFile::WriteOnly);
    }
}

QString find(McuManager &manager, const QStringList &call)
{
    const auto text = [&](int place) {
        return call[place] == "null" ? QString() : QString(call[place]).remove("\"\"");
    };
    const bool isMarked = call.size() > 3; // disabled or forced
    if (call[0] == "image") {
        const auto file = McuManager::UpdateFile(call[1].toInt());
        return call.size() == 2 ? manager.findUpdateFile(file)
                                : manager.findUpdateFile(file, text(2), !isMarked);
    }
    return call.size() == 2 ? manager.findUpdateFile(text(0), text(1))
                            : manager.findUpdateFile(text(0), text(1), text(2), isMarked);
}

/// The log of a search without the three lines of its tracer.
QString texts(const QVector<testkit::LogLine> &lines)
{
    QStringList texts;
    for (const testkit::LogLine &line : lines) {
        if (!line.text.contains("QString McuManager::findUpdateFile(QString, QString)"))
            return "of another: " + line.text;
        texts += line.text.section(" -- ", 1);
    }
    if (texts.isEmpty())
        return {};
    const bool isTraced = texts.size() > 3 && texts.takeFirst().isEmpty() &&
                          texts.takeLast().isEmpty() && texts.takeLast().isEmpty();
    return isTraced ? texts.join(" | ") : "not traced";
}

} // namespace

class tst_UpdateFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void finds()
    {
        QFile script(UPDATE_FILES);
        QVERIFY(script.open(QFile::ReadOnly));
        const QStringList rows =
            QString::fromUtf8(script.readAll()).replace("\n    --", " --").split('\n');

        const QTemporaryDir folder;
        const QByteArray root = QFile::encodeName(folder.path());
        const int before = open("/", O_RDONLY | O_CLOEXEC);
        // This needs root rights of the machine or of a user name space.
        if (chroot(root) != 0 && (unshare(CLONE_NEWUSER) != 0 || chroot(root) != 0))
            QSKIP("the root folder cannot be moved", );
        const auto moveBack =
            qScopeGuard([&] { QVERIFY(fchdir(before) == 0 && chroot(".") == 0); });

        McuManager manager(nullptr);
        testkit::LogCapture log;
        for (const QString &row : rows) {
            if (row.startsWith("== "))
                makeMedia(row.mid(3).split(' '));
            const QString call = row.section(" -> ", 0, 0), wanted = row.section(" -> ", 1);
            if (wanted.isEmpty())
                continue;
            log.take();
            QString found = find(manager, call.split(' ', Qt::SkipEmptyParts));
            found = found.isEmpty() ? "-" : found.replace(QRegularExpression("^/media/"), "");
            if (wanted.contains(" --"))
                found += " -- " + texts(log.take());
            QCOMPARE(call + " -> " + found.trimmed(), call + " -> " + wanted);
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_UpdateFiles>(argc, argv); }
#include "tst_updatefiles.moc"
