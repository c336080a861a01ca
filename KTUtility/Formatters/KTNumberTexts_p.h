#pragma once

#include <QString>

#include <utility>

// What the formatters of numbers and of money have in common.

namespace KTNumberTexts {
/// Shows every decimal place that a number has.
inline constexpr int AllFractionDigits = 100;

/// Formatters answer nil, not an empty text.
inline QString nilIfEmpty(QString &&text)
{
    return text.isEmpty() ? QString() : std::move(text);
}
} // namespace KTNumberTexts
