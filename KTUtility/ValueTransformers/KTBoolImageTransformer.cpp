#include "KTBoolImageTransformer.h"

#include <KTUtility/Platform/Keys/Invoker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <optional>

using namespace KTPrivate;

namespace {
/// The truth value of what answers one: a number, a text, or an object with such a method.
std::optional<bool> boolValueOf(const QVariant &value)
{
    if (NSObject::isNil(value))
        return {};
    if (NSObject::isNumber(value) || value.typeId() == QMetaType::QString)
        return NSObject::boolValue(value);
    const KeyValueTarget target = KeyValueTarget::ofVariant(value);
    Invoker boolValue("boolValue", {});
    if (!target.metaObject || !boolValue.respondsTo(target))
        return {};
    return boolValue.isTrue(target);
}
} // namespace

QMetaType KTBoolImageTransformer::transformedValueClass() const
{
    return QMetaType::fromType<double>();
}

QVariant KTBoolImageTransformer::transformedValue(const QVariant &value) const
{
    const std::optional<bool> flag = boolValueOf(value);
    if (!flag)
        return {};
    const QImage &image = *flag ? _onImage : _offImage;
    return image.isNull() ? QVariant() : QVariant(image);
}

KT_REGISTER_VALUE_TRANSFORMER(KTBoolImageTransformer)
