// A small application of the installed package. It prints what the platform reports.
#include <debug.h>
#include <mcumanager.h>
#include <mcuradiointerface.h>
#include <mcuservice.h>
#include <mcuvechiclebridge.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    AutoPrint trace(Q_FUNC_INFO, __LINE__);
    MCU_DEBUG << mcu::McuRadioInterface::instance()->objectName()
              << McuVechicleBridge::instance()->wheelAngle()
              << McuManager::instance()->audioStatus();
    auto *mcu = mcu::McuService::instance();
    QObject::connect(mcu, &mcu::McuService::syncSpeedUpdate,
                     [](int speed) { std::printf("speed %d\n", speed); });
    mcu->init();
    mcu->sendVehicleSpeed(42);
    mcu->dabRequestScan();
    std::printf("version %s\n", qUtf8Printable(mcu->SOC_version()));
    const mcu::SetupInfo setup = mcu->setupInfo();
    return mcu->getDest() == 256 && setup.bassboost == 0 ? 0 : 1;
}
