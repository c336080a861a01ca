#include "KTBoolImageTransformer.h"

#include <KTUtility/Platform/Values/NSObject.h>

namespace {
bool answersBoolValue(const QVariant &value)
{
    return !NSObject::isNil(value) &&
           (NSObject::isNumber(value) || value.typeId() == QMetaType::QString);
}
} // namespace

QMetaType KTBoolImageTransformer::transformedValueClass() const
{
    return QMetaType::fromType<double>();
}

QVariant KTBoolImageTransformer::transformedValue(const QVariant &value) const
{
    if (!answersBoolValue(value))
        return {};
    const QImage &image = NSObject::boolValue(value) ? _onImage : _offImage;
    return image.isNull() ? QVariant() : QVariant(image);
}

KT_REGISTER_VALUE_TRANSFORMER(KTBoolImageTransformer)
