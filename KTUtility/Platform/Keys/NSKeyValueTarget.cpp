#include "NSKeyValueTarget.h"

#include "NSSelectionMarker.h"

using namespace Qt::StringLiterals;

namespace {
/// A list or set of anything, but no text and no data.
bool isCollection(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return true;
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return false;
    default:
        return value.canConvert<QVariantList>();
    }
}

NSKeyValueTarget targetOfPointer(const QVariant &value)
{
    return NSKeyValueTarget::of(*static_cast<QObject *const *>(value.constData()));
}

NSKeyValueTarget targetOfOther(const QVariant &value)
{
    using Kind = NSKeyValueTarget::Kind;
    const QMetaType type = value.metaType();
    if (NSIsControllerMarker(value))
        return {Kind::Null, nullptr, &value};
    if (type.flags() & QMetaType::IsGadget)
        return NSKeyValueTarget::ofGadget(type.metaObject(), value.constData());
    if (type.flags() & QMetaType::PointerToGadget)
        return NSKeyValueTarget::ofGadget(type.metaObject(),
                                          *static_cast<const void *const *>(value.constData()));
    if (value.canConvert<QObject *>())
        return NSKeyValueTarget::of(value.value<QObject *>());
    return {isCollection(value) ? Kind::Collection : Kind::Opaque, nullptr, &value};
}
} // namespace

NSKeyValueTarget NSKeyValueTarget::ofVariant(const QVariant &value)
{
    if (value.metaType().flags() & QMetaType::PointerToQObject)
        return targetOfPointer(value);
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Nullptr:
        return {Kind::Null, nullptr, &value};
    case QMetaType::QVariantMap:
        return {Kind::Map, nullptr, value.constData()};
    case QMetaType::QVariantHash:
        return {Kind::Hash, nullptr, value.constData()};
    default:
        return targetOfOther(value);
    }
}

QString NSKeyValueTarget::description() const
{
    QString name = u"NSDictionary"_s;
    if (metaObject)
        name = QString::fromLatin1(metaObject->className());
    else if (kind == Kind::Collection || kind == Kind::Opaque)
        name = QString::fromLatin1(static_cast<const QVariant *>(instance)->typeName());
    else if (kind == Kind::Null)
        name = u"NSNull"_s;
    return u'<' + name + u" 0x"_s + QString::number(quintptr(instance), 16) + u'>';
}
