// Speed, reverse gear and steering wheel.
#include "view.h"

namespace mcupanel {

namespace {

const QString speedRecord = "McuService.syncVehicleSpeedInforUpdate/";
const QString steeringRecord = "McuService.syncSteeringAngleInforUpdate/";
const QString steeringPercent = "McuVechicleBridge.steeringAngleChanged/percent";
const QString reverse = "McuService.reverseChanged/state";
constexpr int reverseOn = 2;

class DriveView : public View {
public:
    explicit DriveView(const CarState &state) : View(state, "Drive", {330, 215}) {}

protected:
    void draw(QPainter &painter) override
    {
        writeLarge(painter, {14, 2, 156, 95}, "Speed in km/h",
                   shown("McuService.syncSpeedUpdate/speed"));
        writeField(painter, {14, 98, 158, 18}, "vehicle_speed_valid",
                   speedRecord + "vehicle_speed_valid");
        const std::optional<int> gear = number(reverse);
        const bool isReverse = gear == reverseOn;
        writeLarge(painter, {14, 120, 156, 93}, "Reverse gear",
                   gear ? QString(isReverse ? "R" : "off") : shown(reverse),
                   isReverse ? Ink::Warning : Ink::Plain);
        drawWheel(painter, number(steeringPercent));
    }

private:
    void drawWheel(QPainter &painter, const std::optional<int> &percent)
    {
        constexpr double rim = 62;
        constexpr double perPercent = 3.6; // degrees on the screen
        write(painter, {172, 2, 158, 18}, Qt::AlignCenter, "Steering wheel", Ink::Dim);
        painter.save();
        painter.translate(252, 92);
        painter.rotate((percent.value_or(50) - 50) * perPercent);
        painter.setPen(pen(percent ? std::optional(0) : std::nullopt, Ink::Plain, 7));
        painter.drawEllipse(QPointF(0, 0), rim, rim);
        for (const QPointF end : {QPointF(-rim, 0), QPointF(rim, 0), QPointF(0, rim)})
            painter.drawLine(QPointF(0, 0), end);
        painter.setPen(QPen(colour(percent ? Ink::Accent : Ink::Dim), 9));
        painter.drawPoint(QPointF(0, -rim));
        painter.restore();
        write(painter, {172, 162, 158, 24}, Qt::AlignCenter,
              shown(steeringPercent) + (percent ? " %" : ""), Ink::Plain, 20);
        writeField(painter, {184, 188, 146, 18}, "steering_angle",
                   steeringRecord + "steering_angle");
    }
};

} // namespace

View *makeDriveView(const CarState &state) { return new DriveView(state); }

} // namespace mcupanel
