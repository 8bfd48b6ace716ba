// The car from above: doors, lamps, tyres and parking distances. The MCU defines the door bits and
// the codes of the turn switch. So these are shown as they are, and a code other than 0 marks all
// doors or all turn lamps.
#include "view.h"

#include <QLineF>

namespace mcupanel {

namespace {

const QString body = "McuService.syncVehicleBodyInforUpdate/";
const QString tyres = "McuService.syncTpmsInforUpdate/";
const QString distances = "McuService.syncPdcInforUpdate/";
constexpr double middle = 210;
constexpr QRectF outline{middle - 60, 100, 120, 230};

class CarView : public View {
public:
    explicit CarView(const CarState &state) : View(state, "Car", {426, 430}) {}

protected:
    void draw(QPainter &painter) override
    {
        drawDistances(painter, {"FFL", "FSL", "FSR", "FFR"}, 150, 1);
        drawDistances(painter, {"RFL", "RSL", "RSR", "RFR"}, 284, -1);
        for (const double side : {-1.0, 1.0}) {
            drawTyre(painter, side < 0 ? "FL" : "FR", side, 128);
            drawTyre(painter, side < 0 ? "RL" : "RR", side, 262);
        }
        writeField(painter, {2, 390, 130, 17}, "SystemWarning", tyres + "SystemWarning");
        writeField(painter, {2, 408, 160, 17}, "StudyFailureWarning",
                   tyres + "StudyFailureWarning");
        drawBody(painter);
        drawLamps(painter);
    }

private:
    void drawBody(QPainter &painter)
    {
        painter.setPen(QPen(colour(Ink::Plain), 2));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(outline, 34, 40);
        painter.setBrush(Qt::NoBrush);
        const std::optional<int> doors = number(body + "DoorStatus");
        for (const double y : {162.0, 224.0}) {
            painter.setPen(pen(doors, Ink::Warning, 5));
            for (const double x : {outline.left(), outline.right()})
                painter.drawLine(QPointF(x, y), QPointF(x, y + 58));
        }
        writeField(painter, {159, 166, 108, 18}, "DoorStatus", body + "DoorStatus");
        writeField(painter, {159, 206, 108, 18}, "TurnSwitch", body + "TurnSwitch");
        writeField(painter, {159, 228, 108, 18}, "KeyState", body + "KeyState");
        for (int bit = 0; bit < 8; ++bit) {
            const QRectF cell(160 + bit * 12, 187, 10, 11);
            painter.setPen(pen(doors, Ink::Plain, 1));
            if ((doors.value_or(0) >> bit & 1) != 0)
                painter.fillRect(cell, colour(Ink::Warning));
            painter.drawRect(cell);
        }
    }

    void drawLamps(QPainter &painter)
    {
        const std::optional<bool> headlight = isOn("McuService.headlightChanged/state");
        const std::optional<bool> parking = isOn("McuService.parkingChanged/state");
        const std::optional<bool> reverse = isOn("McuService.reverseChanged/state");
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
            drawLamp(painter, {middle + side * 40, 112}, 7, headlight);
            drawLamp(painter, {middle + side * 54, 96}, 5, parking);
            drawLamp(painter, {middle + side * 54, 336}, 5, parking);
            drawLamp(painter, {middle + side * 30, 337}, 5, reverse);
            for (const double y : {112.0, 318.0}) {
                const double x = middle + side * 66;
                const QPointF arrow[]{{x, y - 7}, {x, y + 7}, {x + side * 12, y}};
                painter.setPen(pen(turn, Ink::Warning));
                painter.setBrush(turn.value_or(0) != 0 ? QBrush(colour(Ink::Warning))
                                                       : QBrush(Qt::NoBrush));
                painter.drawPolygon(arrow, 3);
                painter.setBrush(Qt::NoBrush);
            }
        }
    }

    void drawTyre(QPainter &painter, const char *corner, double side, double y)
    {
        const QString name = tyres + corner;
        const std::optional<int> warning = number(name + "PressureWarning");
        const bool isHot = number(name + "TempHigh").value_or(0) != 0;
        painter.setPen(pen(isHot ? 1 : warning, Ink::Warning, 3));
        painter.drawRoundedRect(QRectF(middle + side * 66 - 7, y, 14, 42), 4, 4);
        QRectF row(side < 0 ? 2 : 292, y - 22, 132, 17);
        write(painter, row, leftwards, corner);
        for (const auto &[field, isFlag] : {std::pair("TirePres", false),
                                            {"TireTemp", false},
                                            {"PressureWarning", true},
                                            {"TempHigh", true}}) {
            row.translate(0, row.height());
            const bool isWrong = isFlag && number(name + field).value_or(0) != 0;
            writeField(painter, row, field, name + field, isWrong ? Ink::Warning : Ink::Plain);
        }
    }

    void drawDistances(QPainter &painter, std::initializer_list<const char *> sensors, double y,
                       double side)
    {
        constexpr double spread = 27; // degrees of a sensor
        constexpr double nearest = 66;
        constexpr double furthest = 120;
        constexpr double shownRange = 160; // of distances; what is further is drawn at its end
        double angle = side * (90 + spread * 1.5);
        for (const char *sensor : sensors) {
            const std::optional<int> code = number(distances + sensor + "PDCDistance");
            // As the library converts it for the renderer; code 0 is no obstacle.
            const int distance = code.value_or(0) * 5 + 25;
            const bool isThere = code.value_or(0) != 0;
            const double portion = isThere ? std::min(distance / shownRange, 1.0) : 1;
            const double radius = nearest + (furthest - nearest) * portion;
            QPen line = pen(code, Ink::Warning, isThere ? 6 : 1);
            line.setCapStyle(Qt::FlatCap);
            painter.setPen(line);
            painter.drawArc(QRectF(middle - radius, y - radius, 2 * radius, 2 * radius),
                            int((angle - spread * 0.45) * 16), int(spread * 0.9 * 16));
            const QPointF away = QLineF::fromPolar(radius + 14, angle).p2();
            if (isThere)
                write(painter, {middle + away.x() - 24, y + away.y() - 9, 48, 18}, Qt::AlignCenter,
                      QString::number(distance));
            angle -= side * spread;
        }
    }

    std::optional<bool> isOn(const QString &name)
    {
        constexpr int on = 2; // as the tail line reports its lamps
        const std::optional<int> state = number(name);
        return state ? std::optional(*state == on) : std::nullopt;
    }
};

} // namespace

View *makeCarView(const CarState &state) { return new CarView(state); }

} // namespace mcupanel
