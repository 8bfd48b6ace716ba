// The car and truck reports: their bytes, signals, dump lines and getters, what some of them do
// besides, and readiness.
#include "connectedfacade.h"
#include "recordcatalog_p.h"

#include <climits>

using mcu::McuService;
using testkit::ConnectedFacade;
using testkit::show;
using testkit::words;

namespace {

/// A getter by name and address.
struct Getter {
    const char *name = nullptr;
    QByteArray (McuService::*read)() = nullptr;
};
#define GETTER(name) Getter({#name, &McuService::name})

/// A kind of report and the image, in hex, that its values give.
struct Record {
    const char *linkSignal;
    const char *signal;
    QByteArray dumpTag; ///< without what is around it; empty for none
    Getter getter;
    quint32 readinessBit;
    QByteArray image;
    QVector<int> values = {}; ///< none for 300, -1, 70000, 0x12345678, 5, 6, 7 ...
};

const Record carRecords[]{
    {"reportAcChangedSgl", "syncACInforUpdate", "ac_infor", GETTER(getReportACDate), 4,
     "2cff707805060708090a0b0c0d0e0f"},
    {"reportAVMChangedSgl", "syncAVMInforUpdate", "", GETTER(getReportAVMDate), 0, "2cff70780506"},
    {"reportVehicleSpeedChangedSgl",
     "syncVehicleSpeedInforUpdate",
     "vehicle_speed_infor",
     {},
     0,
     "2c010000ffffffff7011010078563412"},
    {"reportSteeringAngleChangedSgl", "syncSteeringAngleInforUpdate", "",
     GETTER(getSteeringAngleChanged), 0, "2c010000ffffffff7011010078563412"},
    {"reportFeatureCodeChangedSgl",
     "syncFeatureCodeInforUpdate",
     "feature_code_infor",
     {},
     1,
     "2cff707805"},
    {"reportHuChangedSgl", "syncHuInforUpdate", "hu_infor", GETTER(getReportHuDate), 2,
     "2cff707805060708090a0b0c"},
    {"reportAmbChangedSgl", "syncAmbInforUpdate", "amb_infor", {}, 0, "2cff70780506"},
    {"reportPdcChangedSgl", "syncPdcInforUpdate", "", GETTER(getReportPdcDate), 0,
     "2cff707805060708090a0b"},
    {"reportTpmsChangedSgl", "syncTpmsInforUpdate", "tpms_infor", GETTER(getReportTpmsDate), 8,
     "2cff707805060708090a0b0c0d0e0f101112"},
    {"reportVehicleBodyChangedSgl", "syncVehicleBodyInforUpdate", "vehicle_body_infor",
     GETTER(getReportVehicleBodyDate), 64, "2cff707805060708"},
    {"reportMeterSettingChangedSgl", "syncMeterSettingInforUpdate", "meter_setting_infor",
     GETTER(getReportMeterSetting), 16, "2cff707805060708"},
    {"reportVehicleFaultChangedSgl", "syncVehicleFaultInforUpdate", "vehicle_fault_infor",
     GETTER(getReportVehicleFaultData), 32, "2cff707805060708"},
    {"ampStatusChangedSgl", "syncAmpStatusUpdate", "amp_status", GETTER(getReportAmpStatusDate), 0,
     "2cff70780506070809"},
    {"avmCalibrationCmdChangedSgl", "syncAvmCalibrationCmdUpdate", "avm_calibration_cmd",
     GETTER(getAvmCalibrationCmdData), 0, "2cff7078"},
    {"reportDtcFlagChangedSgl",
     "syncDtcFlagInforUpdate",
     "dtc_flag_infor",
     {},
     0,
     "2c010000ffffffff7011010078563412"},
};

const Record truckRecords[]{
    {"reportTruckTpmsLearnChangedSgl", "syncTruckTpmsLearnInforUpdate", "truck_tpms_learn_infor",
     GETTER(getTruckTpmsLearnData), 0x200, "2cff707805060708090a0b"},
    {"reportTruckDmsChangedSgl", "syncTruckDmsInforUpdate", "truck_dms_infor",
     GETTER(getTruckDmsData), 0x100, "2cff7078050607"},
    {"reportTruckRsr1ChangedSgl", "syncTruckRsr1InforUpdate", "truck_rsr1_infor",
     GETTER(getTruckRsr1Data), 0x80, "2cff707805060708090a0b"},
    {"reportTruckSecurityChangedSgl", "syncTruckSecurityInforUpdate", "truck_security_infor",
     GETTER(getTruckSecurityData), 0x40, "2cff707805060708090a0b0c0d0e0f"},
    {"reportTruckVehicleHealthChangedSgl",
     "syncTruckVehicleHealthInforUpdate",
     "truck_vehicle_infor",
     GETTER(getTruckVehicleHealthData),
     0x20,
     "70112cff7805060708090a0b0c0d",
     {70000, 300, -1, 0x12345678, 5, 6, 7, 8, 9, 10, 11, 12, 13}},
    {"reportTruckRpasChangedSgl", "syncTruckRpasInforUpdate", "truck_rpas_infor",
     GETTER(getTruckRpasData), 0x10, "2cff707805060708090a0b"},
    {"reportTruckTpmsThresholdChangedSgl", "syncTruckTpmsThresholdUpdate", "truck_tpms_threshold",
     GETTER(getTruckTpmsThresholdData), 0x08, "2cff707805060708090a0b0c0d0e0f1011"},
    {"reportTruckTpmsCtiChangedSgl", "syncTruckTpmsCtiInforUpdate", "truck_tpms_cti_infor",
     GETTER(getTruckTpmsCtiData), 0x04, "2cff707805060708090a0b0c0d0e0f1011"},
    {"reportTruckTpmsTemperatureChangedSgl", "syncTruckTpmsTemperatureUpdate",
     "truck_tpms_temperature", GETTER(getTruckTpmsTemperatureData), 0x02,
     "2c01ffff70117856050006000700080009000a000b000c000d000e000f0010001100"},
    {"reportTruckTpmsPressureChangedSgl", "syncTruckTpmsPressureUpdate", "truck_tpms_pressure",
     GETTER(getTruckTpmsPressureData), 0x01, "2cff707805060708090a0b0c0d0e0f1011"},
    {"reportTruckVehicleAlertsChangedSgl", "syncTruckVehicleAlertsInforUpdate",
     "truck_vehicle_alerts_infor", GETTER(getTruckVehicleAlertsData), 0x1000, "2cff7078050607"},
    {"reportTruckPerformanceParametersChangedSgl",
     "syncTruckPerformanceParametersInforUpdate",
     "truck_performance_parameters_infor",
     GETTER(getTruckPerformanceParametersData),
     0x800,
     "02010000ffffffff70112c05ffff7111780078560a2c70110d00ff00",
     {258, -1, 70000, 300, 5, -1, 70001, 0x12345678, 0x12345678, 10, 300, 70000, 13, -1}},
    {"reportTruckVehicleParametersChanged",
     "syncTruckVehicleParametersInforUpdate",
     "truck_vehicle_parameters_infor",
     GETTER(getTruckVehicleParametersData),
     0x400,
     "ff007011ff0078562c01feff0700ff2cff0b7000",
     {-1, 70000, -1, 0x12345678, 300, -2, 7, -1, 300, -1, 11, 70000}},
};

QVariantList variants(const QVector<int> &values)
{
    QVariantList list;
    for (int value : values)
        list.append(value);
    return list;
}

/// The reports of a table that readiness waits for, in the order of their bits.
template <std::size_t Count>
QList<QByteArray> readinessSet(const Record (&records)[Count])
{
    QMap<quint32, QByteArray> set;
    for (const Record &record : records)
        set.insert(record.readinessBit, record.linkSignal);
    set.remove(0);
    return set.values();
}

/// Reports twice and verifies emissions, dump lines and getter, that the reader's tables have the
/// names that the interfaces have, and that no value breaks anything.
void verify(const Record &record, const QString &sourceFile)
{
    const QMetaMethod linkSignal = ConnectedFacade::linkSignal(record.linkSignal);
    QVector<int> values = record.values;
    for (int i = values.size(); i < linkSignal.parameterCount(); ++i)
        values.append(QVector<int>{300, -1, 70000, 0x12345678}.value(i, i + 1));
    const bool limited =
        words("syncHuInforUpdate syncVehicleFaultInforUpdate").contains(record.signal);
    const QByteArray image = QByteArray::fromHex(record.image);
    ConnectedFacade facade;
    const auto verifyGetter = [&](const QByteArray &wanted) {
        if (record.getter.read)
            QCOMPARE((facade.service.*record.getter.read)(), wanted);
    };
    verifyGetter(QByteArray(image.size(), 0));

    testkit::LogCapture log;
    for (bool held : {false, limited}) {
        const QStringList emitted =
            facade.report(record.linkSignal, variants(values)).filter(record.signal);
        QCOMPARE(emitted, held ? QStringList() : QStringList{show(record.signal, {image})});
    }
    // The slot behind a link signal is onReportAcChanged for reportAcChangedSgl.
    QByteArray slot = QByteArray(record.linkSignal).replace("Sgl", "");
    slot = "on" + slot.left(1).toUpper() + slot.mid(1);
    const QString function = "void mcu::McuService::" + slot + "(int, ";
    const QByteArray tag = record.dumpTag.isEmpty() ? "" : "!qrk#---" + record.dumpTag + "---";
    int dumps = 0;
    for (const testkit::LogLine &line : log.take()) {
        if (!line.function.startsWith(function))
            continue;
        ++dumps;
        QCOMPARE(line.file, sourceFile);
        QCOMPARE(line.type, QtDebugMsg);
        QCOMPARE(
            line.text.section(' ', 0, 0) + line.text.section(line.function, 1),
            QString("[DBG] %1 -- %2 \"%3\"").arg(line.line).arg(tag.data(), record.image.data()));
    }
    QCOMPARE(dumps, tag.isEmpty() ? 0 : limited ? 1 : 2);
    verifyGetter(image);

    const mcu::RecordDescription *description = mcu::describeRecord(record.signal);
    QVERIFY(description);
    QCOMPARE(description->linkSignal, record.linkSignal);
    QCOMPARE(QByteArray(description->dumpTag), tag);
    QCOMPARE(description->getter, record.getter.name);
    QCOMPARE(description->readiness.bit, record.readinessBit);
    QList<QByteArray> names;
    for (const mcu::FieldValue &field : mcu::fieldValues(*description, image))
        names.append(field.name);
    QCOMPARE(names, linkSignal.parameterNames());
    const int index = McuService::staticMetaObject.indexOfSlot(
        slot + '(' + linkSignal.parameterTypes().join(',') + ')');
    QCOMPARE(names, McuService::staticMetaObject.method(index).parameterNames());

    for (int extreme : {INT_MIN, INT_MAX})
        facade.report(record.linkSignal, variants(QVector<int>(values.size(), extreme)));
}

/// Readiness is complete with the last of a set, whichever it is and however often the others come,
/// and nothing that follows tells it again.
void verifyReadiness(const QList<QByteArray> &set, const QList<QByteArray> &others)
{
    for (const QByteArray &last : set) {
        ConnectedFacade facade;
        for (const QByteArray &report : set + set) {
            if (report != last)
                QVERIFY(!facade.reportAny(report).contains("CANDataReady()"));
        }
        QVERIFY(!facade.service.getCANDataReady());
        const QStringList completing = facade.reportAny(last);
        QVERIFY(completing[completing.size() - 2].startsWith("sync"));
        QCOMPARE(completing.last(), QString("CANDataReady()"));
        for (const QByteArray &report : set + others)
            QVERIFY(!facade.reportAny(report).contains("CANDataReady()"));
        QVERIFY(facade.service.getCANDataReady());
    }
}

} // namespace

