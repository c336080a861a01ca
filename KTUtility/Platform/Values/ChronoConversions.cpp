// Lengths of time (std::chrono::duration) and numbers of seconds, as variants convert them: the
// formatter of durations reads seconds, records may keep minutes.

#include "NSDecimalNumber.h"

#include <QMetaType>

#include <chrono>
#include <limits>
#include <optional>

namespace {
template<typename Period>
NSDecimalNumber decimalOf()
{
    return NSDecimalNumber(Period::num) / NSDecimalNumber(Period::den);
}

template<typename Duration>
NSDecimalNumber secondsOf(const Duration &duration)
{
    return NSDecimalNumber(duration.count()) * decimalOf<typename Duration::period>();
}

/// Without the fraction that the duration cannot hold; nothing if there are too many seconds.
template<typename Duration>
std::optional<Duration> durationOf(const NSDecimalNumber &seconds)
{
    using Count = std::numeric_limits<typename Duration::rep>;
    if (seconds.isNaN())
        return std::nullopt;
    const NSDecimalNumber count = seconds / decimalOf<typename Duration::period>();
    if (count < NSDecimalNumber(Count::min()) || count > NSDecimalNumber(Count::max()))
        return std::nullopt;
    return Duration(typename Duration::rep(count.integerValue()));
}

template<typename From, typename To, typename Convert>
bool add(const Convert &convert)
{
    const auto converter = [convert](const void *from, void *to) {
        const std::optional<To> result = convert(*static_cast<const From *>(from));
        if (result)
            *static_cast<To *>(to) = *result;
        return result.has_value();
    };
    return QMetaType::registerConverterFunction(converter, QMetaType::fromType<From>(),
                                                QMetaType::fromType<To>());
}

template<typename Duration, typename Number>
bool addNumber()
{
    const auto toNumber = [](const Duration &duration) -> std::optional<Number> {
        const QVariant seconds = QVariant::fromValue(secondsOf(duration));
        QVariant number = seconds;
        return number.convert(QMetaType::fromType<Number>()) ? std::optional(number.value<Number>())
                                                             : std::nullopt;
    };
    const auto toDuration = [](const Number &number) {
        return durationOf<Duration>(NSDecimalNumber(number));
    };
    return add<Duration, Number>(toNumber) && add<Number, Duration>(toDuration);
}

template<typename Duration>
bool addDuration()
{
    const auto toDecimal = [](const Duration &duration) {
        return std::optional(secondsOf(duration));
    };
    return add<Duration, NSDecimalNumber>(toDecimal) &&
           add<NSDecimalNumber, Duration>(durationOf<Duration>) && addNumber<Duration, int>() &&
           addNumber<Duration, qlonglong>() && addNumber<Duration, double>();
}

template<typename... Durations>
bool addDurations()
{
    return (addDuration<Durations>() && ...);
}

using namespace std::chrono;

[[maybe_unused]] const bool AreKnown =
    addDurations<nanoseconds, microseconds, milliseconds, seconds, minutes, hours>();
} // namespace
