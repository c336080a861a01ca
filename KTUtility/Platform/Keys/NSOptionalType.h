#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QVariant>

#include <optional>

/// How properties of type `std::optional` are read and set by key: the empty one is nil, all others
/// are what they hold, and whatever converts to that can be set.
///
/// Known at first are optionals of all arithmetic types, NSDecimalNumber, QString, QByteArray, QDate,
/// QTime, QDateTime, QUrl and QUuid. A program tells of others before they are first used; there is
/// no other way, since Qt's meta-types do not say what an optional holds.
///
/// \code
/// NSOptionalType::add<QColor>();
/// NSKeyValueCoding::setValue(&label, QColor(Qt::red), u"tint"_s);    // std::optional<QColor> tint
/// NSKeyValueCoding::setValue(&label, QVariant(), u"tint"_s);         // none
/// NSKeyValueCoding::valueForKey(&label, u"tint"_s).isValid();              // false
/// \endcode
class KTUTILITY_EXPORT NSOptionalType
{
public:
    /// Makes optionals of a type known; once is enough. May be called by any thread.
    template<typename Value>
    static void add()
    {
        add(QMetaType::fromType<std::optional<Value>>(), typeFor<Value>());
    }

    /// What is known of a type; null if it is no optional that was added.
    static const NSOptionalType *of(QMetaType type);

    /// The type of what optionals of this type hold.
    QMetaType valueType() const { return _valueType; }
    /// What the optional at \a optional holds; nil if it is empty.
    QVariant value(const void *optional) const { return _value(optional); }
    /// An optional that holds \a value, which has to be of valueType() or nil.
    QVariant optional(const QVariant &value) const { return _optional(value); }

private:
    using Unpack = QVariant (*)(const void *storage);
    using Pack = QVariant (*)(const QVariant &given);

    NSOptionalType(QMetaType valueType, Unpack unpack, Pack pack)
        : _valueType(valueType), _value(unpack), _optional(pack)
    {
    }

    template<typename Value>
    static NSOptionalType typeFor()
    {
        const auto unpack = [](const void *storage) {
            const auto &held = *static_cast<const std::optional<Value> *>(storage);
            return held ? QVariant::fromValue(*held) : QVariant();
        };
        const auto pack = [](const QVariant &given) {
            std::optional<Value> held;
            if (given.isValid())
                held = given.value<Value>();
            return QVariant::fromValue(held);
        };
        return {QMetaType::fromType<Value>(), unpack, pack};
    }

    static void add(QMetaType type, const NSOptionalType &optional);

    QMetaType _valueType;
    Unpack _value;
    Pack _optional;

    friend struct NSOptionalTypes;
};
