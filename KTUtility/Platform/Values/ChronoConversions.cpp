#include "ChronoConversions_p.h"

#include "NSDecimalNumber.h"
#include "ValueConverter_p.h"

#include <QMetaType>

#include <chrono>
#include <limits>
#include <optional>

using namespace KTPrivate;

namespace {
/// All digits, whatever the thread's own behaviour rounds and raises.
const NSDecimalNumberHandler &exactNumbers()
{
    static const NSDecimalNumberHandler handler(NSRoundPlain, NSDecimalNoScale, false, false, false,
                                                false);
    return handler;
}

template<typename Period>
NSDecimalNumber secondsIn()
{
    return NSDecimalNumber(Period::num)
        .decimalNumberByDividingBy(NSDecimalNumber(Period::den), &exactNumbers());
}

template<typename Duration>
NSDecimalNumber decimalSecondsOf(const Duration &duration)
{
    return NSDecimalNumber(duration.count())
        .decimalNumberByMultiplyingBy(secondsIn<typename Duration::period>(), &exactNumbers());
}

/// Without the fraction that the duration cannot hold; nothing if there are too many seconds.
template<typename Duration>
std::optional<Duration> durationOf(const NSDecimalNumber &seconds)
{
    using Count = std::numeric_limits<typename Duration::rep>;
    if (seconds.isNaN())
        return std::nullopt;
    const NSDecimalNumber count =
        seconds.decimalNumberByDividingBy(secondsIn<typename Duration::period>(), &exactNumbers());
    if (count.isNaN() || count < NSDecimalNumber(Count::min()) ||
        count > NSDecimalNumber(Count::max()))
        return std::nullopt;
    return Duration(typename Duration::rep(count.integerValue()));
}

template<typename Duration, typename Number>
bool addNumber()
{
    const auto toNumber = [](const Duration &duration) -> std::optional<Number> {
        const QVariant seconds = QVariant::fromValue(decimalSecondsOf(duration));
        QVariant number = seconds;
        return number.convert(QMetaType::fromType<Number>()) ? std::optional(number.value<Number>())
                                                             : std::nullopt;
    };
    const auto toDuration = [](const Number &number) {
        return durationOf<Duration>(NSDecimalNumber(number));
    };
    return addConverter<Duration, Number>(toNumber) && addConverter<Number, Duration>(toDuration);
}

template<typename Duration>
bool addDuration()
{
    const auto toDecimal = [](const Duration &duration) {
        return std::optional(decimalSecondsOf(duration));
    };
    return addConverter<Duration, NSDecimalNumber>(toDecimal) &&
           addConverter<NSDecimalNumber, Duration>(durationOf<Duration>) &&
           addNumber<Duration, int>() && addNumber<Duration, qlonglong>() &&
           addNumber<Duration, double>();
}

/// The lengths of time that convert.
template<typename... Each>
struct Lengths
{
    static bool add() { return (addDuration<Each>() && ...); }
    static bool has(QMetaType type) { return ((type == QMetaType::fromType<Each>()) || ...); }
};

using StandardLengths =
    Lengths<std::chrono::nanoseconds, std::chrono::microseconds, std::chrono::milliseconds,
            std::chrono::seconds, std::chrono::minutes, std::chrono::hours>;

[[maybe_unused]] const bool LengthsOfTimeConvert = KTPrivate::addChronoConversions();
} // namespace

bool KTPrivate::addChronoConversions()
{
    return StandardLengths::add();
}

bool KTPrivate::isLengthOfTime(const QVariant &value)
{
    return StandardLengths::has(value.metaType());
}
