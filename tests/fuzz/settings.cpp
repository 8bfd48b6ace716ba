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
#include <QTemporaryDir>

#include <algorithm>
#include <iterator>

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

/// What the request is about.
struct Settings {
    Settings() = default;
    explicit Settings(mem::SettingsUtil *util)
        : subwoofer(util->getSubwooferOnOff(1)),
          isDemo(util->getSaver()->getValue("DemoOnOff", mcu::speakerSettingsFile, false)),
          crossover(util->getSaver()->getValue("CrossoverType", mcu::speakerSettingsFile, 0))
    {
        for (int type = 0; type < types; ++type)
            filters[type] = util->getHpfLpfOnOff(type, 0);
    }
    bool operator==(const Settings &other) const
    {
        return subwoofer == other.subwoofer && isDemo == other.isDemo &&
               crossover == other.crossover &&
               std::equal(std::begin(filters), std::end(filters), std::begin(other.filters));
    }
    /// Changes them as a request does; 1 is on, 2 is off.
    void take(const QByteArray &request)
    {
        const auto isOrder = [&request](int i) { return request[i] == 1 || request[i] == 2; };
        if (isOrder(0))
            subwoofer = request[0] == 1;
        if (isOrder(0) && subwoofer)
            crossover = 0;
        if (isOrder(1))
            isDemo = request[1] == 1;
        if (isOrder(2) && crossover >= 0 && crossover < types) {
            int &filter = filters[crossover];
            filter = filter == 0 || filter == 1 ? request[2] == 1 : filter;
        }
    }
    QString text() const
    {
        return QString("%1 %2 %3 filters %4 %5 %6 %7")
            .arg(subwoofer)
            .arg(isDemo)
            .arg(crossover)
            .arg(filters[0])
            .arg(filters[1])
            .arg(filters[2])
            .arg(filters[3]);
    }

    static constexpr int types = 4;
    int subwoofer = 0;
    bool isDemo = false;
    int crossover = 0;
    int filters[types]{};
};

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

Settings readFrom(const QString &root)
{
    platform::setSettingsRoot(root);
    return Settings(mem::SettingsUtil::instance());
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static Unit unit;
    constexpr int orders = 3;
    const QByteArray input = fuzz::bytesOf(data, size);
    if (input.size() < orders)
        return 0;
    const QString root = rootWith(unit, input.mid(orders));
    const bool isMoved = hasNamelessSection(root);
    Settings expected = readFrom(root);
    expected.take(input.left(orders));

    QByteArray request = testkit::packet(0x2e, 0xf7, input.left(orders));
    mcu::McuService::instance()->notifyAutoTestPackage(request.size(), request.data());
    substitute::link::log().clear();
    platform::log().clear();
    const Settings stored = readFrom(root);
    expect(stored == expected, "settings are stored", stored.text() + ", not " + expected.text());
    // At another place nothing is known but what is in the file.
    const QString moved = root + "moved";
    expect(QDir().rename(root, moved), "folder is renamed");
    const Settings written = readFrom(moved);
    expect(isMoved || written == expected, "settings are written",
           written.text() + ", not " + expected.text());
    QDir(moved).removeRecursively();
    return 0;
}
