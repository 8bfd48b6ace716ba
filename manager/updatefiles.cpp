// The two searches for update images. They differ in more than the number of mounts; callers rely
// on the differences.
#include "updatefiles_p.h"

#include <QDir>

#include <algorithm>
#include <array>

namespace mcu::updatefiles {

namespace {

constexpr char sdMount[] = "/sd";
constexpr char topLevel[] = "ROOT";
constexpr char updateFolder[] = "/update";

// In the order of the values of McuManager::UpdateFile.
constexpr std::array images{
    Image{updateFolder, "st26mcu.bin"},  Image{updateFolder, "CUST_PIO.BIN"},
    Image{topLevel, "ISPBOOOT.BIN"},     Image{topLevel, "ISPBOOOT.md5"},
    Image{topLevel, "turndegradedmode"}, Image{updateFolder, "CUST_PIO.md5"},
    Image{topLevel, "navigation"},
};

bool hasName(const QFileInfo &entry, const QString &name)
{
    return entry.fileName().compare(name, Qt::CaseInsensitive) == 0;
}

QFileInfoList entries(const QString &folder, QDir::Filters kinds)
{
    return QDir(folder).entryInfoList(kinds | QDir::NoDotAndDotDot);
}

QFileInfoList mountsUnder(const QString &mediaRoot) { return entries(mediaRoot, QDir::Dirs); }

QFileInfoList contentOf(const QFileInfo &mount)
{
    return entries(mount.absoluteFilePath(), QDir::Dirs | QDir::Files);
}

QFileInfoList filesIn(const QFileInfo &folder)
{
    return entries(folder.absoluteFilePath(), QDir::Files);
}

/// Path of the first file with this name, ignoring case; empty if there is none.
QString pathOf(const QString &name, const QFileInfoList &files)
{
    const auto file = std::find_if(files.begin(), files.end(), [&](const QFileInfo &candidate) {
        return hasName(candidate, name);
    });
    return file == files.end() ? QString() : file->absoluteFilePath();
}

/// Path of the entry with exactly this name, which may contain folders, at the top level of the
/// mount; empty if there is none or if the name leads out of the mount.
QString topLevelPath(const QFileInfo &mount, const QString &name)
{
    const QDir top(mount.absoluteFilePath());
    const QString entry = QDir::cleanPath(top.filePath(name)) + '/';
    const bool isInside = QDir::isRelativePath(name) && entry.startsWith(top.path() + '/');
    return isInside && !name.isEmpty() && top.exists(name) ? top.path() + '/' + name : QString();
}

} // namespace

Image imageOf(int updateFile)
{
    const auto index = std::size_t(updateFile);
    return index < images.size() ? images[index] : Image{};
}

QString findOnFirstMount(const QString &mediaRoot, const QString &folder, const QString &name,
                         const CallSite &caller)
{
    const auto log = [&](const auto &...items) {
        if (isDebugLogged())
            (debugLine(caller) << ... << items);
    };
    const auto result = [&](const QString &path) {
        if (path.isEmpty())
            log("empty");
        else
            log(path);
        return path;
    };

    log(folder, name);
    if (!QDir(mediaRoot).exists())
        return result({});
    const QFileInfoList mounts = mountsUnder(mediaRoot);
    log(mounts.size());
    const auto mount = std::find_if(mounts.begin(), mounts.end(), [](const QFileInfo &candidate) {
        return candidate.absoluteFilePath().contains(sdMount);
    });
    if (mount == mounts.end())
        return result({});
    log(mount->absoluteFilePath());

    const QFileInfoList content = contentOf(*mount);
    log(content.size());
    if (content.isEmpty())
        return result({});
    if (folder == topLevel) {
        log(name);
        return result(topLevelPath(*mount, name));
    }
    for (const QFileInfo &entry : content) {
        if (hasName(entry, QStringLiteral("update"))) {
            const QFileInfoList files = filesIn(entry);
            log(files.size());
            const QString path = pathOf(name, files);
            if (!path.isEmpty())
                return result(path);
        } else if (folder.isEmpty() && entry.isFile() && hasName(entry, name)) {
            return result(entry.absoluteFilePath());
        }
    }
    return result({});
}

QString findOnAllMounts(const QString &mediaRoot, const QString &folder, const QString &name,
                        const QString &mountKey, bool forceSd)
{
    // An empty key that is not null is in every path, so it selects all mounts.
    const QString key = forceSd || mountKey.isNull() ? sdMount : mountKey;
    const QFileInfoList mounts = mountsUnder(mediaRoot);
    for (const QFileInfo &mount : mounts) {
        if (!mount.absoluteFilePath().contains(key))
            continue;
        const QFileInfoList content = contentOf(mount);
        if (content.isEmpty())
            continue;
        if (folder == topLevel)
            return topLevelPath(mount, name);
        for (const QFileInfo &entry : content) {
            if (entry.isDir() && entry.absoluteFilePath().contains(folder)) {
                QString path = pathOf(name, filesIn(entry));
                if (!path.isEmpty())
                    return path;
            } else if (folder.isEmpty() && entry.isFile() && hasName(entry, name)) {
                return entry.absoluteFilePath();
            }
        }
    }
    return {};
}

} // namespace mcu::updatefiles
