#pragma once

/// The version of the headers that a program is compiled with. Before 1.0, programs are built anew
/// for each minor version: classes may change their size.
///
/// \code
/// #include <KTUtility/KTUtilityVersion>
///
/// #if KTUTILITY_VERSION < KTUTILITY_VERSION_CHECK(0, 2, 0)
/// // what a newer framework does by itself
/// #endif
/// \endcode
#define KTUTILITY_VERSION_MAJOR 0
#define KTUTILITY_VERSION_MINOR 1
#define KTUTILITY_VERSION_PATCH 0
#define KTUTILITY_VERSION_STRING "0.1.0"

/// A version as one number that grows with it.
#define KTUTILITY_VERSION_CHECK(major, minor, patch) (((major) << 16) | ((minor) << 8) | (patch))
#define KTUTILITY_VERSION                                                                          \
    KTUTILITY_VERSION_CHECK(KTUTILITY_VERSION_MAJOR, KTUTILITY_VERSION_MINOR,                      \
                            KTUTILITY_VERSION_PATCH)
