// A chart is slow to draw. So values are put together in steps of a quarter of a second, of which
// the least and the greatest value is kept, and the chart is drawn once in each.
#include "plot.h"

#include "recordcatalog_p.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QCompleter>
#include <QGraphicsLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLineSeries>
#include <QPushButton>
#include <QTimer>
#include <QValueAxis>

#include <cmath>
#include <deque>

namespace mcupanel {

namespace {

constexpr qint64 interval = 250;
constexpr qint64 shownTime = 180'000;
constexpr int mostFields = 6;
constexpr int ticks = 6; ///< of time, at whole seconds

struct Step {
    qint64 time;
    int least;
    int greatest;
    int last;
};

/// A field that is shown.
struct Course {
    QString name;
    QtCharts::QLineSeries *line;
    std::deque<Step> steps;
};

class FieldPlot : public Plot {
public:
    FieldPlot(const mcusim::Catalogue &names, const CarState &state);

    void sample() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void add(const QString &name);
    void remove(std::size_t index);
    void draw();
    void followPalette();

    const CarState &m_state;
    QtCharts::QChart *m_chart = new QtCharts::QChart;
    QtCharts::QValueAxis *m_times = new QtCharts::QValueAxis;
    QtCharts::QValueAxis *m_values = new QtCharts::QValueAxis;
    QTimer m_drawing;
    std::deque<Course> m_courses;
};

FieldPlot::FieldPlot(const mcusim::Catalogue &names, const CarState &state) : m_state(state)
{
    m_chart->setMargins({});
    m_chart->layout()->setContentsMargins(0, 0, 0, 0);
    m_chart->addAxis(m_times, Qt::AlignBottom);
    m_chart->addAxis(m_values, Qt::AlignLeft);
    m_chart->legend()->setAlignment(Qt::AlignTop);
    m_times->setLabelFormat("%.0f s");
    m_times->setTickCount(ticks + 1);
    m_values->setLabelFormat("%.0f");

    auto *chooser = new QComboBox;
    chooser->setObjectName("Plotted field");
    chooser->setAccessibleName("Add a field to the plot");
    for (const mcusim::Signature &signal : names.all()) {
        if (!signal.record)
            continue;
        for (const mcu::Field &field : signal.record->fields) {
            if (!field.isGap())
                chooser->addItem(signal.name + '/' + field.name);
        }
    }
    chooser->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    chooser->setMinimumContentsLength(20);
    chooser->setEditable(true);
    chooser->setInsertPolicy(QComboBox::NoInsert);
    chooser->completer()->setFilterMode(Qt::MatchContains);
    chooser->completer()->setCompletionMode(QCompleter::PopupCompletion);
    chooser->setCurrentIndex(-1);
    chooser->lineEdit()->setPlaceholderText("Add a field of a record to the plot");
    connect(chooser, qOverload<int>(&QComboBox::activated), this, [this, chooser](int index) {
        add(chooser->itemText(index));
        chooser->setCurrentIndex(-1);
    });
    auto *clear = new QPushButton("Clear plot (&Z)");
    clear->setAutoDefault(false);
    connect(clear, &QPushButton::clicked, this, [this] {
        while (!m_courses.empty())
            remove(0);
    });
    auto *view = new QtCharts::QChartView(m_chart);
    view->setFocusPolicy(Qt::NoFocus);
    view->setAccessibleName("Plot");
    view->setRenderHint(QPainter::Antialiasing);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(view, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(chooser, 1);
    row->addWidget(clear);
    column->addLayout(row);

    m_drawing.setSingleShot(true);
    m_drawing.setInterval(int(interval));
    connect(&m_drawing, &QTimer::timeout, this, &FieldPlot::draw);
    add("McuService.syncVehicleSpeedInforUpdate/vehicle_speed");
    add("McuService.syncTpmsInforUpdate/FLTirePres");
    followPalette();
    draw();
}

void FieldPlot::add(const QString &name)
{
    for (const Course &course : m_courses) {
        if (course.name == name)
            return;
    }
    if (m_courses.size() == mostFields)
        remove(0);
    auto *line = new QtCharts::QLineSeries;
    line->setName(name.section('/', -1));
    m_chart->addSeries(line);
    line->attachAxis(m_times);
    line->attachAxis(m_values);
    m_courses.push_back({name, line, {}});
    sample();
}

void FieldPlot::remove(std::size_t index)
{
    m_chart->removeSeries(m_courses[index].line);
    delete m_courses[index].line;
    m_courses.erase(m_courses.begin() + std::ptrdiff_t(index));
}

void FieldPlot::sample()
{
    const qint64 now = m_state.time();
    for (Course &course : m_courses) {
        const std::optional<int> value = m_state.number(course.name);
        if (!value)
            continue;
        if (course.steps.empty() || now - course.steps.back().time >= interval)
            course.steps.push_back({now, *value, *value, *value});
        Step &last = course.steps.back();
        last.least = std::min(last.least, *value);
        last.greatest = std::max(last.greatest, *value);
        last.last = *value;
        while (course.steps.front().time < now - shownTime)
            course.steps.pop_front();
    }
    if (!m_drawing.isActive())
        m_drawing.start();
}

void FieldPlot::draw()
{
    constexpr double second = 1000;
    const double now = double(m_state.time()) / second;
    int least = 0;
    int greatest = 1;
    for (const Course &course : m_courses) {
        QVector<QPointF> points;
        for (const Step &step : course.steps) {
            const double time = double(step.time) / second;
            if (!points.isEmpty())
                points.append({time, points.last().y()});
            for (const int value : {step.least, step.greatest, step.last}) {
                if (points.isEmpty() || points.last() != QPointF(time, value))
                    points.append({time, double(value)});
            }
            least = std::min(least, step.least);
            greatest = std::max(greatest, step.greatest);
        }
        if (!points.isEmpty())
            points.append({now, points.last().y()});
        course.line->replace(points);
    }
    const double end = std::max(std::ceil(now / ticks), 1.0) * ticks;
    m_times->setRange(std::max(0.0, end - shownTime / second), end);
    m_values->setRange(least, greatest);
    m_values->applyNiceNumbers();
}

void FieldPlot::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        followPalette();
    Plot::changeEvent(event);
}

void FieldPlot::followPalette()
{
    const QColor ground = palette().color(QPalette::Window);
    m_chart->setTheme(ground.lightness() < 128 ? QtCharts::QChart::ChartThemeDark
                                               : QtCharts::QChart::ChartThemeLight);
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
