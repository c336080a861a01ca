#pragma once

#include <QtGlobal>

/// Marks what libKTUtility exports; everything else in it is hidden.
#if defined(KTUTILITY_BUILDING_LIBRARY)
#define KTUTILITY_EXPORT Q_DECL_EXPORT
#else
#define KTUTILITY_EXPORT Q_DECL_IMPORT
#endif
