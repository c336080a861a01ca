#include "NSCollections.h"

namespace {
// A set that travels as a variant is a collection to everybody who asks for a list.
[[maybe_unused]] const bool SetsConvertToLists =
    QMetaType::registerConverter<NSSet, QVariantList>(&NSSet::allObjects);
} // namespace
