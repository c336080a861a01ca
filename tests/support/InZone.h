#pragma once

#include "support/LibcZone.h"

#include <KTUtility/NSCalendar>

namespace testing_support {
/// The machine in another zone, as long as the object lives.
class InZone
{
public:
    explicit InZone(const QByteArray &variable) : _zone(variable)
    {
        NSCalendar::resetSystemTimeZone();
    }
    ~InZone() = default;
    InZone(InZone &&) = delete;

private:
    /// Asks again when the variable is back.
    struct Reset
    {
        ~Reset() { NSCalendar::resetSystemTimeZone(); }
    };

    Reset _reset;
    LibcZone _zone;
};
} // namespace testing_support
