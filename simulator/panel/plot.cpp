// A chart is slow to draw. So it is drawn four times a second; of what a field was in between, the
// least and the greatest value are drawn.
#include "plot.h"

#include "recordcatalog_p.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QCompleter>
#include <QGraphicsLayout>
#include <QLineEdit>
#include <QLineSeries>
#include <QTimer>
#include <QVBoxLayout>
#include <QValueAxis>

#include <cmath>
#include <deque>

namespace mcupanel {

using namespace QtCharts;

namespace {

constexpr double interval = 0.25; // seconds
constexpr double shownTime = 180;
constexpr int ticks = 6; // of time, at whole seconds

/// A field that is shown.
struct Course {
    struct Step {
        double time;
        int least, greatest, last;
    };
    QString name;
    QLineSeries *line;
    std::deque<Step> steps;
};

class FieldPlot final : public Plot {
public:
    FieldPlot(const mcusim::Catalogue &names, const CarState &state);

    void sample() override;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange)
            followPalette();
    }

private:
    double now() const { return double(m_state.time()) / 1000; }
    void toggle(const QString &name);
    void draw();
    void followPalette();

    const CarState &m_state;
    QChart *m_chart = new QChart;
    QValueAxis *m_times = new QValueAxis;
    QValueAxis *m_values = new QValueAxis;
    QTimer m_drawing;
    std::deque<Course> m_courses;
};

FieldPlot::FieldPlot(const mcusim::Catalogue &names, const CarState &state) : m_state(state)
{
    m_chart->setMargins({});
    m_chart->layout()->setContentsMargins(0, 0, 0, 0);
    m_chart->addAxis(m_times, Qt::AlignBottom);
    m_chart->addAxis(m_values, Qt::AlignLeft);
    m_times->setLabelFormat("%.0f s");
    m_times->setTickCount(ticks + 1);
    m_values->setLabelFormat("%.0f");
    followPalette();
    auto *view = new QChartView(m_chart);
    view->setFocusPolicy(Qt::NoFocus);
    view->setAccessibleName("Plot");
    view->setRenderHint(QPainter::Antialiasing);

    auto *chooser = new QComboBox;
    chooser->setAccessibleName("Add a field to the plot, or remove it");
    for (const mcusim::Signature &signal : names.all()) {
        if (!signal.record)
            continue;
        for (const mcu::Field &field : signal.record->fields) {
            if (!field.isGap())
                chooser->addItem(signal.name + '/' + field.name);
        }
    }
    chooser->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    chooser->setEditable(true);
    chooser->setInsertPolicy(QComboBox::NoInsert);
    chooser->completer()->setFilterMode(Qt::MatchContains);
    chooser->completer()->setCompletionMode(QCompleter::PopupCompletion);
    chooser->lineEdit()->setPlaceholderText("A field to add to the plot, or to remove");
    chooser->setCurrentIndex(-1);
    connect(chooser, qOverload<int>(&QComboBox::activated), this, [this, chooser](int index) {
        toggle(chooser->itemText(index));
        chooser->setCurrentIndex(-1);
    });
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(view, 1);
    column->addWidget(chooser);

    m_drawing.setSingleShot(true);
    connect(&m_drawing, &QTimer::timeout, this, &FieldPlot::draw);
    toggle("McuService.syncVehicleSpeedInforUpdate/vehicle_speed");
    toggle("McuService.syncTpmsInforUpdate/FLTirePres");
    draw();
}

void FieldPlot::toggle(const QString &name)
{
    const auto known = std::find_if(m_courses.begin(), m_courses.end(),
                                    [&name](const Course &course) { return course.name == name; });
    if (known != m_courses.end()) {
        delete known->line;
        m_courses.erase(known);
        return;
    }
    auto *line = new QLineSeries;
    line->setName(name.section('/', -1));
    m_chart->addSeries(line);
    line->attachAxis(m_times);
    line->attachAxis(m_values);
    m_courses.push_back({name, line, {}});
    sample();
}

void FieldPlot::sample()
{
    for (Course &course : m_courses) {
        const std::optional<int> value = m_state.number(course.name);
        if (!value)
            continue;
        if (course.steps.empty() || now() >= course.steps.back().time + interval)
            course.steps.push_back({now(), *value, *value, *value});
        Course::Step &step = course.steps.back();
        step = {step.time, std::min(step.least, *value), std::max(step.greatest, *value), *value};
        while (course.steps.front().time < now() - shownTime)
            course.steps.pop_front();
    }
    if (!m_drawing.isActive())
        m_drawing.start(int(interval * 1000));
}

void FieldPlot::draw()
{
    int least = 0;
    int greatest = 1;
    for (const Course &course : m_courses) {
        QVector<QPointF> points;
        for (const Course::Step &step : course.steps) {
            if (!points.isEmpty())
                points.append({step.time, points.last().y()});
            for (const int value : {step.least, step.greatest, step.last})
                points.append({step.time, double(value)});
            least = std::min(least, step.least);
            greatest = std::max(greatest, step.greatest);
        }
        if (!points.isEmpty())
            points.append({now(), points.last().y()});
        course.line->replace(points);
    }
    const double end = std::max(std::ceil(now() / ticks), 1.0) * ticks;
    m_times->setRange(std::max(0.0, end - shownTime), end);
    m_values->setRange(least, greatest);
    m_values->applyNiceNumbers();
}

void FieldPlot::followPalette()
{
    const QColor ground = palette().color(QPalette::Window);
    m_chart->setTheme(ground.lightness() < 128 ? QChart::ChartThemeDark : QChart::ChartThemeLight);
    m_chart->setBackgroundBrush(ground);
    m_chart->setBackgroundRoundness(0);
    QFont small = font();
    small.setPixelSize(11);
    m_chart->legend()->setFont(small);
    m_times->setLabelsFont(small);
    m_values->setLabelsFont(small);
}

} // namespace

Plot *makePlot(const mcusim::Catalogue &names, const CarState &state)
{
    return new FieldPlot(names, state);
}

} // namespace mcupanel
