// All fields of the air conditioning.
#include "view.h"

namespace mcupanel {

namespace {

const QString record = "McuService.syncACInforUpdate/";
constexpr const char *levels[]{"KeyState",           "AcType",     "Templevel", "ModeDisp",
                               "HVAC_diagnosis_req", "SetTemDisp", "BlowerLvl", "ExtTemp"};
constexpr const char *lamps[]{"IndicatorAutoFront", "IndicatorDefrostFront", "IndicatorACFront",
                              "IndicatorOFFFront",  "IndicatorACMAX",        "InternalRecycle",
                              "DefrostRear"};

class ClimateView : public View {
public:
    explicit ClimateView(const CarState &state) : View(state, "Climate", {230, 430}) {}

protected:
    void draw(QPainter &painter) override
    {
        constexpr double row = 26;
        const auto right = int(Qt::AlignRight | Qt::AlignVCenter);
        write(painter, {4, 4, 200, 22}, leftwards, "Climate", Ink::Plain, 16);
        double y = 30;
        for (const char *level : levels) {
            write(painter, {4, y, 160, row}, leftwards, level, Ink::Dim);
            write(painter, {164, y, 62, row}, right, shown(record + level), Ink::Plain, 18);
            y += row;
        }
        for (const char *lamp : lamps) {
            const std::optional<int> value = number(record + lamp);
            drawLamp(painter, {13, y + row / 2}, 7,
                     value ? std::optional(*value != 0) : std::nullopt);
            write(painter, {28, y, 150, row}, leftwards, lamp);
            write(painter, {176, y, 50, row}, right, shown(record + lamp));
            y += row;
        }
    }
};

} // namespace

View *makeClimateView(const CarState &state) { return new ClimateView(state); }

} // namespace mcupanel
