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
    /// Draws on a canvas of this size, which is scaled to the widget. Shows values of the signals.
    View(const CarState &state, const char *name, QSize canvas, const QStringList &signalNames);

    /// Repaints if one of these signals is shown here.
    void refresh(const QSet<QString> &changed);
    /// The texts that did not fit into their places in the last paint.
    const QStringList &cutTexts() const { return m_cutTexts; }
    QSize sizeHint() const override { return m_canvas; }

protected:
    /// Dim is for what is not reported and for captions.
    enum class Ink { Plain, Dim, Accent, Warning };
    static constexpr int usual = 12; ///< height of text in pixels of the canvas

    virtual void draw(QPainter &painter) = 0;
    void paintEvent(QPaintEvent *event) override;

    std::optional<int> number(const QString &name) const { return m_state.number(name); }
    /// The value, or dashes.
    QString shown(const QString &name) const;
    QColor colour(Ink ink) const;
    /// From the far colour to the near one, for 0 to 1.
    QColor blend(Ink far, Ink near, double portion) const;
    /// A line: dashed before the first report; plain for 0, in colour else.
    QPen pen(const std::optional<int> &value, Ink other, double width = 1.5) const;
    /// Draws a closed line; filled if it is on.
    void drawLamp(QPainter &painter, const QPainterPath &shape, const std::optional<bool> &isOn,
                  Ink on) const;
    void write(QPainter &painter, const QRectF &place, int alignment, const QString &text,
               Ink ink = Ink::Plain, int height = usual, bool isBold = false);
    /// The text as far as it fits into a width; its end becomes dots.
    QString fitting(const QString &text, double width, int height = usual,
                    bool isBold = false) const;
    /// A name in dim ink and its value behind it.
    void writeField(QPainter &painter, const QRectF &place, const QString &label,
                    const QString &name, Ink ink = Ink::Plain);

private:
    QFont face(int height, bool isBold = false) const;

    const CarState &m_state;
    QSize m_canvas;
    QStringList m_signals;
    QStringList m_cutTexts;
};

} // namespace mcupanel
