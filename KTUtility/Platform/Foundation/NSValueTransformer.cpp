#include "NSValueTransformer.h"

NSValueTransformer::~NSValueTransformer() = default;

QVariant NSValueTransformer::reverseTransformedValue(const QVariant &) const
{
    return {};
}
