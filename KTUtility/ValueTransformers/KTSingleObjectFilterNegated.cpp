#include "KTSingleObjectFilterNegated.h"

#include <KTUtility/Platform/Values/NSObject.h>

std::shared_ptr<KTSingleObjectFilterNegated> KTSingleObjectFilterNegated::valueTransformer()
{
    return std::make_shared<KTSingleObjectFilterNegated>();
}

QVariant KTSingleObjectFilterNegated::transformedValue(const QVariant &value) const
{
    const QVariant object = KTSingleObjectFilter::transformedValue(value);
    return NSObject::isNumber(object) ? QVariant(!NSObject::boolValue(object)) : object;
}

KT_REGISTER_VALUE_TRANSFORMER(KTSingleObjectFilterNegated)
