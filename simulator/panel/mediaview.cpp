// Audio channel, volume and mute, and the radio's station.
#include "view.h"

namespace mcupanel {

namespace {

const QString volume = "McuService.audioVolumeChanged/";
const QString station = "McuService.radioCurrChInfoChanged/";
const QString radio = "McuRadioInterface.";

const struct {
    QRectF place;
    const char *label;
    QString name;
} values[]{
    {{4, 54, 104, 17}, "source", "McuService.sourceChanged/source"},
    {{114, 54, 94, 17}, "type", volume + "type"},
    {{210, 54, 118, 17}, "mute line", "McuService.muteLineStateChanged/state"},
    {{4, 180, 90, 17}, "rssi", station + "rssi"},
    {{114, 180, 94, 17}, "picode", station + "picode"},
    {{210, 180, 118, 17}, "stereo", radio + "stereoChanged/"},
    {{4, 197, 140, 17}, "programme type", radio + "ptyTypeChanged/type"},
    {{150, 197, 176, 17}, "traffic programme", radio + "tpStateChanged/"},
};

class MediaView : public View {
public:
    explicit MediaView(const CarState &state) : View(state, "Audio and radio", {330, 215}) {}

protected:
    void draw(QPainter &painter) override
    {
        for (const auto &value : values)
            writeField(painter, value.place, value.label, value.name);
        writeLarge(painter, {4, 2, 106, 48}, "Audio channel",
                   shown("McuManager.audioChannel/channel"));
        writeLarge(painter, {114, 2, 90, 48}, "Volume", shown(volume + "level"));
        const std::optional<int> isMute = number(volume + "isMute");
        writeLarge(painter, {210, 2, 118, 48}, "Mute",
                   isMute ? QString(*isMute != 0 ? "MUTE" : "off") : shown(volume + "isMute"),
                   isMute.value_or(0) != 0 ? Ink::Warning : Ink::Plain);
        painter.setPen(colour(Ink::Dim));
        painter.drawLine(QPointF(4, 78), QPointF(326, 78));
        constexpr double width = 208;
        constexpr double twoLines = 610;
        writeLarge(painter, {4, 82, 112, 48}, "Radio frequency", shown(station + "freq"));
        writeLarge(painter, {120, 82, width, 48}, "Station",
                   fitting(shown(radio + "psNameChanged/text"), width, 23));
        write(painter, {4, 136, 322, 38}, Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere,
              fitting(shown(radio + "radioTextUpdate/text"), twoLines, usual));
    }
};

} // namespace

View *makeMediaView(const CarState &state) { return new MediaView(state); }

} // namespace mcupanel
