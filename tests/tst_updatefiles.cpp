// The search for update images on folder trees of our own: both searches with their differences,
// and what the manager looks for and where.
#include "mcumanager.h"
#include "testkit.h"
#include "updatefiles_p.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

namespace updatefiles = mcu::updatefiles;

namespace {

/// Mounts in a private folder, from paths parted by blanks: "sda1/" is an empty folder, "a>b" a
/// link a to b.
struct Media {
    explicit Media(const QString &tree)
    {
        QDir::setCurrent(root.path());
        for (const QString &entry : tree.split(' ', Qt::SkipEmptyParts)) {
            const QString path = folder + entry.section('>', 0, 0);
            QDir().mkpath(path.section('/', 0, -2));
            if (entry.contains('>'))
                QFile::link(entry.section('>', 1), path);
            else if (!entry.endsWith('/'))
                QFile(path).open(QFile::WriteOnly);
        }
    }
    QString onFirst(const QString &in, const QString &name) const
    {
        return updatefiles::findOnFirstMount(folder, in, name, CALL_SITE).remove(folder);
    }
    QString onAll(const QString &in, const QString &name, const QString &key = "/sd",
                  bool forceSd = false) const
    {
        return updatefiles::findOnAllMounts(folder, in, name, key, forceSd).remove(folder);
    }

    QTemporaryDir root;
    // Not by its real path, whose names a search could take for a mount, and whose folders may be
    // closed to others.
    QString folder = QStringLiteral("/proc/self/cwd/media/");
};

/// A mark in the table: the second search finds the same.
const char *const same = nullptr;

} // namespace

class tst_UpdateFiles : public QObject {
    Q_OBJECT

public:
    explicit tst_UpdateFiles(substitute::VirtualClock *) {}

private Q_SLOTS:
    void finds_data();
    void finds();
    void goesByMountKey();
    void staysOnTheMount();
    void takesUnreadableFolderAsEmpty();
    void findsAmongAThousand();
    void managerSearchesMedia();
};

void tst_UpdateFiles::finds_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("onFirst");
    QTest::addColumn<QString>("onAll");
    const auto row = [](const char *tree, const char *folder, const char *onFirst,
                        const char *onAll) {
        QTest::addRow("%s in %s", folder, tree)
            << tree << folder << onFirst << (onAll == same ? onFirst : onAll);
    };
    row("sda1/update/a.bin", "/update", "sda1/update/a.bin", same);
    row("sda1/update/x sdb1/update/a.bin", "/update", "", "sdb1/update/a.bin");
    row("sda1/ sdb1/update/a.bin", "/update", "", "sdb1/update/a.bin");
    row("sda1/UPDATE/A.BIN", "/update", "sda1/UPDATE/A.BIN", "");
    row("sda1/UPDATE/A.BIN", "/UPDATE", "sda1/UPDATE/A.BIN", same);
    row("sda1/update_old/a.bin", "/update", "", "sda1/update_old/a.bin");
    row("sda1/update/a.bin", "/another", "sda1/update/a.bin", "");
    row("sda1/Update/x sda1/update/a.bin", "/update", "sda1/update/a.bin", same);
    row("sda1/update sda1/update_x/a.bin", "/update", "", "sda1/update_x/a.bin");
    row("sda1/a.bin", "/update", "", "");
    row("usb0/update/a.bin usb0/a.bin", "/update", "", "");
    row("SDa/x sdC/a.bin sdb/a.bin sdA/x", "ROOT", "", "");
    row("SDa/x sdC/a.bin sdB/a.bin usb/x", "ROOT", "sdB/a.bin", same);
    row("sdC/update/a.bin sda/x sdB/update/a.bin", "/update", "", "sdB/update/a.bin");
    row("sda1/A.BIN", "ROOT", "", "");
    row("sda1/a.bin/x", "ROOT", "sda1/a.bin", same);
    row("sda1/x sdb1/a.bin", "ROOT", "", "");
    row("sda1/ sdb1/a.bin", "ROOT", "", "sdb1/a.bin");
    row("sda1/a.bin", "root", "", "");
    row("sda1/A.bin", "", "sda1/A.bin", same);
    row("sda1/any/a.bin", "", "", "sda1/any/a.bin");
    row("sda1/update/a.bin>gone sda1/a.bin>gone", "", "", "");
    row("sda1/a.bin>gone sda1/x", "ROOT", "", "");
    row("sda1/update/a.bin>b sda1/update/b", "/update", "sda1/update/a.bin", same);
    row("sda1/update>../x x/a.bin", "/update", "sda1/update/a.bin", same);
    row("sda1 sdb1/update/a.bin", "/update", "sdb1/update/a.bin", same);
    row("sda1/update/.a.bin", "/update", "", "");
    row("a.bin", "ROOT", "", "");
    row("", "/update", "", "");
}

void tst_UpdateFiles::finds()
{
    QFETCH(QString, tree);
    QFETCH(QString, folder);
    const QString name = tree.contains(".a.bin") ? ".a.bin" : "a.bin";
    const Media media(tree);
    QTEST(media.onFirst(folder, name), "onFirst");
    QTEST(media.onAll(folder, name), "onAll");
    QTEST(media.onAll(folder, name, QString()), "onAll");
    QTEST(media.onAll(folder, name, "/usb", true), "onAll");
}

