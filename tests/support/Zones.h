#pragma once

#include <QTimeZone>

namespace testing_support {
inline QTimeZone newYork()
{
    return QTimeZone("America/New_York");
}
} // namespace testing_support
