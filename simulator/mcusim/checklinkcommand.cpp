// mcusim check-link: what the library will miss on a platform, read from the platform's files.
#include "bench.h"
#include "commandline.h"

#include "linkcheck.h"
#include "values.h"

#include "audioservice.h"
#include "eventhandler.h"
#include "mcuservice.h"
#include "mcusrv.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <dlfcn.h>

namespace mcusim {

namespace {

using mcu::McuService;
using mcu::McuSrv;

QByteArrayList signalsOf(const QMetaObject &object)
{
    QByteArrayList found;
    for (int i = object.methodOffset(); i < object.methodCount(); ++i) {
        if (object.method(i).methodType() == QMetaMethod::Signal)
            found.append(object.method(i).methodSignature());
    }
    return found;
}

/// The signals of the link as init() connects them, and those that the contract has of the
/// services, which are connected on demand.
QMap<QByteArray, QByteArrayList> connectedSignals()
{
    struct Open : QObject {
        using QObject::isSignalConnected;
    };
    silenceLibrary();
    Bench bench;
    bench.simulation.start();
    QMap<QByteArray, QByteArrayList> found;
    const QMetaObject &link = McuSrv::staticMetaObject;
    const QByteArrayList declared = signalsOf(link);
    for (const QByteArray &signal : declared) {
        const QMetaMethod method = link.method(link.indexOfSignal(signal));
        if ((McuSrv::instance()->*&Open::isSignalConnected)(method))
            found[link.className()].append(signal);
    }
    for (const QMetaObject *service :
         {&hxaudio::AudioService::staticMetaObject, &EventHandler::staticMetaObject})
        found[service->className()] = signalsOf(*service);
    return found;
}

/// The library that mcusim runs on.
QString ownLibrary()
{
    Dl_info info{};
    dladdr(reinterpret_cast<void *>(&McuService::instance), &info);
    return QFile::decodeName(info.dli_fname);
}

/// What a library connects is asked from the one that runs here, so they must be of one version.
ElfLibrary ofThisVersion(const QString &path)
{
    ElfLibrary library(path);
    const QVector<MetaObject> found = metaObjects(library);
    for (const MetaObject &object : found) {
        if (object.className == McuService::staticMetaObject.className() &&
            object.signatures == signalsOf(McuService::staticMetaObject))
            return library;
    }
    throw Refusal(path + ": not libmcuservice, or not that of this mcusim");
}

QString text(const Finding &finding)
{
    QString line = QString(finding.weight).leftJustified(8) +
                   QString(finding.kind).leftJustified(12) + finding.what + ' ' + finding.why;
    if (!finding.near.isEmpty())
        line += "; there is " + finding.near.join(", ");
    return printable(line);
}

QJsonObject json(const Finding &finding)
{
    return {{"weight", finding.weight},
            {"kind", finding.kind},
            {"what", finding.what},
            {"why", finding.why},
            {"near", QJsonArray::fromStringList(finding.near)}};
}

} // namespace

int checkLinkCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"check-link",
         "LINK [SERVICES...]",
         "Shows all that the library will miss on a platform: in LINK, libmcusrv.so.1, and in the "
         "services' libraries. Reads the files and runs nothing of them, so that they can be of "
         "another processor. Without SERVICES, lists what these have to have.",
         {{"library", "FILE", "The libmcuservice.so.1 to check for; else that of mcusim."},
          {"search", "FOLDER", "Also search here what the platform needs (repeats).", true},
          {"json", nullptr, "As a JSON object."}}});
    line.expectOperands(1, 1000, "the file of the link");
    const Wants wants{ofThisVersion(line.isSet("library") ? line.value("library") : ownLibrary()),
                      connectedSignals(), McuSrv::staticMetaObject.className()};
    const QStringList folders =
        line.values("search") +
        qEnvironmentVariable("LD_LIBRARY_PATH").split(':', Qt::SkipEmptyParts);
    const PlatformLibraries platform(line.operands(), folders, wants.library);
    const QVector<Finding> findings = checkLink(wants, platform);
    QJsonArray list;
    int faults = 0;
    for (const Finding &finding : findings) {
        faults += qstrcmp(finding.weight, "fault") == 0 ? 1 : 0;
        list.append(json(finding));
        if (!line.isSet("json"))
            put(text(finding));
    }
    if (!line.isSet("json"))
        put(counted(faults, "fault"));
    else
        put(QJsonDocument(QJsonObject{{"library", wants.library.path},
                                      {"processor", wants.library.processor},
                                      {"platform", QJsonArray::fromStringList(line.operands())},
                                      {"findings", list}})
                .toJson(QJsonDocument::Compact));
    return faults > 0 ? Failed : Passed;
}

} // namespace mcusim
