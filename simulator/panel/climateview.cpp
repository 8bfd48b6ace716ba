#include "views.h"

#include <QPainterPath>

namespace mcupanel {

namespace {

const QString record = "McuService.syncACInforUpdate/";
constexpr const char *levels[]{"KeyState",           "AcType",     "Templevel", "ModeDisp",
                               "HVAC_diagnosis_req", "SetTemDisp", "BlowerLvl", "ExtTemp"};
constexpr const char *lamps[]{"IndicatorAutoFront", "IndicatorDefrostFront", "IndicatorACFront",
                              "IndicatorOFFFront",  "IndicatorACMAX",        "InternalRecycle",
                              "DefrostRear"};
constexpr double row = 26;

} // namespace

ClimateView::ClimateView(const CarState &state)
    : View(state, "Climate", {230, 430}, {"McuService.syncACInforUpdate"})
{
}

void ClimateView::draw(QPainter &painter)
{
    const auto left = int(Qt::AlignLeft | Qt::AlignVCenter);
    const auto right = int(Qt::AlignRight | Qt::AlignVCenter);
    write(painter, {4, 4, 200, 22}, left, "Climate", Ink::Plain, 14, true);
    double y = 30;
    for (const char *level : levels) {
        write(painter, {4, y, 160, row}, left, level, Ink::Dim);
        write(painter, {164, y, 62, row}, right, shown(record + level), Ink::Plain, 18, true);
        y += row;
    }
    for (const char *lamp : lamps) {
        const std::optional<int> value = number(record + lamp);
        QPainterPath circle;
        circle.addEllipse(QPointF(13, y + row / 2), 7, 7);
        drawLamp(painter, circle, value ? std::optional(*value != 0) : std::nullopt, Ink::Accent);
        write(painter, {28, y, 150, row}, left, lamp);
        write(painter, {176, y, 50, row}, right, shown(record + lamp));
        y += row;
    }
}

} // namespace mcupanel
