#include "KTStringColorTransformer.h"

#include "KTTransformerAssert_p.h"

#include <KTUtility/Additions/NSColor_KTAdditions.h>
#include <KTUtility/Platform/Values/NSObject.h>

const QString KTStringColorTransformerName = QStringLiteral("KTStringColorTransformer");

QMetaType KTStringColorTransformer::transformedValueClass() const
{
    return QMetaType::fromType<QColor>();
}

QVariant KTStringColorTransformer::transformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value))
        return {};
    if (value.typeId() != QMetaType::QString &&
        !KTFailTransformation(KTStringColorTransformerName, QStringLiteral("transformedValue:"),
                              __LINE__, QStringLiteral("value must be NSString")))
        return {};
    return KTAdditions::ktColorWithString(value.toString());
}

QVariant KTStringColorTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value))
        return {};
    if (value.typeId() != QMetaType::QColor &&
        !KTFailTransformation(KTStringColorTransformerName,
                              QStringLiteral("reverseTransformedValue:"), __LINE__,
                              QStringLiteral("value must be NSColor")))
        return {};
    return KTAdditions::ktStringRepresentation(value.value<QColor>());
}

KT_REGISTER_VALUE_TRANSFORMER(KTStringColorTransformer)
