// How forwarders reach what they stand in front of: one guarded call for all of them.
#pragma once

#include <type_traits>
#include <utility>

namespace mcu {

/// Calls the operation on the target and gives its result; without a target does nothing and gives
/// a neutral value (0, false, empty).
template <typename Target, typename Operation, typename... Arguments>
auto callOn(Target *target, Operation operation, Arguments &&...arguments)
{
    using Result = std::invoke_result_t<Operation, Target *, Arguments...>;
    if (!target)
        return Result();
    return (target->*operation)(std::forward<Arguments>(arguments)...);
}

} // namespace mcu
