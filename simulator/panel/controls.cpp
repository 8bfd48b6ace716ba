#include "controls.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QSlider>
#include <QSpinBox>

namespace mcupanel {

using namespace mcusim;

/// A control sets some arguments of an input; the others keep what they were.
struct Controls::Control {
    enum Type { Slider, Number, Box };
    const char *label; ///< with its accelerator
    Type type;
    Kind kind;
    const char *input;
    int first; ///< argument
    int count; ///< arguments from there
    int most;  ///< of the range from 0; the value of a box that is checked
    int atStart = 0;
};

const Controls::Control Controls::all[]{
    {"S&peed", Control::Slider, Kind::Report, "reportVehicleSpeedChangedSgl", 0, 1, 250},
    {"Steerin&g angle", Control::Slider, Kind::Report, "reportSteeringAngleChangedSgl", 0, 1, 14760,
     7380},
    {"&Reverse gear", Control::Box, Kind::Report, "taillineStateSgl", 1, 1, 2},
    {"&Headlight", Control::Box, Kind::Report, "taillineStateSgl", 2, 1, 2},
    {"P&arking lamp", Control::Box, Kind::Report, "taillineStateSgl", 0, 1, 2},
    {"&TurnSwitch", Control::Number, Kind::Report, "reportVehicleBodyChangedSgl", 0, 1, 255},
    {"&DoorStatus", Control::Number, Kind::Report, "reportVehicleBodyChangedSgl", 1, 1, 255},
    {"Front sensors (&K)", Control::Slider, Kind::Report, "reportPdcChangedSgl", 0, 4, 30},
    {"Rear se&nsors", Control::Slider, Kind::Report, "reportPdcChangedSgl", 4, 4, 30},
    {"Tyre press&ures", Control::Slider, Kind::Report, "reportTpmsChangedSgl", 0, 4, 255},
    {"FL pressure &warning", Control::Box, Kind::Report, "reportTpmsChangedSgl", 4, 1, 1},
    {"Temple&vel", Control::Number, Kind::Report, "reportAcChangedSgl", 2, 1, 255},
    {"&BlowerLvl", Control::Number, Kind::Report, "reportAcChangedSgl", 6, 1, 255},
    {"IndicatorACFront (&C)", Control::Box, Kind::Report, "reportAcChangedSgl", 10, 1, 1},
    {"Vo&lume", Control::Slider, Kind::Report, "audioVolumeSgl", 1, 1, 40},
    {"&Mute", Control::Box, Kind::Report, "audioVolumeSgl", 0, 1, 1},
    {"Aud&io channel", Control::Number, Kind::Call, "McuManager.updateAudioChannel", 0, 1, 255},
    {"Radio &frequency", Control::Number, Kind::Report, "radioCurrChInfoChangedSgl", 0, 1, 1000000},
};

Controls::Controls(Target &target) : m_target(target)
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(8, 4, 8, 4);
    form->setVerticalSpacing(4);
    for (const Control &control : all) {
        QVariantList &values = m_values[control.input];
        const Signature *what = target.names().find(control.kind, control.input).value(0);
        while (values.size() < what->parameters.size())
            values.append(0);
        QWidget *field = made(control);
        field->setObjectName(QString(control.label).remove('&'));
        field->setAccessibleName(field->objectName());
        field->setToolTip(control.input);
        form->addRow(control.type == Control::Box ? QString() : QString(control.label), field);
    }
    constexpr int valid = 1; // argument of the speed
    m_values["reportVehicleSpeedChangedSgl"][valid] = 1;
}

QWidget *Controls::made(const Control &control)
{
    const auto change = [this, &control](int value) { send(control, value); };
    if (control.type == Control::Box) {
        auto *box = new QCheckBox(control.label);
        connect(box, &QCheckBox::toggled, this,
                [change, &control](bool isOn) { change(isOn ? control.most : 0); });
        return box;
    }
    if (control.type == Control::Number) {
        auto *number = new QSpinBox;
        number->setRange(0, control.most);
        number->setKeyboardTracking(false);
        connect(number, qOverload<int>(&QSpinBox::valueChanged), this, change);
        return number;
    }
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, control.most);
    slider->setValue(control.atStart);
    slider->setPageStep(std::max(1, control.most / 10));
    slider->setSingleStep(std::max(1, control.most / 100));
    connect(slider, &QSlider::valueChanged, this, change);
    return slider;
}

void Controls::send(const Control &control, int value)
{
    QVariantList &values = m_values[control.input];
    std::fill_n(values.begin() + control.first, control.count, value);
    const Signature *what = m_target.names().find(control.kind, control.input, values);
    const QString why = m_target.play({m_target.clock().now(), what, values, 0});
    if (!why.isEmpty())
        m_target.onTrouble(why);
}

} // namespace mcupanel
