#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

/// Patterns of numbers: one for all, or one for positive and one for negative numbers.
namespace KTPrivate::NumberPattern {
/// Whether a pattern is short enough to be a person's.
KTUTILITY_EXPORT bool isAcceptable(const QString &pattern);

/// The parts between the ";" of a pattern; at least one.
KTUTILITY_EXPORT QStringList partsOf(const QString &pattern);
} // namespace KTPrivate::NumberPattern
