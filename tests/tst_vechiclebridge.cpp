// The vehicle bridge: what it keeps, when it signals, and the frames it hands to the renderer.
#include "mcuvechiclebridge.h"

#include "rendererstandin.h"
#include "testkit.h"

#include <climits>

using Values = QVector<int>;
using Report = void (*)(McuVechicleBridge &bridge, int value, int from);

namespace {

QString state(McuVechicleBridge &bridge)
{
    return testkit::show("", {bridge.parking(), bridge.headlight(), bridge.reverse(),
                              bridge.turnlight(), bridge.carSpeed(), bridge.doorState(),
                              bridge.wheelAngle()});
}

Values distances(McuVechicleBridge &bridge)
{
    Values values(8);
    bridge.radarDistance(values.data(), values.data() + 4);
    return values;
}

} // namespace

class tst_VechicleBridge : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signalsAndLogsOnlyChanges()
    {
        McuVechicleBridge bridge;
        QCOMPARE(state(bridge), QString("(false,false,false,0,0,0,50)"));
        QCOMPARE(distances(bridge), Values(8, 0));
        testkit::Emissions emissions(&bridge);
        testkit::LogCapture log;
        // Reports each value with its position as `from`.
        const auto verify = [&](Report report, const Values &values, const QStringList &emitted,
                                const QString &logged, const QString &endState) {
            for (int from = 0; from < values.size(); ++from)
                report(bridge, values[from], from);
            QCOMPARE(emissions.take(), emitted);
            QCOMPARE(log.takeTexts().join(' '), logged);
            QCOMPARE(state(bridge), endState);
        };
        verify(
            [](auto &b, int v, int from) { b.notifyHeadlightUpdate(v, from); }, {0, 1, 1, 0, 1},
            {"headlightChanged(true,1)", "headlightChanged(false,3)", "headlightChanged(true,4)"},
            "true false true", "(false,true,false,0,0,0,50)");
        verify([](auto &b, int v, int from) { b.notifyParkingUpdate(v, from); }, {0, 1, 1},
               {"parkingChanged(true,1)"}, "true", "(true,true,false,0,0,0,50)");
        verify([](auto &b, int v, int from) { b.notifyReverseUpdate(v, from); }, {0, 1, 1},
               {"reverseChanged(true,1)"}, "true", "(true,true,true,0,0,0,50)");
        verify([](auto &b, int v, int) { b.notifyTurnLightUpdate(v); }, {0, 5, 5, 6},
               {"turnlightChanged(5)", "turnlightChanged(6)"}, "5 6", "(true,true,true,6,0,0,50)");
        verify([](auto &b, int v, int) { b.notifyCarSpeedUpdate(v); }, {0, 5, 5, INT_MIN},
               {"carSpeedChanged(5)", "carSpeedChanged(-2147483648)"}, "5 -2147483648",
               "(true,true,true,6,-2147483648,0,50)");
        verify([](auto &b, int v, int) { b.notifyDoorUpdate(v); }, {0, 7, 7, 8},
               {"doorChanged(7)", "doorChanged(8)"}, "7 8", "(true,true,true,6,-2147483648,8,50)");
        verify([](auto &b, int v, int) { b.notifySteeringAngleUpdate(v); },
               {7380, -500, 0, 20000, 14760, INT_MIN, INT_MAX},
               {"steeringAngleChanged(0)", "steeringAngleChanged(100)", "steeringAngleChanged(0)",
                "steeringAngleChanged(100)"},
               "", "(true,true,true,6,-2147483648,8,100)");
    }

    void keepsSteeringAsPercent()
    {
        McuVechicleBridge bridge;
        const QVector<Values> percents{{149, 0},    {150, 1},    {3689, 24},  {3690, 25},
                                       {7379, 49},  {7380, 50},  {7529, 50},  {7530, 51},
                                       {14619, 98}, {14620, 99}, {14759, 99}, {14760, 100}};
        for (const Values &row : percents) {
            bridge.notifySteeringAngleUpdate(row[0]);
            QCOMPARE(bridge.wheelAngle(), row[1]);
        }
    }

    void turnsParkingReportIntoDistancesAndFrame_data()
    {
        QTest::addColumn<Values>("codes");
        QTest::addColumn<Values>("converted");
        QTest::addColumn<QByteArray>("frame");
        QTest::newRow("no obstacle and near ones")
            << Values{0, 1, 2, 3, 10, 0, 0, 0} << Values{10000, 30, 35, 40, 75, 10000, 10000, 10000}
            << QByteArray("5511101e23284b1010100000000000000000fbff");
        QTest::newRow("one byte for a distance")
            << Values{46, 47, 255, 1, -5, -6, 4, 5} << Values{255, 260, 1300, 30, 0, -5, 45, 50}
            << QByteArray("5511ff04141e00fb2d32000000000000000060ff");
        QTest::newRow("codes beyond any sensor")
            << Values{INT_MAX, INT_MIN, 429496724, 429496725, -429496734, -429496735, 1, 0}
            << Values{INT_MAX, INT_MIN, 2147483645, INT_MAX, -2147483645, INT_MIN, 30, 10000}
            << QByteArray("5511ff00fdff03001e100000000000000000c3ff");
    }

    void turnsParkingReportIntoDistancesAndFrame()
    {
        QFETCH(Values, codes);
        QFETCH(QByteArray, frame);
        const QByteArray written = QByteArray::fromHex(frame) + QByteArray(30, 0);
        QStringList lines{QString(), QString()};
        for (int i = 0; i < 8; ++i)
            lines[i / 4] += (i % 4 ? " " : "") + QString::number(codes[i]);
        McuVechicleBridge bridge;
        testkit::Emissions emissions(&bridge);
        testkit::LogCapture log;
        for (bool released : {true, false, true}) {
            renderer::release(released);
            QCOMPARE(is_avm_service_release_uart(), released);
            bridge.notifyRadarUpdate(codes.data(), codes.data() + 4, 1, 2, 3);
            QCOMPARE(renderer::takeWritten(), released ? written : QByteArray());
            QCOMPARE(emissions.take(), QStringList("radarDistanceChanged()"));
            QTEST(distances(bridge), "converted");
            QCOMPARE(log.takeTexts(), lines);
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_VechicleBridge>(argc, argv); }
#include "tst_vechiclebridge.moc"
