#pragma once

#include <QString>

namespace IsolatedText {
/// A text as it is shown beside others: in windows that are written from the right, one that is
/// written from the left keeps its order, and the full stop stands at its end. In other windows, the
/// text as it is.
QString of(const QString &text);
} // namespace IsolatedText
