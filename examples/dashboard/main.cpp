// A small dashboard in the terminal: a line for each change of speed, gear, climate and volume. It
// lowers the volume while the reverse gear is in. On standard input, + and - change the volume and
// q ends the program.
#include <mcuservice.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QMap>
#include <QSocketNotifier>

#include <cstdio>

#include <unistd.h>

using mcu::McuService;

namespace {

constexpr int on = 2; // as the MCU reports its lines

class Dashboard : public QObject {
public:
    Dashboard()
    {
        connect(m_service, &McuService::syncSpeedUpdate, this,
                [this](int speed) { show("speed", QString::number(speed) + " km/h"); });
        connect(m_service, &McuService::reverseChanged, this, &Dashboard::changeGear);
        connect(m_service, &McuService::syncACInforUpdate, this, &Dashboard::showClimate);
        connect(m_service, qOverload<int, int, int>(&McuService::audioVolumeChanged), this,
                &Dashboard::showVolume);
        connect(&m_keyboard, &QSocketNotifier::activated, this, &Dashboard::readKeys);
        m_service->init(); // last, so that no report is missed
    }

private:
    /// Shows a value if it differs from the one shown last.
    void show(const QString &what, const QString &text)
    {
        if (m_shown.value(what) == text)
            return;
        m_shown[what] = text;
        std::printf("%-8s %s\n", qUtf8Printable(what), qUtf8Printable(text));
        std::fflush(stdout);
    }

    void changeGear(int reverse)
    {
        const bool wasReverse = m_shown.value("gear") == "reverse";
        const bool isReverse = reverse == on;
        show("gear", isReverse ? "reverse" : "forward");
        if (isReverse && !wasReverse) {
            m_volumeBefore = m_volume;
            m_service->SetVolume(m_volume / 2);
        } else if (wasReverse && !isReverse) {
            m_service->SetVolume(m_volumeBefore);
        }
    }

    // docs/vehicle-records.md has the places of the fields.
    void showClimate(const QByteArray &record)
    {
        constexpr int level = 2;
        constexpr int blower = 6;
        show("climate", QString("level %1, blower %2")
                            .arg(quint8(record.at(level)))
                            .arg(quint8(record.at(blower))));
    }

    void showVolume(int muteState, int level, int)
    {
        m_volume = level;
        show("volume", muteState == 1 ? QString("muted") : QString::number(level));
    }

    void readKeys()
    {
        char keys[64];
        const ssize_t count = read(STDIN_FILENO, keys, sizeof keys);
        if (count <= 0)
            m_keyboard.setEnabled(false); // nobody is there
        for (ssize_t i = 0; i < count; ++i) {
            if (keys[i] == '+')
                m_service->volumePlus();
            else if (keys[i] == '-')
                m_service->volumeMinus();
            else if (keys[i] == 'q')
                QCoreApplication::quit();
        }
    }

    McuService *m_service = McuService::instance();
    QSocketNotifier m_keyboard{STDIN_FILENO, QSocketNotifier::Read};
    QMap<QString, QString> m_shown;
    int m_volume = 0;
    int m_volumeBefore = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules("default.debug=false"); // no log lines of the library
    const Dashboard dashboard;
    return QCoreApplication::exec();
}
