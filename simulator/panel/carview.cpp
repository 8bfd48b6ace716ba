// The MCU defines the door bits and the codes of the turn switch. So the code and its bits are
// shown as they are, and a code other than 0 marks all doors or all turn lamps.
#include "views.h"

#include <QPainterPath>

#include <cmath>

namespace mcupanel {

namespace {

const QString body = "McuService.syncVehicleBodyInforUpdate/";
const QString tyres = "McuService.syncTpmsInforUpdate/";
const QString distances = "McuService.syncPdcInforUpdate/";
constexpr QSize canvas{426, 430};
constexpr QRectF outline{150, 100, 120, 230};
constexpr double middle = 210;

constexpr int lineOn = 2; // as the tail line reports its lamps

std::optional<bool> isOn(const std::optional<int> &state)
{
    return state ? std::optional(*state == lineOn) : std::nullopt;
}

QPainterPath ellipse(double x, double y, double radius)
{
    QPainterPath path;
    path.addEllipse(QPointF(x, y), radius, radius);
    return path;
}

} // namespace

CarView::CarView(const CarState &state)
    : View(state, "Car", canvas,
           {"McuService.syncVehicleBodyInforUpdate", "McuService.syncTpmsInforUpdate",
            "McuService.syncPdcInforUpdate", "McuService.parkingChanged",
            "McuService.reverseChanged", "McuService.headlightChanged"})
{
}

void CarView::draw(QPainter &painter)
{
    drawDistances(painter);
    drawTyres(painter);
    drawBody(painter);
    drawLamps(painter);
}

void CarView::drawBody(QPainter &painter)
{
    const std::optional<int> doors = number(body + "DoorStatus");
    painter.setPen(QPen(colour(Ink::Plain), 2));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(outline, 34, 40);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour(Ink::Dim), 1));
    painter.drawLine(QPointF(162, 155), QPointF(258, 155)); // wind screen
    painter.drawLine(QPointF(162, 290), QPointF(258, 290)); // rear window
    constexpr double length = 58;
    for (const double y : {162.0, 224.0}) {
        painter.setPen(pen(doors, Ink::Warning, 5));
        painter.drawLine(QPointF(outline.left(), y), QPointF(outline.left(), y + length));
        painter.drawLine(QPointF(outline.right(), y), QPointF(outline.right(), y + length));
    }
    double y = 166;
    for (const char *name : {"DoorStatus", "TurnSwitch", "KeyState"}) {
        writeField(painter, {159, y, 108, 18}, name, body + name);
        y += name == QLatin1String("DoorStatus") ? 40 : 22;
    }
    constexpr int bits = 8;
    constexpr double size = 11;
    for (int bit = 0; bit < bits; ++bit) {
        const QRectF cell(160 + bit * (size + 1), 187, size - 1, size);
        painter.setPen(pen(doors, Ink::Plain, 1));
        painter.fillRect(cell, doors && (*doors >> bit & 1) != 0 ? colour(Ink::Warning)
                                                                 : QColor(Qt::transparent));
        painter.drawRect(cell);
    }
}

void CarView::drawLamps(QPainter &painter)
{
    const std::optional<bool> headlight = isOn(number("McuService.headlightChanged/state"));
    const std::optional<bool> parking = isOn(number("McuService.parkingChanged/state"));
    const std::optional<bool> reverse = isOn(number("McuService.reverseChanged/state"));
    const std::optional<int> turn = number(body + "TurnSwitch");
    for (const double side : {-1.0, 1.0}) {
        if (headlight.value_or(false)) {
            const QPointF beam[]{
                {middle + side * 40, 108}, {middle + side * 20, 40}, {middle + side * 70, 40}};
            QColor light = colour(Ink::Accent);
            light.setAlphaF(0.3);
            painter.setPen(Qt::NoPen);
            painter.setBrush(light);
            painter.drawPolygon(beam, 3);
        }
        drawLamp(painter, ellipse(middle + side * 40, 112, 7), headlight, Ink::Accent);
        drawLamp(painter, ellipse(middle + side * 54, 96, 5), parking, Ink::Accent);
        drawLamp(painter, ellipse(middle + side * 54, 336, 5), parking, Ink::Accent);
        drawLamp(painter, ellipse(middle + side * 30, 337, 5), reverse, Ink::Accent);
        for (const double y : {112.0, 318.0}) {
            QPainterPath arrow;
            arrow.addPolygon(QPolygonF({{middle + side * 66, y - 7},
                                        {middle + side * 66, y + 7},
                                        {middle + side * 78, y}}));
            arrow.closeSubpath();
            drawLamp(painter, arrow, turn ? std::optional(*turn != 0) : std::nullopt, Ink::Warning);
        }
    }
}

