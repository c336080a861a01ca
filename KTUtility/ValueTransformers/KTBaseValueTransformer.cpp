#include "KTBaseValueTransformer.h"

#include <KTUtility/Platform/Values/NSObject.h>

namespace {
QVariant moved(const QVariant &value, bool isUp)
{
    if (NSObject::isNil(value))
        return {};
    const auto number = quint32(NSObject::integerValue(value));
    return isUp ? number + 1 : number - 1;
}
} // namespace

std::shared_ptr<KTBaseValueTransformer> KTBaseValueTransformer::valueTransformer()
{
    return std::make_shared<KTBaseValueTransformer>();
}

std::shared_ptr<KTBaseValueTransformer> KTBaseValueTransformer::reversedValueTransformer()
{
    auto transformer = valueTransformer();
    transformer->setReversed(true);
    return transformer;
}

QMetaType KTBaseValueTransformer::transformedValueClass() const
{
    return QMetaType::fromType<uint>();
}

QVariant KTBaseValueTransformer::transformedValue(const QVariant &value) const
{
    return moved(value, !_reversed);
}

QVariant KTBaseValueTransformer::reverseTransformedValue(const QVariant &value) const
{
    return moved(value, _reversed);
}

KT_REGISTER_VALUE_TRANSFORMER(KTBaseValueTransformer)
