#pragma once

/// Where digits that are not shown go. A tie is what lies exactly between two candidates.
enum NSNumberFormatterRoundingMode {
    NSNumberFormatterRoundCeiling = 0,  ///< towards positive infinity
    NSNumberFormatterRoundFloor = 1,    ///< towards negative infinity
    NSNumberFormatterRoundDown = 2,     ///< towards zero
    NSNumberFormatterRoundUp = 3,       ///< away from zero
    NSNumberFormatterRoundHalfEven = 4, ///< ties to the even digit; the default
    NSNumberFormatterRoundHalfDown = 5, ///< ties towards zero
    NSNumberFormatterRoundHalfUp = 6    ///< ties away from zero
};
