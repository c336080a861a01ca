#include "KTString_KTDataTransformer.h"

#include <KTUtility/Platform/Text/NSStringEncoding.h>
#include <KTUtility/Platform/Values/NSObject.h>

QMetaType KTString_KTDataTransformer::transformedValueClass() const
{
    return QMetaType::fromType<QString>();
}

QVariant KTString_KTDataTransformer::transformedValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QByteArray)
        return {};
    const QString text = NSString::stringWithUTF8Data(value.toByteArray());
    return text.isNull() ? QVariant() : QVariant(text);
}

QVariant KTString_KTDataTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QString || NSObject::isNil(value))
        return {};
    const QString text = value.toString();
    return text.isValidUtf16() ? QVariant(text.toUtf8()) : QVariant();
}
