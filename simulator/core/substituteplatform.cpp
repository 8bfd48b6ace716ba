#include "substituteplatform.h"

#include "linksubstitute.h"
#include "platformsubstitute.h"

namespace mcusim {

namespace {

namespace link = substitute::link;
namespace platform = substitute::platform;

constexpr int Int = QMetaType::Int;
constexpr int Bool = QMetaType::Bool;
constexpr int Text = QMetaType::QString;
constexpr int Any = QMetaType::QVariant;
constexpr int Ints = QMetaType::QVariantList;

} // namespace

QVector<Platform::Entry> SubstitutePlatform::settings() const
{
    QVector<Entry> entries;
    const QStringList queries = link::queries();
    for (const QString &query : queries) {
        entries.append({query,
                        {{link::answer(query).userType(), "answer"}},
                        [query](const QVariantList &v) { link::setAnswer(query, v[0]); }});
    }
    const auto add = [&entries](const char *name, QVector<Parameter> parameters, auto set) {
        entries.append({QString(name), std::move(parameters), set});
    };
    using Values = const QVariantList &;
    add("forceTime", {{Bool, "force"}}, [](Values v) { platform::setForceTime(v[0].toBool()); });
    add("mcu_upgrade_status", {{Bool, "upgrading"}},
        [](Values v) { platform::setSetting("mcu_upgrade_status", v[0].toBool()); });
    add("audioEvents", {{Ints, "events"}}, [](Values v) {
        QList<int> events;
        const QVariantList given = v[0].toList();
        for (const QVariant &event : given)
            events.append(event.toInt());
        platform::setAudioEvents(events);
    });
    add("mainAudioMuted", {{Bool, "muted"}},
        [](Values v) { platform::setMainAudioMuted(v[0].toBool()); });
    add("attenuated", {{Bool, "attenuated"}},
        [](Values v) { platform::setAttenuated(v[0].toBool()); });
    add("panelKey", {{Int, "key"}, {Int, "state"}, {Int, "kind"}},
        [](Values v) { platform::pressPanelKey(v[0].toInt(), v[1].toInt(), v[2].toInt()); });
    add("currentDisplay", {{Int, "display"}},
        [](Values v) { platform::setCurrentDisplay(v[0].toInt()); });
    return entries;
}

QVector<Platform::Entry> SubstitutePlatform::calls() const
{
    return {
        {"AudioService.Att20DB", {{Bool, "on"}}, {}},
        {"AudioService.setMainAudioMute", {{Bool, "on"}}, {}},
        {"DateTimeManager.setDateTime",
         {{Int, "year"},
          {Int, "month"},
          {Int, "day"},
          {Int, "hour"},
          {Int, "minute"},
          {Int, "second"},
          {Bool, "flag"}},
         {}},
        {"EventHandler.onEvent", {{Int, "event"}}, {}},
        {"TunerControl.HDR_DabRequestScan", {}, {}},
        {"TunerControl.HDR_DabTunerFM", {{Int, "index"}}, {}},
        {"SettingsUtil.SubwooferOnOff", {{Int, "value"}}, {}},
        {"SettingsUtil.CrossoverType", {{Int, "value"}}, {}},
        {"SettingsUtil.HpfLpfOnOff", {{Int, "type"}, {Int, "value"}}, {}},
        {"SettingsUtil.DemoOnOff", {{Bool, "value"}}, {}},
        {"SettingsExe.setOtherPathValue",
         {{Text, "key"}, {Text, "file"}, {Any, "value"}, {Any, "value2"}, {Bool, "flag"}},
         {}},
    };
}

void SubstitutePlatform::listen(Listener listener)
{
    const auto hear = [&listener](substitute::CallLog &log, Kind kind) {
        log.setListener(listener ? [listener, kind, &log](const substitute::Call &call) {
            log.clear(); // a run of any length takes the memory of one call
            listener(kind, call.name, call.arguments);
        } : std::function<void(const substitute::Call &)>());
    };
    hear(link::log(), Kind::Command);
    hear(platform::log(), Kind::Platform);
}

void SubstitutePlatform::report(const QMetaMethod &signal, QVariantList values)
{
    if (m_reports == Reports::MainThread)
        return Platform::report(signal, std::move(values));
    link::inject(QString::fromLatin1(signal.name()), values, nullptr,
                 substitute::Emitter::ReaderThread);
    link::drainReaderThread();
}

} // namespace mcusim
