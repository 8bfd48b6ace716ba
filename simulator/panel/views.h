// The drawn parts of the window.
#pragma once

#include "view.h"

namespace mcupanel {

/// The car from above: doors, lamps, tyres and parking distances.
class CarView : public View {
public:
    explicit CarView(const CarState &state);

protected:
    void draw(QPainter &painter) override;

private:
    void drawBody(QPainter &painter);
    void drawLamps(QPainter &painter);
    void drawTyres(QPainter &painter);
    void drawDistances(QPainter &painter);
};

/// Speed, reverse gear and steering wheel.
class DriveView : public View {
public:
    explicit DriveView(const CarState &state);

protected:
    void draw(QPainter &painter) override;

private:
    void drawWheel(QPainter &painter);
};

/// Audio channel, volume and mute, the radio's station.
class MediaView : public View {
public:
    explicit MediaView(const CarState &state);

protected:
    void draw(QPainter &painter) override;
};

/// All fields of the air conditioning.
class ClimateView : public View {
public:
    explicit ClimateView(const CarState &state);

protected:
    void draw(QPainter &painter) override;
};

} // namespace mcupanel
