// The start of an application with the library.
#include "mcuservice.h"
#include "privatememory.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    mcu::McuService::instance()->init();
    return printPrivateMemory(argc > 1);
}
