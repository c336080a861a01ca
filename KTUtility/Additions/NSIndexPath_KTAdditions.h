#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSIndexPath.h>

/// Paths into a tree that becomes a branch of a larger one.
///
/// \code
/// const NSIndexPath inSection{4, 1};
/// KTAdditions::indexPathByPrependingIndex(inSection, 2);    // {2, 4, 1}
/// \endcode
namespace KTAdditions {
/// The path that begins with \a index and goes on with all of \a receiver.
KTUTILITY_EXPORT NSIndexPath indexPathByPrependingIndex(const NSIndexPath &receiver,
                                                        unsigned index);
} // namespace KTAdditions
