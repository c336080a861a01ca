#include "ValueHash_p.h"

#include "Description_p.h"
#include "NSDecimalNumber.h"
#include "NSObject.h"
#include "VariantKind_p.h"

#include <QAssociativeIterable>
#include <QBitArray>
#include <QCborValue>
#include <QDateTime>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QLine>
#include <QLocale>
#include <QMetaObject>
#include <QMetaProperty>
#include <QModelIndex>
#include <QReadWriteLock>
#include <QRect>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QSequentialIterable>
#include <QUrl>
#include <QUuid>

#include <cmath>
#include <cstring>

using namespace KTPrivate;

namespace {
using Hasher = size_t (*)(const void *value);

template<typename T>
size_t hashAs(const void *value)
{
    return qHash(*static_cast<const T *>(value));
}

/// Whole numbers side by side, as the sizes and rectangles of Qt hold them.
template<typename T>
size_t hashOfBits(const void *value)
{
    return qHashBits(value, sizeof(T));
}

template<typename... T>
QHash<int, Hasher> hashersOfTypes()
{
    return {{QMetaType::fromType<T>().id(), &hashAs<T>}...};
}

template<typename... T>
QHash<int, Hasher> hashersOfBits()
{
    return {{QMetaType::fromType<T>().id(), &hashOfBits<T>}...};
}

/// The hashes by type, of Qt's own and of those that were set.
class Hashers
{
public:
    Hashers()
        : _hashers(hashersOfTypes<QDate, QTime, QUuid, QUrl, QChar, char16_t, char32_t, QLocale,
                                  QBitArray, QRegularExpression, QModelIndex, QPersistentModelIndex,
                                  QJsonValue, QJsonArray, QJsonObject, QCborValue>())
    {
        _hashers.insert(hashersOfBits<QSize, QPoint, QLine, QRect>());
    }

    Hasher of(int type) const
    {
        const QReadLocker lock(&_lock);
        return _hashers.value(type);
    }

