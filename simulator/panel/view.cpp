#include "view.h"

#include <QAccessible>
#include <QPainterPath>

#include <cmath>

namespace mcupanel {

namespace {

const QString notReported = QStringLiteral("– –");

} // namespace

View::View(const CarState &state, const char *name, QSize canvas, const QStringList &signalNames)
    : m_state(state), m_canvas(canvas), m_signals(signalNames)
{
    setObjectName(name);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    constexpr double smallest = 0.8;
    setMinimumSize(canvas * smallest);
}

void View::refresh(const QSet<QString> &changed)
{
    if (!std::any_of(m_signals.begin(), m_signals.end(),
                     [&changed](const QString &signal) { return changed.contains(signal); }))
        return;
    update();
    if (!QAccessible::isActive())
        return;
    QStringList texts;
    for (const QString &signal : m_signals)
        texts.append(m_state.described(signal));
    setAccessibleDescription(texts.join("; "));
}

void View::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale =
        std::min(double(width()) / m_canvas.width(), double(height()) / m_canvas.height());
    painter.translate((width() - scale * m_canvas.width()) / 2,
                      (height() - scale * m_canvas.height()) / 2);
    painter.scale(scale, scale);
    m_cutTexts.clear();
    draw(painter);
}

QString View::shown(const QString &name) const { return m_state.text(name).value_or(notReported); }

QColor View::colour(Ink ink) const
{
    const QColor plain = palette().color(QPalette::WindowText);
    const QColor ground = palette().color(QPalette::Window);
    switch (ink) {
    case Ink::Plain:
        return plain;
    case Ink::Dim: {
        constexpr double portion = 0.6;
        const auto mix = [](double a, double b) { return a * portion + b * (1 - portion); };
        return QColor::fromRgbF(mix(plain.redF(), ground.redF()),
                                mix(plain.greenF(), ground.greenF()),
                                mix(plain.blueF(), ground.blueF()));
    }
    case Ink::Accent:
        return palette().color(QPalette::Highlight);
    case Ink::Warning:
        return ground.lightness() < 128 ? QColor(255, 110, 90) : QColor(190, 30, 20);
    }
    return plain;
}

QColor View::blend(Ink far, Ink near, double portion) const
{
    const QColor a = colour(far);
    const QColor b = colour(near);
    const auto mix = [portion](double from, double to) { return from + (to - from) * portion; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

QPen View::pen(const std::optional<int> &value, Ink other, double width) const
{
    if (!value)
        return {colour(Ink::Dim), 1, Qt::DashLine};
    return {colour(*value == 0 ? Ink::Plain : other), width};
}

void View::drawLamp(QPainter &painter, const QPainterPath &shape, const std::optional<bool> &isOn,
                    Ink on) const
{
    painter.setPen(pen(isOn, on));
    painter.setBrush(isOn.value_or(false) ? QBrush(colour(on)) : QBrush(Qt::NoBrush));
    painter.drawPath(shape);
    painter.setBrush(Qt::NoBrush);
}

QFont View::face(int height, bool isBold) const
{
    QFont face = font();
    face.setPixelSize(height);
    face.setBold(isBold);
    return face;
}

QString View::fitting(const QString &text, double width, int height, bool isBold) const
{
    return QFontMetricsF(face(height, isBold)).elidedText(text, Qt::ElideRight, width);
}

void View::write(QPainter &painter, const QRectF &place, int alignment, const QString &text,
                 Ink ink, int height, bool isBold)
{
    const QFont used = face(height, isBold);
    painter.setFont(used);
    painter.setPen(colour(text == notReported ? Ink::Dim : ink));
    const QRectF needed = QFontMetricsF(used).boundingRect(place, alignment, text);
    if (std::floor(needed.width()) > place.width() || std::floor(needed.height()) > place.height())
        m_cutTexts.append(text);
    painter.drawText(place, alignment, text);
}

void View::writeField(QPainter &painter, const QRectF &place, const QString &label,
                      const QString &name, Ink ink)
{
    constexpr int gap = 6;
    const double width = QFontMetricsF(face(usual)).horizontalAdvance(label) + gap;
    write(painter, place, Qt::AlignLeft | Qt::AlignVCenter, label, Ink::Dim);
    write(painter, place.adjusted(width, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, shown(name),
          ink);
}

} // namespace mcupanel
