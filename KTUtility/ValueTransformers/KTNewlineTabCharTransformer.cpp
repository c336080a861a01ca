#include "KTNewlineTabCharTransformer.h"

#include "KTTransformerAssert_p.h"

#include <KTUtility/Platform/Values/NSObject.h>

using namespace Qt::StringLiterals;

const QString KTNewlineTabCharTransformerName = u"KTNewlineTabCharTransformer"_s;

namespace {
bool isText(const QVariant &value, const QString &method, int line)
{
    return value.typeId() == QMetaType::QString ||
           KTFailTransformation(KTNewlineTabCharTransformerName, method, line,
                                u"value must be NSString"_s);
}
} // namespace

QMetaType KTNewlineTabCharTransformer::transformedValueClass() const
{
    return QMetaType::fromType<QString>();
}

QVariant KTNewlineTabCharTransformer::transformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value) || !isText(value, u"transformedValue:"_s, __LINE__))
        return {};
    return value.toString().replace(u'\n', u'\t');
}

QVariant KTNewlineTabCharTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (NSObject::isNil(value) || !isText(value, u"reverseTransformedValue:"_s, __LINE__))
        return {};
    return value.toString().replace(u'\t', u'\n');
}

KT_REGISTER_VALUE_TRANSFORMER(KTNewlineTabCharTransformer)
