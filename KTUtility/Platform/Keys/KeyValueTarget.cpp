#include "KeyValueTarget.h"

#include "NSKeyValueCodingObject.h"
#include "NSSelectionMarker.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A list or set of anything, but no text and no data.
bool isCollection(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return true;
    case QMetaType::QByteArray:
        return false;
    default:
        return value.canConvert<QVariantList>();
    }
}

KeyValueTarget targetOfPointer(const QVariant &value)
{
    return KeyValueTarget::of(*static_cast<QObject *const *>(value.constData()));
}

KeyValueTarget targetOfOther(const QVariant &value)
{
    using Kind = KeyValueTarget::Kind;
    const QMetaType type = value.metaType();
    if (NSIsControllerMarker(value))
        return {Kind::Null, nullptr, &value};
    if (type.flags() & QMetaType::IsGadget)
        return KeyValueTarget::ofGadget(type.metaObject(), value.constData());
    if (type.flags() & QMetaType::PointerToGadget)
        return KeyValueTarget::ofGadget(type.metaObject(),
                                        *static_cast<const void *const *>(value.constData()));
    if (value.canConvert<QObject *>())
        return KeyValueTarget::of(value.value<QObject *>());
    return {isCollection(value) ? Kind::Collection : Kind::Opaque, nullptr, &value};
}
} // namespace

KeyValueTarget KeyValueTarget::ofVariant(const QVariant &value)
{
    if (value.metaType().flags() & QMetaType::PointerToQObject)
        return targetOfPointer(value);
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Nullptr:
        return {Kind::Null, nullptr, &value};
    case QMetaType::QString:
        return ofText(*static_cast<const QString *>(value.constData()));
    case QMetaType::QVariantMap:
        return {Kind::Map, nullptr, value.constData()};
    case QMetaType::QVariantHash:
        return {Kind::Hash, nullptr, value.constData()};
    default:
        return targetOfOther(value);
    }
}

bool KeyValueTarget::answersKeyPaths() const
{
    if (kind != Kind::Object)
        return false;
    const auto *const coding = qobject_cast<NSKeyValueCodingObject *>(object());
    return coding && coding->answersKeyPaths();
}

QString KeyValueTarget::description() const
{
    QString name = u"NSDictionary"_s;
    if (metaObject)
        name = QString::fromLatin1(metaObject->className());
    else if (kind == Kind::Collection || kind == Kind::Opaque)
        name = QString::fromLatin1(static_cast<const QVariant *>(instance)->typeName());
    else if (kind == Kind::Null)
        name = u"NSNull"_s;
    else if (kind == Kind::Text)
        name = u"QString"_s;
    return u'<' + name + u" 0x"_s + QString::number(quintptr(instance), 16) + u'>';
}
