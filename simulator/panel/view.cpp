#include "view.h"

#include <QAccessible>

#include <cmath>

namespace mcupanel {

namespace {

const QString notReported = QStringLiteral("– –");
constexpr int bold = 16; ///< texts of this height and above are bold

} // namespace

View::View(const CarState &state, const char *name, QSize canvas) : m_state(state), m_canvas(canvas)
{
    setObjectName(name);
    setAccessibleName(name);
    setAutoFillBackground(true); // so that nothing below it is painted
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    constexpr double smallest = 0.8;
    setMinimumSize(canvas * smallest);
}

void View::refresh(const QSet<QString> &changed)
{
    if (!m_shown.intersects(changed))
        return;
    update();
    if (!QAccessible::isActive())
        return;
    QStringList texts;
    for (const QString &name : std::as_const(m_shown))
        texts.append(name.section('/', -1) + ' ' + m_state.text(name).value_or("not reported"));
    texts.sort();
    setAccessibleDescription(texts.join(", "));
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

std::optional<int> View::number(const QString &name)
{
    m_shown.insert(name);
    return m_state.number(name);
}

QString View::shown(const QString &name)
{
    m_shown.insert(name);
    return m_state.text(name).value_or(notReported);
}

QColor View::colour(Ink ink) const
{
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    QColor plain = palette().color(QPalette::WindowText);
    switch (ink) {
    case Ink::Plain:
        break;
    case Ink::Dim:
        plain.setAlphaF(0.65);
        break;
    case Ink::Accent:
        return palette().color(QPalette::Highlight);
    case Ink::Warning:
        return isDark ? QColor(255, 110, 90) : QColor(190, 30, 20);
    }
    return plain;
}

QPen View::pen(const std::optional<int> &value, Ink other, double width) const
{
    if (!value)
        return {colour(Ink::Dim), 1, Qt::DashLine};
    return {colour(*value == 0 ? Ink::Plain : other), width};
}

void View::drawLamp(QPainter &painter, QPointF centre, double radius,
                    const std::optional<bool> &isOn) const
{
    painter.setPen(pen(isOn, Ink::Accent));
    painter.setBrush(isOn.value_or(false) ? QBrush(colour(Ink::Accent)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(Qt::NoBrush);
}

QFont View::face(int height) const
{
    QFont face = font();
    face.setPixelSize(height);
    face.setBold(height >= bold);
    return face;
}

QString View::fitting(const QString &text, double width, int height) const
{
    return QFontMetricsF(face(height)).elidedText(text, Qt::ElideRight, width);
}

void View::write(QPainter &painter, const QRectF &place, int alignment, const QString &text,
                 Ink ink, int height)
{
    painter.setFont(face(height));
    painter.setPen(colour(text == notReported ? Ink::Dim : ink));
    const QRectF needed = QFontMetricsF(painter.font()).boundingRect(place, alignment, text);
    if (std::floor(needed.width()) > place.width() || std::floor(needed.height()) > place.height())
        m_cutTexts.append(text);
    painter.drawText(place, alignment, text);
}

void View::writeField(QPainter &painter, const QRectF &place, const QString &label,
                      const QString &name, Ink ink)
{
    constexpr int gap = 6;
    const double width = QFontMetricsF(face(usual)).horizontalAdvance(label) + gap;
    write(painter, place, leftwards, label, Ink::Dim);
    write(painter, place.adjusted(width, 0, 0, 0), leftwards, shown(name), ink);
}

void View::writeLarge(QPainter &painter, const QRectF &place, const QString &label,
                      const QString &text, Ink ink)
{
    constexpr int caption = 17;
    constexpr double portion = 0.75; // of the line
    write(painter, {place.topLeft(), QSizeF(place.width(), caption)}, leftwards, label, Ink::Dim);
    write(painter, place.adjusted(0, caption, 0, 0), leftwards, text, ink,
          int((place.height() - caption) * portion));
}

} // namespace mcupanel