void CarView::drawTyres(QPainter &painter)
{
    struct Tyre {
        const char *name;
        double side;
        double y;
    };
    for (const Tyre &tyre :
         {Tyre{"FL", -1, 128}, Tyre{"FR", 1, 128}, Tyre{"RL", -1, 262}, Tyre{"RR", 1, 262}}) {
        const QString name = tyres + tyre.name;
        const std::optional<int> pressure = number(name + "PressureWarning");
        const std::optional<int> heat = number(name + "TempHigh");
        const bool isWrong = pressure.value_or(0) != 0 || heat.value_or(0) != 0;
        painter.setPen(pen(pressure ? std::optional<int>(isWrong) : std::nullopt, Ink::Warning, 3));
        painter.drawRoundedRect(QRectF(middle + tyre.side * 66 - 7, tyre.y, 14, 42), 4, 4);
        QRectF row(tyre.side < 0 ? 2 : 292, tyre.y - 22, 132, 17);
        write(painter, row, Qt::AlignLeft | Qt::AlignVCenter, tyre.name, Ink::Plain, usual, true);
        for (const char *field : {"TirePres", "TireTemp", "PressureWarning", "TempHigh"}) {
            row.translate(0, 17);
            const bool isWarning =
                field == QLatin1String("PressureWarning") || field == QLatin1String("TempHigh");
            writeField(painter, row, field, name + field,
                       isWarning && number(name + field).value_or(0) != 0 ? Ink::Warning
                                                                          : Ink::Plain);
        }
    }
    writeField(painter, {2, 390, 130, 17}, "SystemWarning", tyres + "SystemWarning");
    writeField(painter, {2, 408, 160, 17}, "StudyFailureWarning", tyres + "StudyFailureWarning");
}

void CarView::drawDistances(QPainter &painter)
{
    struct Bumper {
        const char *sensors[4];
        double y;
        double side;
    };
    constexpr double spread = 27; // degrees of a sensor
    constexpr double nearest = 66;
    constexpr double furthest = 120;
    constexpr double shownRange = 160; // of distances; what is further is drawn at its end
    for (const Bumper &bumper : {Bumper{{"FFL", "FSL", "FSR", "FFR"}, 150, 1},
                                 Bumper{{"RFL", "RSL", "RSR", "RFR"}, 284, -1}}) {
        for (int i = 0; i < 4; ++i) {
            const auto code = number(distances + bumper.sensors[i] + "PDCDistance");
            // As the library converts it for the renderer; code 0 is no obstacle.
            const int distance = code.value_or(0) * 5 + 25;
            const double portion = code.value_or(0) == 0 ? 1 : std::min(distance / shownRange, 1.0);
            const double radius = nearest + (furthest - nearest) * portion;
            const double angle = bumper.side * (90 + spread * (1.5 - i));
            const QRectF circle(middle - radius, bumper.y - radius, 2 * radius, 2 * radius);
            const bool isNear = code.value_or(0) != 0;
            painter.setPen(isNear ? QPen(blend(Ink::Accent, Ink::Warning, 1 - portion), 6,
                                         Qt::SolidLine, Qt::FlatCap)
                                  : pen(code, Ink::Dim, 1));
            painter.drawArc(circle, int((angle - spread * 0.45) * 16), int(spread * 0.9 * 16));
            if (!isNear)
                continue;
            constexpr double pi = 3.14159265358979;
            const double away = radius + 14;
            const QPointF place(middle + away * std::cos(angle * pi / 180),
                                bumper.y - away * std::sin(angle * pi / 180));
            write(painter, {place.x() - 24, place.y() - 9, 48, 18}, Qt::AlignCenter,
                  QString::number(distance));
        }
    }
}

} // namespace mcupanel
