// mcusim updates: what the searches for update files find under a folder.
#include "commands.h"

#include "debug.h"
#include "updatefiles_p.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cstdio>

namespace updatefiles = mcu::updatefiles;

namespace mcusim {

int updatesCommand(const QStringList &arguments, substitute::VirtualClock *)
{
    const QCommandLineOption keyOption(
        QStringLiteral("key"),
        QStringLiteral("Text in the path of the media for the search of all media (/sd)."),
        QStringLiteral("KEY"), QStringLiteral("/sd"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows which update files are found on the media under a folder that stands "
                       "for /media."));
    parser.addOption(helpOption());
    parser.addOption(keyOption);
    parser.addPositionalArgument(QStringLiteral("updates"), QString());
    parser.addPositionalArgument(QStringLiteral("ROOT"), QStringLiteral("the folder"));
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return unusable(parser.errorText() + QStringLiteral("; see mcusim updates --help"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(Passed);
    const QStringList roots = parser.positionalArguments().mid(1);
    if (roots.size() != 1)
        return unusable(QStringLiteral("updates expects one folder; see mcusim updates --help"));
    const QString &root = roots.first();
    if (!QFileInfo(root).isDir())
        return unusable(QStringLiteral("%1 is no folder").arg(root));

    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    const auto show = [](const QString &found) {
        return found.isEmpty() ? QByteArray("-") : found.toLocal8Bit();
    };
    constexpr int images = 7;
    constexpr int firstMediumAlone = 6; // the value that the search of all media does not know
    for (int file = 0; file < images; ++file) {
        const updatefiles::Image image = updatefiles::imageOf(file);
        std::printf("%d  %s %s\n", file, image.folder, image.name);
        std::printf("   first medium  %s\n",
                    show(updatefiles::findOnFirstMount(root, image.folder, image.name, CALL_SITE))
                        .constData());
        std::printf("   all media     %s\n",
                    file == firstMediumAlone
                        ? "-"
                        : show(updatefiles::findOnAllMounts(root, image.folder, image.name,
                                                            parser.value(keyOption), false))
                              .constData());
    }
    return written(Passed);
}

} // namespace mcusim
