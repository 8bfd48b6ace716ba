// Makes the entries of the table of operations: the types that a scenario writes come from those of
// the member function.
#pragma once

#include "operations.h"

#include <array>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace mcusim {

/// How an argument type looks in a scenario; enumerations and bytes are written as numbers.
template <typename Argument>
struct Written {
    using Type =
        std::conditional_t<std::is_enum_v<Argument> || std::is_same_v<Argument, unsigned char>, int,
                           Argument>;
    static constexpr int length = 0;
    static Argument from(const QVariant &value) { return Argument(value.value<Type>()); }
};

template <>
struct Written<std::string> {
    using Type = QString;
    static constexpr int length = 0;
    static std::string from(const QVariant &value) { return value.toString().toStdString(); }
};

/// A pointer to five ints, as the audio delays are given.
template <>
struct Written<int *> {
    using Type = QVariantList;
    static constexpr int length = 5;

    struct Five {
        std::array<int, length> values{};
        operator int *() { return values.data(); }
    };
    static Five from(const QVariant &value)
    {
        Five five;
        const QVariantList list = value.toList();
        for (int i = 0; i < length; ++i)
            five.values[std::size_t(i)] = list.value(i).toInt();
        return five;
    }
};

template <typename Argument>
using WrittenAs = Written<std::remove_cv_t<std::remove_reference_t<Argument>>>;

/// How many names a text such as "mute, type" has.
constexpr int countNames(const char *names)
{
    int count = *names == '\0' ? 0 : 1;
    for (; *names != '\0'; ++names)
        count += *names == ',' ? 1 : 0;
    return count;
}

template <typename Object, typename Result, typename... Arguments, typename Method,
          std::size_t... I>
Operation makeOperation(const char *name, Method method, const char *names,
                        std::index_sequence<I...>)
{
    const auto call = [method](QObject *object, const QVariantList &arguments) {
        Q_UNUSED(arguments)
        auto *target = object ? static_cast<Object *>(object) : Object::instance();
        // Kept here for the operations that take a reference or a pointer.
        std::tuple values{WrittenAs<Arguments>::from(arguments[int(I)])...};
        Q_UNUSED(values)
        const auto run = [&] { return (target->*method)(std::get<I>(values)...); };
        if constexpr (std::is_void_v<Result>) {
            run();
            return QVariant();
        } else {
            return QVariant::fromValue<typename WrittenAs<Result>::Type>(run());
        }
    };
    const QStringList given = QString::fromLatin1(names).split(QStringLiteral(", "));
    const QString className = QString::fromLatin1(Object::staticMetaObject.className());
    return {className.section(QStringLiteral("::"), -1) + '.' + name,
            {{qMetaTypeId<typename WrittenAs<Arguments>::Type>(), given[int(I)],
              WrittenAs<Arguments>::length}...},
            qMetaTypeId<typename WrittenAs<Result>::Type>(),
            call};
}

/// An operation of a class, with as many names as it has parameters.
template <int Names, typename Object, typename Result, typename... Arguments>
Operation operation(const char *name, Result (Object::*method)(Arguments...), const char *names)
{
    static_assert(Names == sizeof...(Arguments), "a name for each parameter");
    return makeOperation<Object, Result, Arguments...>(name, method, names,
                                                       std::index_sequence_for<Arguments...>());
}

template <int Names, typename Object, typename Result>
Operation operation(const char *name, Result (Object::*method)() const, const char *names)
{
    static_assert(Names == 0, "a name for each parameter");
    return makeOperation<Object, Result>(name, method, names, std::index_sequence<>());
}

/// One of several operations of a name, by the types of its result and its parameters.
template <typename Object, typename Result, typename... Arguments>
Operation overload(const char *name, Result (Object::*method)(Arguments...), const char *names)
{
    return operation<sizeof...(Arguments)>(name, method, names);
}

/// What applications call on the class named Object: the operation and the names of its parameters.
#define CALL(name, names) mcusim::operation<mcusim::countNames(names)>(#name, &Object::name, names)

} // namespace mcusim
