// mcupanel: a window on the library and the car that it hears of.
#include "window.h"

#include "commandline.h"
#include "process.h"

#include <QApplication>
#include <QStyleFactory>

#include <clocale>

namespace mcupanel {

using namespace mcusim;

namespace {

constexpr QSize size{1280, 720};

/// A palette of its own in place of the desktop's; Qt finds the other colours.
QPalette paletteOf(bool isDark)
{
    const QColor ground = isDark ? QColor(32, 35, 40) : QColor(244, 245, 247);
    QPalette palette(isDark ? ground.lighter(140) : ground, ground);
    palette.setColor(QPalette::Base, isDark ? ground.lighter(140) : Qt::white);
    palette.setColor(QPalette::PlaceholderText, Qt::gray);
    palette.setColor(QPalette::Highlight, isDark ? QColor(90, 170, 255) : QColor(20, 100, 200));
    palette.setColor(QPalette::HighlightedText, isDark ? Qt::black : Qt::white);
    return palette;
}

void expectDisplay()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return;
    }
    throw Refusal("expected a display; --screenshot needs none");
}

int show(const CommandLine &line, int argc, char **argv)
{
    const QString picture = line.value("screenshot");
    const qint64 moment = line.moment("at", -1);
    if (moment >= 0 && picture.isEmpty())
        line.refuse("--at is for --screenshot");
    const double speed = line.number("speed", 1);
    substitute::VirtualClock *virtualClock = nullptr;
    if (picture.isEmpty()) {
        expectDisplay();
    } else {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        virtualClock = substitute::VirtualClock::install();
    }
    const QApplication application(argc, argv);
    if (line.isSet("dark") || line.isSet("light")) {
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        QApplication::setPalette(paletteOf(line.isSet("dark")));
    }
    VirtualTime virtualTime(virtualClock, [](qint64) { return true; });
    RealTime realTime;
    Clock &clock = virtualClock ? static_cast<Clock &>(virtualTime) : realTime;
    std::unique_ptr<Target> target;
    if (line.operands().isEmpty())
        target = std::make_unique<OwnLibrary>(clock);
    else
        target = std::make_unique<RunningApplication>(line.operands().constFirst(), clock);
    Window window(*target);
    window.resize(size);
    window.transport().setSpeed(speed);
    if (line.isSet("play"))
        window.transport().open(line.value("play"));
    if (!picture.isEmpty()) {
        if (line.isSet("play"))
            window.transport().playUntil(moment);
        window.show();
        // So long as the slowest part takes to be drawn.
        constexpr int drawing = 300;
        clock.advanceTo(clock.now() + drawing);
        if (!window.grab().toImage().convertToFormat(QImage::Format_RGB555).save(picture, "PNG", 0))
            throw Refusal("cannot write " + picture);
        return Passed;
    }
    window.show();
    if (line.isSet("play"))
        window.transport().play();
    return QApplication::exec();
}

int run(int argc, char **argv)
{
    QStringList arguments{"mcupanel"};
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const CommandLine line(
        arguments,
        {"",
         "[NAME]",
         "Shows the state of the car in a window and plays scenarios: with the library in the "
         "window itself, or in the running application NAME.",
         {{"play", "FILE", "Open this scenario and play it."},
          {"speed", "X", "Play at X times real time."},
          {"dark", nullptr, "Light text on dark ground."},
          {"light", nullptr, "Dark text on light ground."},
          {"screenshot", "FILE", "Write a picture of the window and end; needs no display."},
          {"at", "SECONDS", "The moment of the scenario for the picture."}},
         "mcupanel"});
    line.expectOperands(0, 1, "one name at most");
    line.exclude({"dark", "light"});
    if (line.isSet("screenshot") && !line.operands().isEmpty())
        line.refuse("--screenshot has the library in itself and takes no name");
    if (line.isSet("play") && line.isSet("screenshot") != line.isSet("at"))
        line.refuse("--screenshot of a --play expects --at");
    silenceLibrary();
    return show(line, argc, argv);
}

} // namespace

} // namespace mcupanel

int main(int argc, char **argv)
{
    mcusim::secureStreams();
    std::setlocale(LC_CTYPE, "");
    try {
        return mcupanel::run(argc, argv);
    } catch (const mcusim::Refusal &refusal) {
        mcusim::complain(refusal.text());
        return mcusim::Unusable;
    }
}
