#include "printer.h"

#include "values.h"

namespace mcusim {

namespace {

constexpr int narrowest = 40;
const QLatin1String more(" ...");
constexpr char unchanged[] = "90";

/// East Asian letters take two columns.
int columns(const QString &text)
{
    return text.size() + int(std::count_if(text.begin(), text.end(),
                                           [](QChar c) { return c.unicode() >= 0x1100; }));
}

} // namespace

void Printer::hear(const Event &event)
{
    constexpr int timeWidth = 9;
    constexpr int markWidth = 6;
    const KindInfo &kind = info(event.what->kind);
    const QString head = seconds(event.time).rightJustified(timeWidth) + ' ' +
                         QString(kind.mark).leftJustified(markWidth);

    QStringList changed;
    QStringList others;
    QVector<QString> &last = m_last[event.what];
    const QVector<Field> all = fields(event);
    const bool known = last.size() == all.size();
    last.resize(all.size());
    for (int i = 0; i < all.size(); ++i) {
        const QString text = (all[i].name.isEmpty() ? "" : all[i].name + '=') + all[i].value;
        (known && m_look.width > 0 && last[i] == all[i].value ? others : changed).append(text);
        last[i] = all[i].value;
    }

    QString line = head;
    int room = std::max(m_look.width, narrowest) - columns(head);
    // False when there is no room; then appends what fits if the text is divisible, and "...".
    const auto append = [&](QString text, const char *colour, bool isLast, bool isDivisible) {
        const int space = isLast ? room : room - more.size();
        const bool fits = m_look.width == 0 || columns(text) <= space;
        m_wasCut = m_wasCut || !fits;
        while (!fits && columns(text) > (isDivisible ? room - more.size() : 0))
            text.chop(1);
        line += painted(text, colour) + (fits ? QLatin1String() : more);
        room -= columns(text);
        return fits;
    };
    const QStringList texts = changed + others;
    bool fits = append(event.what->name, kind.colour, texts.isEmpty(), true);
    for (int i = 0; fits && i < texts.size(); ++i)
        fits = append(' ' + texts[i], i < changed.size() ? nullptr : unchanged,
                      i == texts.size() - 1, i == 0);
    std::fputs((line + '\n').toUtf8().constData(), m_stream);
}

void Printer::print(const QString &text, int indent, const char *colour)
{
    const auto put = [&](const QString &line) {
        std::fputs((painted(line, colour) + '\n').toUtf8().constData(), m_stream);
    };
    QString line = text;
    const int width = std::max(m_look.width, narrowest);
    while (m_look.width > 0 && columns(line) > width) {
        const int blank = line.lastIndexOf(' ', width);
        const int cut = blank > indent ? blank : width;
        put(line.left(cut));
        line = QString(indent, ' ') + line.mid(cut).trimmed();
    }
    put(line);
}

QString Printer::painted(const QString &text, const char *colour) const
{
    if (!m_look.colour || !colour)
        return text;
    return QString("\033[") + colour + 'm' + text + "\033[0m";
}

} // namespace mcusim
