// How the table of operations is made: the types of a member function, taken from the function
// itself, turn into what a scenario writes.
#pragma once

#include "operations.h"

#include <array>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace mcusim {

/// How an argument type looks in a scenario; enumerations are written as numbers.
template <typename Argument>
struct Written {
    using Type = std::conditional_t<std::is_enum_v<Argument>, int, Argument>;
    static constexpr int length = 0;
    static Argument from(const QVariant &value) { return Argument(value.value<Type>()); }
};

template <>
struct Written<unsigned char> {
    using Type = int;
    static constexpr int length = 0;
    static unsigned char from(const QVariant &value)
    {
        return static_cast<unsigned char>(value.toInt());
    }
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

template <typename Result>
int resultType()
{
    if constexpr (std::is_void_v<Result>)
        return QMetaType::Void;
    else
        return qMetaTypeId<typename WrittenAs<Result>::Type>();
}

template <typename Object, typename Method, typename Result, typename... Arguments,
          std::size_t... I>
Operation makeOperation(const char *className, const char *name, Method method,
                        const char *const *names, std::index_sequence<I...>)
{
    Q_UNUSED(names)
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
    QVector<Parameter> parameters{{qMetaTypeId<typename WrittenAs<Arguments>::Type>(),
                                   QString::fromLatin1(names[I]), WrittenAs<Arguments>::length}...};
    return {QStringLiteral("%1.%2").arg(QLatin1String(className), QLatin1String(name)), parameters,
            resultType<Result>(), call};
}

/// Collects the operations of one class.
template <typename Object>
class Class {
public:
    Class(const char *name, QVector<Operation> &table) : m_name(name), m_table(table) {}

    template <typename Result, typename... Arguments, std::size_t N>
    Class &operator()(const char *name, Result (Object::*method)(Arguments...),
                      const char *const (&names)[N])
    {
        static_assert(N == sizeof...(Arguments), "a name for each parameter");
        m_table.append(makeOperation<Object, decltype(method), Result, Arguments...>(
            m_name, name, method, names, std::index_sequence_for<Arguments...>()));
        return *this;
    }

    template <typename Result>
    Class &operator()(const char *name, Result (Object::*method)())
    {
        m_table.append(makeOperation<Object, decltype(method), Result>(
            m_name, name, method, nullptr, std::index_sequence<>()));
        return *this;
    }

    template <typename Result>
    Class &operator()(const char *name, Result (Object::*method)() const)
    {
        m_table.append(makeOperation<Object, decltype(method), Result>(
            m_name, name, method, nullptr, std::index_sequence<>()));
        return *this;
    }

private:
    const char *m_name;
    QVector<Operation> &m_table;
};

} // namespace mcusim
