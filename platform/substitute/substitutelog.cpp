// The log of the calls that the substitute platform classes receive.
#include "substitutelog.h"

#include <utility>

namespace substitute {

void CallLog::append(const QString &name, const QVariantList &arguments)
{
    const Call call{name, arguments};
    {
        const std::lock_guard lock(m_mutex);
        m_calls.append(call);
    }
    if (m_listener)
        m_listener(call);
}

QList<Call> CallLog::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_calls, {});
}

void CallLog::setListener(std::function<void(const Call &)> listener)
{
    m_listener = std::move(listener);
}

} // namespace substitute
