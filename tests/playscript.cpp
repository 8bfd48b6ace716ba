// Plays behaviour scripts: playscript FILE...
#include "script.h"
#include "testkit.h"

#include <cstdio>

int main(int argc, char **argv)
{
    testkit::Application application(argc, argv);
    int failed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const testkit::Section &section : testkit::readScript(argv[i])) {
            const QString failures = testkit::playSection(section, application.clock);
            failed += failures.isEmpty() ? 0 : 1;
            std::printf("%s", qPrintable(failures));
        }
    }
    return failed == 0 ? 0 : 1;
}
