// The sample MCU link: prints the commands that it receives. It simulates an MCU that has started
// and that reports each speed that it receives.
#include "link.h"

#include "mcusrv.h"
#include "show.h"

void sample::execute(const char *command, const QVariantList &arguments)
{
    show(command, arguments);
    if (qstrcmp(command, "sendVehicleSpeed") == 0) {
        const int valid = 1;
        Q_EMIT mcu::McuSrv::instance()->reportVehicleSpeedChangedSgl(arguments.first().toInt(),
                                                                     valid, 0, 0);
    }
}

namespace mcu {

McuSrv *McuSrv::instance()
{
    static McuSrv link;
    return &link;
}

void McuSrv::init() { sample::execute("init", {}); }

QString McuSrv::getVersion1() { return QStringLiteral("sample 1"); }
QString McuSrv::getVersion2() { return QStringLiteral("sample board"); }
int McuSrv::getSysBootState() { return 1; }
bool McuSrv::isReverseOn() const { return false; }
bool McuSrv::isMuteOn() const { return false; }
bool McuSrv::isNeedRenew() { return false; }
QString McuSrv::getCarFeatureCode() { return QStringLiteral("1;2;3"); }
QByteArray McuSrv::getVelroCarFeatureCode() { return QByteArrayLiteral("\1\2\3"); }
int McuSrv::getFeatureDataStatus() { return 1; }
int McuSrv::getEcuEdititon() { return 1; }

} // namespace mcu
