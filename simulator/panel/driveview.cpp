#include "views.h"

namespace mcupanel {

namespace {

const QString speedRecord = "McuService.syncVehicleSpeedInforUpdate/";
const QString speed = "McuService.syncSpeedUpdate/speed";
const QString reverse = "McuService.reverseChanged/state";
const QString steeringRecord = "McuService.syncSteeringAngleInforUpdate/";
const QString steering = "McuVechicleBridge.steeringAngleChanged/percent";
constexpr int reverseOn = 2;

} // namespace

DriveView::DriveView(const CarState &state)
    : View(state, "Drive", {330, 215},
           {"McuService.syncVehicleSpeedInforUpdate", "McuService.syncSpeedUpdate",
            "McuService.reverseChanged", "McuService.syncSteeringAngleInforUpdate",
            "McuVechicleBridge.steeringAngleChanged"})
{
}

void DriveView::draw(QPainter &painter)
{
    constexpr int large = 60;
    const auto centre = int(Qt::AlignCenter);
    write(painter, {0, 2, 170, 18}, centre, "Speed in km/h", Ink::Dim);
    write(painter, {0, 20, 170, 76}, centre, shown(speed), Ink::Plain, large, true);
    writeField(painter, {12, 96, 160, 18}, "vehicle_speed_valid",
               speedRecord + "vehicle_speed_valid");
    const std::optional<int> gear = number(reverse);
    const bool isReverse = gear == reverseOn;
    write(painter, {0, 122, 170, 18}, centre, "Reverse gear", Ink::Dim);
    write(painter, {0, 140, 170, 72}, centre,
          !gear ? shown(reverse) : QString(isReverse ? "R" : "off"),
          isReverse ? Ink::Warning : Ink::Plain, large, true);
    drawWheel(painter);
}

void DriveView::drawWheel(QPainter &painter)
{
    constexpr QPointF hub(252, 92);
    constexpr double rim = 62;
    constexpr double fullTurn = 360; // from 0 to 100 percent
    const std::optional<int> percent = number(steering);
    write(painter, {172, 2, 158, 18}, Qt::AlignCenter, "Steering wheel", Ink::Dim);
    painter.save();
    painter.translate(hub);
    painter.rotate((percent.value_or(50) - 50) * fullTurn / 100);
    QPen line = pen(percent ? std::optional(0) : std::nullopt, Ink::Plain, 7);
    painter.setPen(line);
    painter.drawEllipse(QPointF(0, 0), rim, rim);
    for (const QPointF end : {QPointF(-rim, 0), QPointF(rim, 0), QPointF(0, rim)})
        painter.drawLine(QPointF(0, 0), end);
    if (percent) {
        painter.setPen(QPen(colour(Ink::Accent), 9, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(0, -rim - 5), QPointF(0, -rim + 5));
    }
    painter.restore();
    write(painter, {172, 162, 158, 24}, Qt::AlignCenter,
          percent ? QString::number(*percent) + " %" : shown(steering), Ink::Plain, 20, true);
    writeField(painter, {184, 188, 146, 18}, "steering_angle", steeringRecord + "steering_angle");
}

} // namespace mcupanel
