// Shows what the library does when something around it fails: a table of each fault, what is
// expected and what was seen. Fails if a fault ended otherwise, or if its row is not on the page
// given.
//
//     faults [PAGE]
//
// Each fault has a process of its own, so that a crash is an answer too.
#include "fault.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sched.h>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace faults;

constexpr unsigned longest = 120; ///< seconds of one fault
constexpr int notHere = 77;       ///< exit status
constexpr int longestSaid = 4000; ///< bytes of what a fault says that are shown

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// The whole life of the process of a fault. All that it says goes to the file "said".
[[noreturn]] void happen(const Fault &fault, const QByteArray &folder)
{
    alarm(longest);
    unshare(CLONE_NEWIPC); // where this is permitted, no semaphore of another process can be met
    if (chdir(folder) != 0 || !std::freopen("said", "w", stderr) || dup2(2, 1) < 0)
        std::exit(EXIT_FAILURE);
    int status = EXIT_FAILURE;
    QByteArray seen;
    try {
        const Outcome outcome = fault.happen();
        seen = outcome.seen.toUtf8();
        status = outcome.isExpected ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const NotHere &refusal) {
        seen = refusal.why;
        status = notHere;
    }
    QFile file("seen");
    if (!file.open(QFile::WriteOnly) || file.write(seen) != seen.size())
        status = EXIT_FAILURE;
    file.close();
    std::exit(status); // on all exit paths of the library and of the sanitizers
}

/// A semaphore outlives the process that has made it.
void removeSemaphore(const QString &folder)
{
    const key_t key = ftok(QFile::encodeName(folder + "/avmrenderserver_releaseuart"), 1);
    if (key != -1)
        semctl(semget(key, 1, 0), 0, IPC_RMID);
}

/// Shows the row of a fault and returns its exit status.
int show(const Fault &fault, const QByteArray &page)
{
    const QTemporaryDir folder(QDir::tempPath() + "/faults-XXXXXX");
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0)
        happen(fault, QFile::encodeName(folder.path()));
    int status = 0;
    waitpid(process, &status, 0);
    removeSemaphore(folder.path());

    QByteArray seen = contentOf(folder.filePath("seen"));
    if (WIFSIGNALED(status))
        seen += " ended by signal " + QByteArray(strsignal(WTERMSIG(status)));
    int result = WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
    const QByteArray row = "| " + QByteArray(fault.what) + " | " + fault.expected + " | ";
    if (result == EXIT_SUCCESS && !page.isEmpty() && !page.contains(row)) {
        seen += "; the page does not have this row";
        result = EXIT_FAILURE;
    }
    std::printf("%s%s |%s\n", row.constData(), seen.constData(),
                result == notHere ? " not tried"
                : result == 0     ? ""
                                  : " FAILED");
    if (result != EXIT_SUCCESS && result != notHere)
        std::fputs(contentOf(folder.filePath("said")).right(longestSaid).constData(), stdout);
    return result;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray page = argc > 1 ? contentOf(QFile::decodeName(argv[1])) : QByteArray();
    if (argc > 2 || (argc == 2 && page.isEmpty())) {
        std::fputs("usage: faults [PAGE]\n", stderr);
        return 2;
    }
    std::puts("| Fault | Expected | Seen |\n|---|---|---|");
    int failures = 0;
    for (const auto *table :
         {&storageFaults, &rendererFaults, &mediumFaults, &linkFaults, &memoryFaults}) {
        for (const Fault &fault : *table) {
            const int result = show(fault, page);
            failures += result != EXIT_SUCCESS && result != notHere ? 1 : 0;
        }
    }
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