    void set(int type, Hasher hasher)
    {
        const QWriteLocker lock(&_lock);
        _hashers.insert(type, hasher);
    }

private:
    mutable QReadWriteLock _lock;
    QHash<int, Hasher> _hashers;
};

Hashers &hashers()
{
    static Hashers hashers;
    return hashers;
}

size_t mixed(size_t hash, size_t next)
{
    return hash * 31 + next;
}

/// All values that are no number are equal, whatever their bits.
size_t hashOfDouble(double value)
{
    return std::isnan(value) ? 1 : qHash(value);
}

size_t hashOfNumber(const QVariant &value, VariantKind kind)
{
    if (kind == VariantKind::Decimal)
        return hashOfDouble(value.value<NSDecimalNumber>().doubleValue());
    return hashOfDouble(value.toDouble());
}

size_t hashOfList(const QVariantList &list)
{
    size_t result = size_t(list.size());
    for (const QVariant &element : list)
        result = mixed(result, hashOf(element));
    return result;
}

size_t hashOfMap(const QVariantMap &map)
{
    size_t result = size_t(map.size());
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        result = mixed(mixed(result, qHash(entry.key())), hashOf(entry.value()));
    return result;
}

/// Equal sets may hold their elements in different orders.
size_t hashOfElements(const QSequentialIterable &elements)
{
    size_t result = size_t(elements.size());
    for (const QVariant &element : elements)
        result += qHash(quint64(hashOf(element)));
    return result;
}

size_t hashOfEntries(const QAssociativeIterable &map)
{
    size_t result = size_t(map.size());
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        result += qHash(quint64(mixed(hashOf(entry.key()), hashOf(entry.value()))));
    return result;
}

/// Many gadgets have a meta-object for their enumerations only.
bool hasProperties(const QVariant &value)
{
    const QMetaType type = value.metaType();
    return type.flags() & QMetaType::IsGadget && type.metaObject()->propertyCount() > 0;
}

/// A property may hold a value of the same type that is made when it is asked for, and so on for ever.
size_t hashOfGadget(const QVariant &value)
{
    constexpr int Deepest = 16;
    static thread_local int depth = 0;
    if (depth == Deepest)
        return 0;
    const QScopedValueRollback deeper(depth, depth + 1);
    const QMetaObject *const metaObject = value.metaType().metaObject();
    size_t result = 0;
    for (int index = 0; index < metaObject->propertyCount(); ++index)
        result = mixed(result, hashOf(metaObject->property(index).readOnGadget(value.constData())));
    return result;
}

size_t hashOfCoordinates(const std::array<double, 4> &coordinates)
{
    size_t result = 0;
    for (const double coordinate : coordinates)
        result = mixed(result, qHash(coordinate));
    return result;
}

/// Pointers and what points to objects: all of what they hold.
size_t hashOfHolder(const QVariant &value)
{
    const QMetaType type = value.metaType();
    const bool isPlain =
        type.flags() & QMetaType::IsPointer || value.typeId() == QMetaType::VoidStar;
    return isPlain ? qHashBits(value.constData(), size_t(type.sizeOf()))
                   : qHash(value.value<QObject *>());
}

bool isHolder(const QVariant &value)
{
    constexpr QMetaType::TypeFlags Holders =
        QMetaType::IsPointer | QMetaType::SharedPointerToQObject | QMetaType::WeakPointerToQObject |
        QMetaType::TrackingPointerToQObject;
    return value.metaType().flags() & Holders || value.typeId() == QMetaType::VoidStar;
}

bool isViewableAs(const QVariant &value, QMetaType view)
{
    return QMetaType::canView(value.metaType(), view);
}

/// Types without a hash of their own, by what they hold or can say of it.
size_t hashOfContents(const QVariant &value)
{
    if (isHolder(value))
        return hashOfHolder(value);
    if (isViewableAs(value, QMetaType::fromType<QAssociativeIterable>()))
        return hashOfEntries(value.value<QAssociativeIterable>());
    if (isViewableAs(value, QMetaType::fromType<QSequentialIterable>()))
        return hashOfElements(value.value<QSequentialIterable>());
    if (hasProperties(value))
        return hashOfGadget(value);
    const QString text = value.canConvert<QString>() ? value.toString() : textForProgrammers(value);
    return text.isEmpty() ? size_t(value.typeId()) : qHash(text);
}

size_t hashOfOther(const QVariant &value)
{
    if (const Hasher hasher = hashers().of(value.typeId()))
        return hasher(value.constData());
    if (const auto coordinates = coordinatesOf(value))
        return hashOfCoordinates(*coordinates);
    return hashOfContents(value);
}
} // namespace

std::optional<std::array<double, 4>> KTPrivate::coordinatesOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QPointF:
    case QMetaType::QSizeF:
    case QMetaType::QRectF:
    case QMetaType::QLineF: {
        std::array<double, 4> coordinates{};
        std::memcpy(coordinates.data(), value.constData(), size_t(value.metaType().sizeOf()));
        return coordinates;
    }
    default:
        return std::nullopt;
    }
}

void KTPrivate::setHasher(QMetaType type, size_t (*hasher)(const void *value))
{
    hashers().set(type.id(), hasher);
}

size_t KTPrivate::hashOf(const QVariant &value)
{
    switch (const VariantKind kind = kindOf(value)) {
    case VariantKind::Nil:
        return 0;
    case VariantKind::Text: {
        const auto &text = *static_cast<const QString *>(value.constData());
        return text.isNull() ? 0 : qHash(text);
    }
    case VariantKind::Date:
        return qHash(value.toDateTime());
    case VariantKind::Data:
        return qHash(value.toByteArray());
    case VariantKind::List:
        return hashOfList(value.toList());
    case VariantKind::Map:
        return hashOfMap(value.toMap());
    case VariantKind::Object:
        return qHash(*static_cast<QObject *const *>(value.constData()));
    default:
        return isNumeric(kind) ? hashOfNumber(value, kind) : hashOfOther(value);
    }
}
