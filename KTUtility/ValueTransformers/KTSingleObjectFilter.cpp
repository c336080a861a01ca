#include "KTSingleObjectFilter.h"

#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QScopedValueRollback>

using namespace KTPrivate;

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
    if (_reversed) {
        const QScopedValueRollback<bool> cleared(_reversed, false);
        return reverseTransformedValue(value);
    }
    if (KeyValueTarget::ofVariant(value).kind != KeyValueTarget::Kind::Collection)
        return value;
    return value.value<QVariantList>().value(0);
}

QVariant KTSingleObjectFilter::reverseTransformedValue(const QVariant &value) const
{
    if (_reversed) {
        const QScopedValueRollback<bool> cleared(_reversed, false);
        return transformedValue(value);
    }
    // As one element: a list that is appended to a list would be joined to it.
    return NSObject::isNil(value) ? QVariant(QVariantList())
                                  : QVariant::fromValue(QVariantList{QVariant(value)});
}

KT_REGISTER_VALUE_TRANSFORMER(KTSingleObjectFilter)