void tst_UpdateFiles::goesByMountKey()
{
    const Media media("mmc/update/a.bin sda1/update/a.bin usb0/update/a.bin");
    QCOMPARE(media.onAll("/update", "a.bin", "/usb"), QString("usb0/update/a.bin"));
    QCOMPARE(media.onAll("/update", "a.bin", "/USB"), QString());
    QCOMPARE(media.onAll("/update", "a.bin", ""), QString("mmc/update/a.bin"));
}

void tst_UpdateFiles::staysOnTheMount()
{
    const Media media("sda1/x/a.bin sda12/a.bin");
    const QStringList inside{"x/a.bin", "x/../x", "."};
    const QStringList outside{"../sda12/a.bin", "..", "x/../..", "", "/etc/passwd", ":/"};
    for (const QString &name : inside + outside) {
        const QString found = inside.contains(name) ? "sda1/" + name : QString();
        QCOMPARE(media.onFirst("ROOT", name), found);
        QCOMPARE(media.onAll("ROOT", name), found);
    }
}

void tst_UpdateFiles::takesUnreadableFolderAsEmpty()
{
    // For root no folder is unreadable: act as another user, who owns the rest.
    constexpr uid_t other = 65534;
    umask(022);
    const Media media("sda1/update/a.bin sdb1/update/a.bin sdc1/update/a.bin");
    const QByteArray closed[]{(media.folder + "sda1").toUtf8(),
                              (media.folder + "sdb1/update").toUtf8()};
    for (const QByteArray &folder : closed)
        QCOMPARE(chmod(folder, 0), 0);
    if (geteuid() == 0)
        QCOMPARE(chown(qPrintable(media.root.path()), other, gid_t(-1)), 0);
    const int before = setfsuid(other);
    const QString onFirst = media.onFirst("/update", "a.bin");
    const QString onAll = media.onAll("/update", "a.bin");
    setfsuid(uid_t(before));
    for (const QByteArray &folder : closed)
        QCOMPARE(chmod(folder, 0700), 0);
    QCOMPARE(onFirst, QString());
    QCOMPARE(onAll, QString("sdc1/update/a.bin"));
}

void tst_UpdateFiles::findsAmongAThousand()
{
    QString tree;
    for (int i = 0; i < 1000; ++i)
        tree += QStringLiteral("sda1/%1 sda1/update/%1.bin ").arg(i);
    const Media media(tree);
    QCOMPARE(media.onFirst("/update", "777.BIN"), QString("sda1/update/777.bin"));
    QCOMPARE(media.onAll("/update", "1000.bin"), QString());
}

void tst_UpdateFiles::managerSearchesMedia()
{
    const Media media("sda1/update/st26mcu.bin sda1/update/CUST_PIO.BIN sda1/ISPBOOOT.BIN "
                      "sda1/ISPBOOOT.md5 sda1/turndegradedmode sda1/update/CUST_PIO.md5 "
                      "sda1/navigation usb0/x sdb1/update/later");
    // Only here is "/media" ours.
    const int realRoot = open("/", O_RDONLY | O_CLOEXEC);
    if (chroot(qPrintable(media.root.path())) != 0)
        QSKIP("only root may move the root folder", );
    McuManager manager(nullptr);
    QString found;
    for (int value = -1; value <= 7; ++value) {
        const auto file = McuManager::UpdateFile(value);
        found += manager.findUpdateFile(file) + '|' + manager.findUpdateFile(file, "/sd", true) +
                 manager.findUpdateFile(file, "/sd", false) + ' ';
    }
    found += manager.findUpdateFile("/update", "later", "/usb", true);
    testkit::LogCapture log;
    manager.findUpdateFile("/update", "st26MCU.bin");
    manager.findUpdateFile("ROOT", "missing");
    QString logged;
    for (const testkit::LogLine &line : log.take())
        logged += line.text.section(' ', 2) + '\n';
    QVERIFY(fchdir(realRoot) == 0 && chroot(".") == 0 && close(realRoot) == 0);

    const auto both = [](const QString &path) { return path + '|' + path + ' '; };
    QCOMPARE(found, both("") + both("/media/sda1/update/st26mcu.bin") +
                        both("/media/sda1/update/CUST_PIO.BIN") + both("/media/sda1/ISPBOOOT.BIN") +
                        both("/media/sda1/ISPBOOOT.md5") + both("/media/sda1/turndegradedmode") +
                        both("/media/sda1/update/CUST_PIO.md5") + "/media/sda1/navigation| " +
                        both("") + "/media/sdb1/update/later");
    // The function, and the numbers that vary.
    logged.replace("QString McuManager::findUpdateFile(QString, QString)", "F");
    logged.replace(QRegularExpression("F \\d+ --|\"F\" \"\\d+\""), "F");
    logged.replace(QRegularExpression("(ExecTime--\\]) \\d+"), "\\1");
    QCOMPARE(logged, QString("F [--IN--]\nF \"/update\" \"st26MCU.bin\"\nF 3\nF \"/media/sda1\"\n"
                             "F 5\nF 3\nF \"/media/sda1/update/st26mcu.bin\"\n"
                             "F [--ExecTime--]\nF [--OUT--]\n"
                             "F [--IN--]\nF \"ROOT\" \"missing\"\nF 3\nF \"/media/sda1\"\nF 5\n"
                             "F \"missing\"\nF empty\nF [--ExecTime--]\nF [--OUT--]\n"));
}

int main(int argc, char **argv) { return testkit::run<tst_UpdateFiles>(argc, argv); }
#include "tst_updatefiles.moc"