Q_DECLARE_METATYPE(const Record *)

class tst_VehicleRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void storesAndPublishes_data()
    {
        QTest::addColumn<const Record *>("record");
        QTest::addColumn<QString>("sourceFile");
        for (const Record &record : carRecords)
            QTest::newRow(record.signal) << &record << "service/mcureports.cpp";
        for (const Record &record : truckRecords)
            QTest::newRow(record.signal) << &record << "service/mcutruckreports.cpp";
    }

    void storesAndPublishes()
    {
        QFETCH(const Record *, record);
        QFETCH(QString, sourceFile);
        verify(*record, sourceFile);
    }

    void doesMoreThanPublish()
    {
        testkit::verifyReports(R"(
reportAVMChangedSgl(1,2,0,4,5,0) reverseChanged(1) syncAVMInforUpdate(0x010200040500)
reportAVMChangedSgl(1,2,0,4,5,0) reverseChanged(1) syncAVMInforUpdate(0x010200040500)
reportAVMChangedSgl(1,2,2,4,5,4) reverseChanged(1) syncAVMInforUpdate(0x010202040504)
reportAVMChangedSgl(1,2,256,4,5,4) reverseChanged(1) syncAVMInforUpdate(0x010200040504)
reportAVMChangedSgl(1,2,1,4,5,0) reverseChanged(2) syncAVMInforUpdate(0x010201040500)
reportAVMChangedSgl(1,2,3,4,5,3) reverseChanged(2) syncAVMInforUpdate(0x010203040503)
reportAVMChangedSgl(1,2,3,4,5,260) reverseChanged(2) syncAVMInforUpdate(0x010203040504)
reportAVMChangedSgl(1,2,3,4,5,4) syncAVMInforUpdate(0x010203040504)
reportAVMChangedSgl(1,2,-1,4,5,4) syncAVMInforUpdate(0x0102ff040504)
reportVehicleSpeedChangedSgl(300,1,0,0) bridge.carSpeedChanged(300) syncVehicleSpeedInforUpdate(0x2c010000010000000000000000000000) syncSpeedUpdate(300)
reportVehicleSpeedChangedSgl(300,1,0,0) syncVehicleSpeedInforUpdate(0x2c010000010000000000000000000000) syncSpeedUpdate(300)
reportSteeringAngleChangedSgl(65534,1,0,0) syncSteeringAngleInforUpdate(0xfeff0000010000000000000000000000) bridge.steeringAngleChanged(100)
reportSteeringAngleChangedSgl(65534,1,0,0) syncSteeringAngleInforUpdate(0xfeff0000010000000000000000000000)
reportSteeringAngleChangedSgl(-1,1,0,0) syncSteeringAngleInforUpdate(0xffffffff010000000000000000000000) bridge.steeringAngleChanged(0)
reportSteeringAngleChangedSgl(65535,1,0,0) syncSteeringAngleInforUpdate(0xffff0000010000000000000000000000)
reportVehicleBodyChangedSgl(300,-1,3,4,5,6,7,8) bridge.turnlightChanged(300) bridge.doorChanged(-1) syncVehicleBodyInforUpdate(0x2cff030405060708)
reportVehicleBodyChangedSgl(300,-1,3,4,5,6,7,8) syncVehicleBodyInforUpdate(0x2cff030405060708)
reportPdcChangedSgl(300,256,-1,1,1000,0,257,2,9,10,11) syncPdcInforUpdate(0x2c00ff01e8000102090a0b) bridge.radarDistanceChanged()
reportPdcChangedSgl(300,256,-1,1,1000,0,257,2,9,10,11) syncPdcInforUpdate(0x2c00ff01e8000102090a0b) bridge.radarDistanceChanged()
setAmpEditionSgl(a1,a2)
setEcuEditionSgl(e1,e2) syncEcuEdition()
setEcuEditionSgl(e1,e2) syncEcuEdition()
)");
        // Five a step and 25 more of the whole distances; code 0 alone is no obstacle.
        QVector<int> distances(8);
        McuVechicleBridge::instance()->radarDistance(distances.data(), distances.data() + 4);
        QCOMPARE(distances, (QVector<int>{1525, 1305, 20, 30, 5025, 10000, 1310, 35}));
    }

    void keepsExtendedPackageApart()
    {
        ConnectedFacade facade;
        testkit::LogCapture log;
        for (const QByteArray &package : {QByteArray::fromHex("0a00ff0102030405"), QByteArray()}) {
            QCOMPARE(facade.report("reportFeatureVelroCodeChangedSgl", {package}),
                     QStringList(show("syncFeatureCodeInforUpdate", {package})));
            const QVector<testkit::LogLine> lines = log.take();
            QCOMPARE(lines.size(), 1);
            QVERIFY(lines[0].text.endsWith(" -- TTTTTTTTT111111111---------------------------"));
            QCOMPARE(lines[0].function,
                     QString("void mcu::McuService::onReportFeatureVelroCodeChanged(QByteArray)"));
        }
        QCOMPARE(facade.service.getCANDataSignal(), 0);
        // A package is no record to be read field by field.
        QVERIFY(mcu::fieldValues(mcu::record::featureCode, QByteArray(8, 1)).empty());
        QCOMPARE(mcu::describeRecord("syncSpeedUpdate"), nullptr);
    }

    void readsSingleFieldsAndEditions()
    {
        ConnectedFacade facade;
        McuService &s = facade.service;
        for (int speed : {INT_MIN, -1, 70000}) {
            facade.report("reportVehicleSpeedChangedSgl", {speed, 1, 2, 3});
            QCOMPARE(s.getVehicleSpeed(), speed);
        }
        facade.report("ampStatusChangedSgl", {511, 1, 1, 1, 1, 1, 1, 1, 1});
        QCOMPARE(s.getAmpStatus(), 255);
        facade.report("setAmpEditionSgl", {"a1", "a2"});
        facade.report("setEcuEditionSgl", {"e1", "e2"});
        const QStringList editions{s.getAmpSwEdition(), s.getAmpHwEdition(), s.getEcuSwEdition(),
                                   s.getEcuHwEdition()};
        QCOMPARE(editions, words("a1 a2 e1 e2"));

        facade.report("reportAVMChangedSgl", {1, 2, 200, 4, 5, 6});
        testkit::LogCapture log;
        s.getReportAVMDate();
        s.getReportPdcDate();
        QCOMPARE(log.takeTexts(), QStringList("\n  200"));
    }

    void asksLinkForFeatureCodes()
    {
        ConnectedFacade facade;
        // What was reported plays no part in what is asked.
        facade.reportAny("reportFeatureCodeChangedSgl");
        facade.report("reportFeatureVelroCodeChangedSgl", {QByteArray("reported")});
        const std::pair<const char *, QByteArray> codes[]{
            {"1;;255;256", "0100ff00"},
            {"", "00"},
            {";7;", "000700"},
            {"x;0x10;1.5;99999999999;-1", "00000000ff"},
        };
        for (const auto &[text, code] : codes) {
            substitute::link::setAnswer("getCarFeatureCode", QString(text));
            QCOMPARE(facade.service.getReportFeatureCodeChanged().toHex(), code);
        }
        const QByteArray package("asked\0for", 9);
        substitute::link::setAnswer("getVelroCarFeatureCode", package);
        QCOMPARE(facade.service.getVelroReportFeatureCodeChanged(), package);
        substitute::link::setAnswer("getFeatureDataStatus", -7);
        QCOMPARE(facade.service.getFeatureDataStatus(), -7);
    }

    void notesReadiness()
    {
        ConnectedFacade facade;
        const QList<QByteArray> set = readinessSet(carRecords);
        for (const Record &record : carRecords) {
            if (!set.contains(record.linkSignal))
                facade.reportAny(record.linkSignal);
        }
        QCOMPARE(facade.service.getCANDataSignal(), 0);
        for (int i = 0; i < set.size(); ++i) {
            facade.reportAny(set[i]);
            QCOMPARE(facade.service.getCANDataSignal(), (2 << i) - 1);
        }
        ConnectedFacade truck;
        for (const Record &record : truckRecords)
            truck.reportAny(record.linkSignal);
        QCOMPARE(truck.service.getCANDataSignal(), 0); // the car's mask is another
    }

    void completesReadiness()
    {
        const QList<QByteArray> car = readinessSet(carRecords);
        const QList<QByteArray> truck = readinessSet(truckRecords);
        QCOMPARE(car.size(), 7);
        QCOMPARE(truck.size(), 13);
        verifyReadiness(car, truck);
        verifyReadiness(truck, car);
    }
};

int main(int argc, char **argv) { return testkit::run<tst_VehicleRecords>(argc, argv); }
#include "tst_vehiclerecords.moc"
