// The settings and the recordings cannot be written, or the settings file is damaged.
#include "fault.h"

#include "linksubstitute.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "packettext.h"
#include "settingsexe.h"
#include "settingsutil.h"
#include "speakersettings_p.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <csignal>
#include <cstdlib>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace faults;

constexpr char folder[] = "media/flash/nvm/factory";
constexpr char settings[] = "media/flash/nvm/factory/settings.ini";

QByteArray contentOf(const char *path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// The unit in factory test mode.
struct Unit : Application {
    Unit()
    {
        mcu::McuService::instance()->init();
        Q_EMIT mcu::McuSrv::instance()->autoTestStatusChanged(1);
        QDir().mkpath(folder);
    }

    /// What the unit answers to a request of the station; what it does is in `done`.
    QByteArray answer(const char *request)
    {
        substitute::link::log().clear();
        Q_EMIT mcu::McuSrv::instance()->autoTestPkgChanged(testkit::packetOf(request));
        QByteArray packets;
        done.clear();
        for (const substitute::Call &call : substitute::link::log().take()) {
            const QByteArray packet = testkit::packetText(call.arguments.value(1).toByteArray());
            packets += packet;
            if (packet.isEmpty())
                done += call.name;
        }
        return packets;
    }

    QStringList done;
};

constexpr char switchOn[] = "2e:f7:010000"; // the subwoofer
constexpr char switchOff[] = "2e:f7:020000";
constexpr char acknowledged[] = "6e:f7:0001";

/// Something that keeps the settings from being written, and its end.
struct Hindrance {
    void (*begin)();
    void (*end)();
};

Outcome unwritable(const Hindrance &hindrance)
{
    Unit unit;
    const bool isStored = unit.answer(switchOff) == acknowledged;
    const QByteArray before = contentOf(settings);
    hindrance.begin();
    const QByteArray during = unit.answer(switchOn);
    const bool isSent = unit.done == QStringList{"setSubwooferValue", "setSpeakerLevel"};
    const bool isRead = mem::SettingsUtil::instance()->getSubwooferOnOff(7) == 0;
    hindrance.end();
    const bool isOld = contentOf(settings) == before && before.contains("\nSubwooferOnOff=0\n");
    const QByteArray after = unit.answer(switchOn);
    const bool isNew = contentOf(settings).contains("\nSubwooferOnOff=1\n");
    return {isStored && during == acknowledged && isSent && isRead && isOld &&
                after == acknowledged && isNew,
            QString("request %1, MCU %2, file %3, old value %4; then %5")
                .arg(during == acknowledged ? "acknowledged" : "not acknowledged")
                .arg(isSent ? "told" : "not told")
                .arg(isOld ? "as before" : "changed")
                .arg(isRead ? "read" : "lost")
                .arg(isNew ? "stored" : "not stored")};
}

constexpr char filler[] = "media/flash/nvm/factory/filler";

Outcome fullDisk()
{
    useOwnMounts();
    mountDisk(folder, "256k");
    return unwritable({[] {
                           QFile file(filler);
                           if (!file.open(QFile::WriteOnly | QFile::Unbuffered))
                               std::abort();
                           while (file.write(QByteArray(512, 'x')) == 512) {
                           }
                       },
                       [] { QFile::remove(filler); }});
}

Outcome fileSizeLimit()
{
    std::signal(SIGXFSZ, SIG_IGN); // Qt writes the settings of the simulated platform
    return unwritable({[] { limitFileSize(0); }, [] { limitFileSize(-1); }});
}

Outcome readOnlyFolder()
{
    constexpr uid_t nobody = 65534;
    chmod(".", 0755);
    return unwritable({[] {
                           chmod(settings, 0444);
                           chmod(folder, 0555);
                           if (access(folder, W_OK) == 0 && seteuid(nobody) != 0) // root may write
                               throw NotHere{"this machine does not permit another user"};
                       },
                       [] {
                           if (seteuid(getuid()) != 0)
                               std::abort();
                           chmod(folder, 0755);
                           chmod(settings, 0644);
                       }});
}

Outcome damaged()
{
    QRandomGenerator random(1);
    QByteArray noise(1 << 16, '\0');
    for (char &byte : noise)
        byte = char(random.generate());
    const QByteArray damages[]{
        "",
        "[General]\nSubwoof",
        "[General\nSubwooferOnOff=0",
        "[General]\nSubwooferOnOff=\nCrossoverType=x\nHpfLpfValue_0=99999999999\n",
        "[General]\nCrossoverType=-2147483648\nHpfLpfOnOff_-2147483648=1\nDemoOnOff=maybe\n",
        "[General]\nSubwooferOnOff=@Variant(\\0\\0\\0\\f\\x7f\\xff\\xff\\xff)\n",
        "[General]\nCrossoverType=@Rect(1 2 3)\nSubwooferOnOff=@Size(\n",
        QByteArray(4096, '\0'),
        QByteArray("[General]\nSubwooferOnOff=") + QByteArray(1 << 20, '1'),
        QByteArray(1 << 16, '['),
        noise,
    };
    Unit unit;
    int acknowledgements = 0;
    int stored = 0;
    for (const QByteArray &damage : damages) {
        QFile file(settings);
        if (!file.open(QFile::WriteOnly | QFile::Truncate) || file.write(damage) != damage.size())
            std::abort();
        file.close();
        for (const char *request : {"2e:f7:010101", "2e:f7:020202"})
            acknowledgements += unit.answer(request) == acknowledged ? 1 : 0;
        unit.answer(switchOn);
        stored += mem::SettingsUtil::instance()->getSubwooferOnOff(7) == 1 ? 1 : 0;
    }
    const int all = std::size(damages);
    return {acknowledgements == 2 * all && stored == all,
            QString("%1 files: %2 of %3 requests acknowledged, %4 files repaired by the next value")
                .arg(all)
                .arg(acknowledgements)
                .arg(2 * all)
                .arg(stored)};
}

Outcome notAFile()
{
    Unit unit;
    int acknowledgements = 0;
    const auto ask = [&] { acknowledgements += unit.answer(switchOn) == acknowledged ? 1 : 0; };
    QDir().mkpath(settings);
    ask();
    QDir().rmdir(settings);
    QFile::link("gone/gone", settings);
    ask();
    QFile::remove(settings);
    QDir().rmdir(folder);
    QFile(folder).open(QFile::WriteOnly); // a file in place of the folder
    ask();
    QFile::remove(folder);
    ask();
    const bool isStored = contentOf(settings).contains("\nSubwooferOnOff=1\n");
    return {acknowledgements == 4 && isStored, QString("%1 of 4 requests acknowledged; then %2")
                                                   .arg(acknowledgements)
                                                   .arg(isStored ? "stored" : "not stored")};
}

/// The output of a shell command, of whose programs the simulator's are some.
QByteArray shell(const QByteArray &command)
{
    if (*PROGRAMS == '\0')
        throw NotHere{"the programs are of another processor"};
    qputenv("PATH", PROGRAMS ":" + qgetenv("PATH"));
    qputenv("PROBE", PROBE);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(QDir::currentPath()));
    // The probe is loaded before the sanitizer.
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    QFile::remove("output");
    const int status = std::system(("exec > output 2>&1; " + command).constData());
    return contentOf("output") + (status == 0 ? "" : "; the command failed");
}

