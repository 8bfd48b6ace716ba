// The medium goes while an update image is searched on it, or the search can open no folder.
#include "fault.h"

#include "updatefiles_p.h"

#include <QDir>
#include <QFile>

#include <atomic>
#include <thread>

#include <sys/mount.h>

namespace {

using namespace faults;
namespace updatefiles = mcu::updatefiles;

constexpr char medium[] = "media/sda1";
constexpr char image[] = "a.bin";

const QString &root()
{
    static const QString folder = QDir::currentPath() + "/media";
    return folder;
}

QString pathOfImage() { return root() + "/sda1/update/" + image; }

void fill()
{
    QDir().mkpath(QString(medium) + "/update");
    for (const char *file : {"/update/a.bin", "/a.bin"})
        QFile(QString(medium) + file).open(QFile::WriteOnly);
}

QString findOnFirst(const char *folder)
{
    return updatefiles::findOnFirstMount(root(), folder, image, CALL_SITE);
}

QString findOnAll(const char *folder)
{
    return updatefiles::findOnAllMounts(root(), folder, image, {}, false);
}

// The search logs each of its steps. The message handler takes the medium away at one of them.
int stepsLeft = 0;
void (*takeAway)() = nullptr;

void count(QtMsgType, const QMessageLogContext &, const QString &)
{
    if (--stepsLeft == 0)
        takeAway();
}

/// Searches with the medium taken away at the first step, the second and so on. One letter for
/// each: what is found, "-" for nothing.
QString searches(const char *folder, const QString &path, void (*insert)(), void (*take)())
{
    QString found;
    takeAway = take;
    for (int step = 1;; ++step) {
        insert();
        stepsLeft = step;
        qInstallMessageHandler(count);
        QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
        const QString result = findOnFirst(folder);
        qInstallMessageHandler(nullptr);
        const bool isOver = stepsLeft > 0;
        if (isOver)
            take();
        found += result.isEmpty() ? '-' : result == path ? '+' : '?';
        if (isOver)
            return found;
    }
}

Outcome taken(void (*insert)(), void (*take)())
{
    const QString update = searches("/update", pathOfImage(), insert, take);
    const QString top = searches("ROOT", root() + "/sda1/" + image, insert, take);
    // What was listed before the medium went is still found.
    return {update == "----+++" && top == "-----++",
            QString("at each step of the search: %1 in a folder, %2 at the top level")
                .arg(update, top)};
}

Outcome unmounted()
{
    useOwnMounts();
    return taken(
        [] {
            mountDisk(medium, "64k");
            fill();
        },
        [] { umount2(medium, MNT_DETACH); });
}

Outcome removed()
{
    return taken(fill, [] {
        QDir().rename(medium, "gone");
        QDir("gone").removeRecursively();
    });
}

Outcome comesAndGoes()
{
    constexpr int searches = 3000;
    fill();
    std::atomic<bool> isOver{false};
    std::thread hand([&] {
        while (!isOver) {
            QDir().rename(medium, "gone");
            QDir().rename("gone", medium);
        }
    });
    int others = 0;
    for (int i = 0; i < searches; ++i) {
        const QString found = i % 2 == 0 ? findOnAll("/update") : findOnFirst("/update");
        others += found.isEmpty() || found == pathOfImage() ? 0 : 1;
    }
    isOver = true;
    hand.join();
    const bool isThere = findOnAll("/update") == pathOfImage();
    return {
        others == 0 && isThere,
        QString("%1 searches: %2 other results; found when it stays").arg(searches).arg(others)};
}

Outcome noDescriptor()
{
    fill();
    QString found;
    withoutFreeDescriptor([&] { found = findOnFirst("/update") + findOnAll("/update"); });
    const bool isThere = findOnAll("/update") == pathOfImage();
    return {found.isEmpty() && isThere, found.isEmpty() ? "nothing, then the path" : found};
}

} // namespace

const std::vector<Fault> faults::mediumFaults{
    {"The medium is unmounted during the update search", "A path that was listed, or nothing",
     unmounted},
    {"The medium's folder is removed during the update search",
     "A path that was listed, or nothing", removed},
    {"The medium comes and goes all the time", "The path or nothing", comesAndGoes},
    {"No descriptor is free for the update search", "Nothing; the path when there is one again",
     noDescriptor},
};
