// Fuzz target: a settings file with any content. The factory test of the audio settings reads it
// and writes it; what is written is there afterwards.
//
// The first three bytes of the input are the values of the request, the rest is the file.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "packettext.h"
#include "platformsubstitute.h"
#include "settingsexe.h"
#include "settingsutil.h"
#include "speakersettings_p.h"
#include "target.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <algorithm>

namespace {

using fuzz::expect;
namespace platform = substitute::platform;

struct Unit {
    Unit()
    {
        fuzz::silence();
        mcu::McuService::instance()->init();
        mcu::AutoTestHandler::instance()->start();
    }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
    QTemporaryDir folder;
    int number = 0;
};

/// What the request is about: 1 is on, 0 is off.
using Settings = QVector<int>;
enum Setting { Subwoofer, Demo, Crossover, Filters };
constexpr int crossovers = 4;

/// What the store reads under a root folder.
Settings readFrom(const QString &root)
{
    platform::setSettingsRoot(root);
    mem::SettingsUtil *const util = mem::SettingsUtil::instance();
    mem::SettingsExe *const store = util->getSaver();
    Settings settings{util->getSubwooferOnOff(1),
                      store->getValue("DemoOnOff", mcu::speakerSettingsFile, false),
                      store->getValue("CrossoverType", mcu::speakerSettingsFile, 0)};
    for (int type = 0; type < crossovers; ++type)
        settings.append(util->getHpfLpfOnOff(type, 0));
    return settings;
}

/// The settings after a request; there 1 is on, 2 is off.
Settings after(const QByteArray &request, Settings settings)
{
    const auto isOrder = [&request](int i) { return request[i] == 1 || request[i] == 2; };
    if (isOrder(0))
        settings[Subwoofer] = request[0] == 1;
    if (request[0] == 1)
        settings[Crossover] = 0;
    if (isOrder(1))
        settings[Demo] = request[1] == 1;
    const int type = settings[Crossover];
    const int filter = type >= 0 && type < crossovers ? settings[Filters + type] : -1;
    if (isOrder(2) && (filter == 0 || filter == 1)) // others count as neither
        settings[Filters + type] = request[2] == 1;
    return settings;
}

void expectSame(const Settings &settings, const Settings &expected, const char *what)
{
    const auto text = [](const Settings &values) {
        QStringList numbers;
        for (const int value : values)
            numbers += QString::number(value);
        return numbers.join(' ');
    };
    if (settings != expected)
        fuzz::fail(what, text(settings) + ", not " + text(expected));
}

/// Makes the file of a new root folder.
QString rootWith(Unit &unit, const QByteArray &content)
{
    QString root = unit.folder.filePath(QString::number(++unit.number));
    QFile file(root + mcu::speakerSettingsFile);
    const bool isThere = QDir().mkpath(QFileInfo(file).path()) && file.open(QFile::WriteOnly) &&
                         file.write(content) == content.size();
    expect(isThere, "file is made", file.errorString());
    return root;
}

/// Qt moves the keys of a section without a name to the general ones when it writes.
bool hasNamelessSection(const QString &root)
{
    const QStringList keys =
        QSettings(root + mcu::speakerSettingsFile, QSettings::IniFormat).allKeys();
    return std::any_of(keys.begin(), keys.end(),
                       [](const QString &key) { return key.startsWith('/'); });
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static Unit unit;
    constexpr int orders = 3;
    const QByteArray input = fuzz::bytesOf(data, size);
    if (input.size() < orders)
        return 0;
    const QByteArray request = input.left(orders);
    const QString root = rootWith(unit, input.mid(orders));
    const bool isMoved = hasNamelessSection(root);
    const Settings expected = after(request, readFrom(root));

    QByteArray packet = testkit::packet(0x2e, 0xf7, request);
    mcu::McuService::instance()->notifyAutoTestPackage(packet.size(), packet.data());
    substitute::link::log().clear();
    platform::log().clear();
    expectSame(readFrom(root), expected, "settings are stored");
    // At another place nothing is known but what is in the file.
    const QString moved = root + "moved";
    expect(QDir().rename(root, moved), "folder is renamed");
    if (!isMoved)
        expectSame(readFrom(moved), expected, "settings are written");
    QDir(moved).removeRecursively();
    return 0;
}
