#include "views.h"

namespace mcupanel {

namespace {

const QString volume = "McuService.audioVolumeChanged/";
const QString station = "McuService.radioCurrChInfoChanged/";
const QString radio = "McuRadioInterface.";

struct Value {
    QRectF place;
    const char *label;
    QString name;
};

} // namespace

MediaView::MediaView(const CarState &state)
    : View(state, "Audio and radio", {330, 215},
           {"McuService.audioVolumeChanged", "McuManager.audioChannel", "McuService.sourceChanged",
            "McuService.muteLineStateChanged", "McuService.radioCurrChInfoChanged",
            "McuRadioInterface.psNameChanged", "McuRadioInterface.radioTextUpdate",
            "McuRadioInterface.stereoChanged", "McuRadioInterface.tpStateChanged",
            "McuRadioInterface.ptyTypeChanged"})
{
}

void MediaView::draw(QPainter &painter)
{
    constexpr int large = 22;
    const auto left = int(Qt::AlignLeft | Qt::AlignVCenter);
    write(painter, {4, 2, 100, 17}, left, "Audio channel", Ink::Dim);
    write(painter, {4, 19, 100, 30}, left, shown("McuManager.audioChannel/channel"), Ink::Plain,
          large, true);
    write(painter, {114, 2, 90, 17}, left, "Volume", Ink::Dim);
    write(painter, {114, 19, 90, 30}, left, shown(volume + "level"), Ink::Plain, large, true);
    write(painter, {210, 2, 118, 17}, left, "Mute", Ink::Dim);
    const std::optional<int> isMute = number(volume + "isMute");
    write(painter, {210, 19, 118, 30}, left,
          isMute ? QString(*isMute != 0 ? "MUTE" : "off") : shown(volume + "isMute"),
          isMute.value_or(0) != 0 ? Ink::Warning : Ink::Plain, large, true);
    const Value values[]{
        {{4, 52, 104, 17}, "source", "McuService.sourceChanged/source"},
        {{114, 52, 94, 17}, "type", volume + "type"},
        {{210, 52, 118, 17}, "mute line", "McuService.muteLineStateChanged/state"},
        {{4, 180, 90, 17}, "rssi", station + "rssi"},
        {{114, 180, 94, 17}, "picode", station + "picode"},
        {{210, 180, 118, 17}, "stereo", radio + "stereoChanged/"},
        {{4, 197, 140, 17}, "programme type", radio + "ptyTypeChanged/type"},
        {{150, 197, 176, 17}, "traffic programme", radio + "tpStateChanged/"},
    };
    for (const Value &value : values)
        writeField(painter, value.place, value.label, value.name);
    painter.setPen(QPen(colour(Ink::Dim), 1));
    painter.drawLine(QPointF(4, 78), QPointF(326, 78));
    write(painter, {4, 82, 110, 17}, left, "Radio frequency", Ink::Dim);
    write(painter, {4, 99, 110, 30}, left, shown(station + "freq"), Ink::Plain, large, true);
    constexpr double width = 208;
    write(painter, {120, 82, width, 17}, left, "Station", Ink::Dim);
    write(painter, {120, 99, width, 30}, left,
          fitting(shown(radio + "psNameChanged/text"), width, large, true), Ink::Plain, large,
          true);
    constexpr double twoLines = 610;
    write(painter, {4, 136, 322, 38}, Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere,
          fitting(shown(radio + "radioTextUpdate/text"), twoLines));
}

} // namespace mcupanel
