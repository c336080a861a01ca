#include "KTStringColorTransformer.h"

#include "KTTransformerAssert_p.h"

#include <KTUtility/Additions/NSColor_KTAdditions.h>
#include <KTUtility/Platform/Values/NSObject.h>

using namespace Qt::StringLiterals;

const QString KTStringColorTransformerName = u"KTStringColorTransformer"_s;

QMetaType KTStringColorTransformer::transformedValueClass() const
{
    return QMetaType::fromType<QColor>();
}

QVariant KTStringColorTransformer::transformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value))
        return {};
    if (value.typeId() != QMetaType::QString &&
        !KTFailTransformation(KTStringColorTransformerName, u"transformedValue:"_s, __LINE__,
                              u"value must be NSString"_s))
        return {};
    return KTAdditions::ktColorWithString(value.toString());
}

QVariant KTStringColorTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value))
        return {};
    if (value.typeId() != QMetaType::QColor &&
        !KTFailTransformation(KTStringColorTransformerName, u"reverseTransformedValue:"_s, __LINE__,
                              u"value must be NSColor"_s))
        return {};
    return KTAdditions::ktStringRepresentation(value.value<QColor>());
}

KT_REGISTER_VALUE_TRANSFORMER(KTStringColorTransformer)
