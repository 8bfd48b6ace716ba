// What all drawn parts of the window share: they repaint only for values that they show, and draw a
// value that is not reported yet differently from zero.
#pragma once

#include "carstate.h"

#include <QPainter>
#include <QWidget>

namespace mcupanel {

class View : public QWidget {
    Q_OBJECT

public:
    /// Draws on a canvas of this size, which is scaled to the widget.
    View(const CarState &state, const char *name, QSize canvas);

    /// Repaints if one of these values is shown here.
    void refresh(const QSet<QString> &changed);
    /// The texts that did not fit into their places in the last paint.
    const QStringList &cutTexts() const { return m_cutTexts; }

protected:
    /// Dim is for what is not reported and for captions.
    enum class Ink { Plain, Dim, Accent, Warning };
    static constexpr int usual = 12; ///< height of text in pixels of the canvas
    static constexpr int leftwards = int(Qt::AlignLeft) | int(Qt::AlignVCenter);

    virtual void draw(QPainter &painter) = 0;
    void paintEvent(QPaintEvent *event) override;

    std::optional<int> number(const QString &name);
    /// The value, or dashes.
    QString shown(const QString &name);
    QColor colour(Ink ink) const;
    /// A line: dashed before the first report; plain for 0, in colour else.
    QPen pen(const std::optional<int> &value, Ink other, double width = 1.5) const;
    /// A circle that is filled while it is on.
    void drawLamp(QPainter &painter, QPointF centre, double radius,
                  const std::optional<bool> &isOn) const;
    void write(QPainter &painter, const QRectF &place, int alignment, const QString &text,
               Ink ink = Ink::Plain, int height = usual);
    /// A name in dim ink, and its value behind it, or large below it.
    void writeField(QPainter &painter, const QRectF &place, const QString &label,
                    const QString &name, Ink ink = Ink::Plain);
    void writeLarge(QPainter &painter, const QRectF &place, const QString &label,
                    const QString &text, Ink ink = Ink::Plain);
    /// The text as far as it fits into a width; its end becomes dots.
    QString fitting(const QString &text, double width, int height) const;

private:
    QFont face(int height) const;

    const CarState &m_state;
    QSize m_canvas;
    QSet<QString> m_shown;
    QStringList m_cutTexts;
};

View *makeCarView(const CarState &state);
View *makeDriveView(const CarState &state);
View *makeMediaView(const CarState &state);
View *makeClimateView(const CarState &state);

} // namespace mcupanel
