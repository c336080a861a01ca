#include "KTSingleObjectFilter.h"

#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Values/NSObject.h>

using namespace KTPrivate;

namespace {
/// Sets are no lists: they have no first element.
bool isSet(const QVariant &value)
{
    const QByteArrayView type = value.typeName();
    return value.metaType() == QMetaType::fromType<NSSet>() || type.startsWith("QSet<") ||
           type.startsWith("std::set<") || type.startsWith("std::unordered_set<");
}

QVariant firstObjectOf(const QVariant &value)
{
    if (isSet(value) || KeyValueTarget::ofVariant(value).kind != KeyValueTarget::Kind::Collection)
        return value;
    return value.value<QVariantList>().value(0);
}

QVariant listHolding(const QVariant &value)
{
    // As one element: a list that is appended to a list would be joined to it.
    return NSObject::isNil(value) ? QVariant(QVariantList())
                                  : QVariant::fromValue(QVariantList{QVariant(value)});
}
} // namespace

std::shared_ptr<KTSingleObjectFilter> KTSingleObjectFilter::valueTransformer()
{
    return std::make_shared<KTSingleObjectFilter>();
}

std::shared_ptr<KTSingleObjectFilter> KTSingleObjectFilter::reversedValueTransformer()
{
    auto filter = valueTransformer();
    filter->setReversed(true);
    return filter;
}

QVariant KTSingleObjectFilter::transformedValue(const QVariant &value) const
{
    return _reversed ? listHolding(value) : firstObjectOf(value);
}

QVariant KTSingleObjectFilter::reverseTransformedValue(const QVariant &value) const
{
    return _reversed ? firstObjectOf(value) : listHolding(value);
}

KT_REGISTER_VALUE_TRANSFORMER(KTSingleObjectFilter)
