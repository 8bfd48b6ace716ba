// What an application does first with the installed package.
#include <debug.h>
#include <mcumanager.h>
#include <mcuradiointerface.h>
#include <mcuservice.h>
#include <mcuvechiclebridge.h>

int main()
{
    AutoPrint trace(Q_FUNC_INFO, __LINE__);
    MCU_DEBUG << mcu::McuRadioInterface::instance()->objectName()
              << McuVechicleBridge::instance()->wheelAngle()
              << McuManager::instance()->audioStatus();
    const mcu::SetupInfo setup = mcu::McuService::instance()->setupInfo();
    return mcu::McuService::instance()->getDest() == 256 && setup.bassboost == 0 ? 0 : 1;
}
