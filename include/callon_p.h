// The null-checked call that all forwarders use.
#pragma once

#include <type_traits>
#include <utility>

namespace mcu {

/// Calls the operation on the target and returns its result. Without a target does nothing and
/// returns a default value (0, false, empty).
template <typename Target, typename Operation, typename... Arguments>
auto callOn(Target *target, Operation operation, Arguments &&...arguments)
{
    using Result = std::invoke_result_t<Operation, Target *, Arguments...>;
    if (!target)
        return Result();
    return (target->*operation)(std::forward<Arguments>(arguments)...);
}

} // namespace mcu
