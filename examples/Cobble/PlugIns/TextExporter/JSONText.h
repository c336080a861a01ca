#pragma once

#include <QString>
#include <QVariant>

namespace JSONText {
/// A value as JSON (RFC 8259): numbers with all their digits, dates as texts of ISO 8601, null for
/// nil, texts for everything else. Lone surrogates are escaped.
QString of(const QVariant &value);
} // namespace JSONText
