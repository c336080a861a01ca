#pragma once

#include "support/EnvironmentGuard.h"

#include <QtGlobal>

#include <ctime>

namespace testing_support {
/// The C library in another zone, as long as the object lives.
class LibcZone
{
public:
    explicit LibcZone(const QByteArray &variable) : _guard("TZ", variable) { ::tzset(); }
    /// Nothing of it is left for the tests behind.
    ~LibcZone() = default;
    LibcZone(LibcZone &&) = delete;

    /// How far the zone is from UTC at a time in seconds since 1970, in seconds.
    static qint64 offsetAt(qint64 seconds)
    {
        const time_t time = seconds;
        struct tm fields = {};
        ::localtime_r(&time, &fields);
        return fields.tm_gmtoff;
    }

private:
    /// The zone of the program comes back after the variable has.
    struct Reset
    {
        ~Reset() { ::tzset(); }
    };

    Reset _reset;
    EnvironmentGuard _guard;
};
} // namespace testing_support