Outcome ofRecording(const QByteArray &command, const QByteArray &expected)
{
    const QByteArray seen = shell(command).trimmed().replace('\n', "; ");
    return {seen == expected, QString::fromUtf8(seen)};
}

Outcome fullDiskOfRecording()
{
    useOwnMounts();
    mountDisk("disk", "64k");
    return ofRecording(
        "(mcusim run --record disk/rec -- probed app init flood 300; echo ended $?) 2>&1 |"
        "grep -e ended -e mcuprobe | sed 's/.*rec: //';"
        "mcusim verify disk/rec 2>&1 | grep -o passed",
        "No space left on device; the recording ends; ended 0; passed");
}

/// A ring in a folder, in an application that has the probe from its own start on.
Outcome ring(const QByteArray &before, const QByteArray &error)
{
    return ofRecording(before +
                           "export MCUPROBE_SIZE=6K MCUPROBE_FILES=99;"
                           "(MCUPROBE_FOLDER=$PWD/disk LD_PRELOAD=$PROBE probed app init flood 300;"
                           "echo ended $?) 2>&1 | grep -e ended -e mcuprobe | sed 's/.*jsonl: //';"
                           "mcusim verify disk/* > verdicts 2>&1;"
                           "test $(ls disk | wc -l) = $(grep -c passed verdicts)",
                       error + "; the recording ends; ended 0");
}

Outcome fullDiskOfRing()
{
    useOwnMounts();
    mountDisk("disk", "64k");
    return ring("", "No space left on device");
}

Outcome readOnlyRing()
{
    useOwnMounts();
    mountDisk("disk", "64k");
    if (mount(nullptr, "disk", nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
        throw NotHere{"this machine does not permit mounts"};
    return ring("", "Read-only file system");
}

Outcome fileSizeLimitOfRing() { return ring("mkdir disk; ulimit -f 8;", "File too large"); }

} // namespace

const std::vector<Fault> faults::storageFaults{
    {"The disk of the settings is full",
     "The file keeps its values whole; the MCU and the station are served; stored when there is "
     "room",
     fullDisk},
    {"The settings file may not grow (file size limit)", "The same", fileSizeLimit},
    {"The folder of the settings is read-only", "The same", readOnlyFolder},
    {"The settings file is damaged: cut, noise, zeros, endless, wrong types",
     "What cannot be read counts as missing; the next value is stored", damaged},
    {"A folder, a dangling link or nothing stands where the settings should be",
     "The same, as soon as it is away", notAFile},
    {"The disk of a recording fills up",
     "One line says so, the application goes on, what is written can be verified",
     fullDiskOfRecording},
    {"The disk of a ring of recordings fills up", "The same", fullDiskOfRing},
    {"The disk of a ring of recordings is read-only", "The same", readOnlyRing},
    {"A recording may not grow (file size limit)", "The same", fileSizeLimitOfRing},
};
