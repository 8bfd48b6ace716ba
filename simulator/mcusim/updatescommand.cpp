// mcusim updates: shows what the searches for update files find under a folder.
#include "commandline.h"
#include "process.h"

#include "values.h"

#include "debug.h"
#include "updatefiles_p.h"

#include <QDir>
#include <QLoggingCategory>

namespace updatefiles = mcu::updatefiles;

namespace mcusim {

namespace {

// The searches look for texts in whole paths, but the path of the folder itself must not count. So
// the folder becomes the current one and is searched by a path that has no name of the user's.
const QString media = "/media";
const QString current = "/proc/self/cwd";

/// The text that picks the same mounts under the current folder as the key does under /media.
QString translated(const QString &key)
{
    QString text = key;
    if ((media + '/').contains(key))
        text = ""; // of all
    else if (key.startsWith(media))
        text.replace(0, media.size(), current);
    const QStringList mounts = QDir(current).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &mount : mounts) {
        if ((media + '/' + mount).contains(key) != (current + '/' + mount).contains(text))
            throw Refusal("--key " + excerpt(key) + " is too short for media such as " +
                          excerpt(mount));
    }
    return text;
}

void show(const char *search, QString found, const QString &root)
{
    if (found.startsWith(current))
        found.replace(0, current.size(), root);
    const QString line =
        "   " + QString(search).leftJustified(14) + (found.isEmpty() ? "-" : found) + '\n';
    std::fputs(line.toLocal8Bit().constData(), stdout);
}

} // namespace

int updatesCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"updates",
         "ROOT",
         "Shows which update files are found on the media under a folder that stands for /media.",
         {{"key", "KEY", "Text in the path of the media for the search of all media (/sd)."}}});
    line.expectOperands(1, 1, "one folder");
    const QString root = QDir(line.operands().constFirst()).absolutePath();
    if (!QDir::setCurrent(root))
        throw Refusal("cannot read " + root + ": " + qt_error_string());
    const QString key = translated(line.isSet("key") ? line.value("key") : "/sd");

    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    constexpr int images = 7;
    constexpr int firstMediumAlone = 6; // the value that the search of all media does not know
    for (int file = 0; file < images; ++file) {
        const updatefiles::Image image = updatefiles::imageOf(file);
        std::printf("%d  %s %s\n", file, image.folder, image.name);
        show("first medium",
             updatefiles::findOnFirstMount(current, image.folder, image.name, CALL_SITE), root);
        show("all media",
             file == firstMediumAlone
                 ? QString()
                 : updatefiles::findOnAllMounts(current, image.folder, image.name, key, false),
             root);
    }
    return Passed;
}

} // namespace mcusim
