#include "VariantKind_p.h"

#include "NSDecimalNumber.h"

using namespace KTPrivate;

namespace {
VariantKind kindOfOtherType(QMetaType type)
{
    if (type == QMetaType::fromType<NSDecimalNumber>())
        return VariantKind::Decimal;
    if (type.flags() & QMetaType::IsUnsignedEnumeration)
        return VariantKind::Unsigned;
    if (type.flags() & QMetaType::IsEnumeration)
        return VariantKind::Signed;
    return type.flags() & QMetaType::PointerToQObject ? VariantKind::Object : VariantKind::Other;
}
} // namespace

VariantKind KTPrivate::kindOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return VariantKind::Nil;
    case QMetaType::Bool:
        return VariantKind::Bool;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return VariantKind::Signed;
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return VariantKind::Unsigned;
    case QMetaType::Float:
    case QMetaType::Double:
        return VariantKind::Double;
    case QMetaType::QString:
        return VariantKind::Text;
    case QMetaType::QDateTime:
        return VariantKind::Date;
    case QMetaType::QByteArray:
        return VariantKind::Data;
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return VariantKind::List;
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return VariantKind::Map;
    default:
        return kindOfOtherType(value.metaType());
    }
}
