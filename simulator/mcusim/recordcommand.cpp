// mcusim record: what goes in and comes out of a running application, as a recording.
#include "commandline.h"
#include "liveclient.h"
#include "process.h"

#include "recordings.h"
#include "substituteplatform.h"

#include <QFile>

namespace mcusim {

namespace {

/// A file that is there becomes FILE.1, what was that FILE.2 and so on.
void rotate(const QString &file, int kept)
{
    const auto numbered = [&file](int number) {
        return number == 0 ? file : file + '.' + QString::number(number);
    };
    int last = 1;
    while (last != kept && QFile::exists(numbered(last)))
        ++last;
    for (int number = last; number > 0; --number)
        std::rename(QFile::encodeName(numbered(number - 1)).constData(),
                    QFile::encodeName(numbered(number)).constData());
}

} // namespace

int recordCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"record",
         "[NAME] FILE",
         "Records what goes in and comes out of a running application, until it ends or Ctrl-C.",
         {{"max-size", "MIB", "Begin a new file at this size; the last one becomes FILE.1."},
          {"keep", "N", "Keep N of the files before the last one; 0, as without it, all."}}});
    line.expectOperands(1, 2, "a file, and the application's name before it");
    constexpr double bytes = 1 << 20; // of a MiB
    const auto largest = qint64(line.number("max-size", 0) * bytes);
    const int kept = line.count("keep", 0);
    SubstitutePlatform platform;
    const Catalogue names(platform);
    noteInterrupts();
    LiveClient client(
        names, findProcess(line.operands().size() > 1 ? line.operands().constFirst() : QString()));
    const QString path = line.operands().constLast();
    const QString description = "recorded in " + client.process().text();
    bool isFirst = true;
    const auto open = [&] {
        if (!std::exchange(isFirst, false))
            rotate(path, kept);
        std::FILE *file = std::fopen(QFile::encodeName(path).constData(), "we");
        if (!file)
            throw Refusal("cannot write " + path + ": " + qt_error_string());
        return Recordings::Target{path, file, {description, true, true, true}};
    };
    Recordings recording(open, largest);
    client.addSink(&recording);
    int status = Passed;
    client.onMissed = [&](qint64 count) {
        complain(client.process().text() + ": " + counted(count, "event") + " missed");
        status = Failed;
    };
    constexpr int interval = 200;
    while (client.receive(interval) && !wasInterrupted()) {
    }
    return status;
}

} // namespace mcusim
