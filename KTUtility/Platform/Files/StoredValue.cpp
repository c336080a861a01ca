#include "StoredValue_p.h"

#include "NSPropertyListSerialization.h"
#include <KTUtility/Platform/Values/NSObject.h>

#include <QDataStream>
#include <QIODevice>
#include <QKeySequence>

#include <algorithm>
#include <array>
#include <cmath>

using namespace KTPrivate;

namespace {
/// What is kept reads the same with every version of Qt.
constexpr auto StreamVersion = QDataStream::Qt_6_0;

/// The types of property lists, which are not kept in another form: what is wrong with one of them
/// is in what it holds. Nor are others that hold values of any type.
bool isOfPropertyListType(QMetaType type)
{
    constexpr std::array Types = {
        QMetaType::UnknownType, QMetaType::Nullptr,      QMetaType::QString,
        QMetaType::QByteArray,  QMetaType::QDateTime,    QMetaType::QStringList,
        QMetaType::QVariantMap, QMetaType::QVariantHash, QMetaType::QVariantList};
    return std::ranges::find(Types, type.id()) != Types.end();
}

bool isOneOf(std::initializer_list<int> types, QMetaType type)
{
    return std::ranges::find(types, type.id()) != types.end();
}

/// Whether the text of a value is the same in every language and with every version of Qt.
bool hasNeutralText(QMetaType type)
{
    return isOneOf({QMetaType::QDate, QMetaType::QTime, QMetaType::QUrl, QMetaType::QUuid,
                    QMetaType::QColor, QMetaType::QKeySequence},
                   type);
}

std::optional<QVariant> converted(QVariant value, QMetaType type)
{
    return value.convert(type) ? std::optional(value) : std::nullopt;
}

/// The text of a value; of a shortcut the one that names the keys in no language.
std::optional<QVariant> neutralTextOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::QKeySequence)
        return value.value<QKeySequence>().toString(QKeySequence::PortableText);
    return converted(value, QMetaType::fromType<QString>());
}

/// What neutralTextOf() has made a text of.
std::optional<QVariant> fromText(const QVariant &text, QMetaType type)
{
    if (type.id() == QMetaType::QKeySequence)
        return QKeySequence::fromString(text.toString(), QKeySequence::PortableText);
    return converted(text, type);
}

/// A text that the value can be made of again; nothing if there is none.
std::optional<QVariant> textFormOf(const QVariant &value)
{
    const std::optional<QVariant> text = neutralTextOf(value);
    const auto again = text ? fromText(*text, value.metaType()) : std::nullopt;
    const bool isSame = again && *again == value;
    return isSame && NSPropertyListSerialization::isPropertyList(*text) ? text : std::nullopt;
}

std::optional<QVariant> dataFormOf(const QVariant &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(StreamVersion);
    const QMetaType type = value.metaType();
    stream << QByteArray(type.name());
    const bool isWritten =
        type.hasRegisteredDataStreamOperators() && type.save(stream, value.constData());
    return isWritten ? std::optional<QVariant>(bytes) : std::nullopt;
}

std::optional<QVariant> fromBytes(const QByteArray &bytes, QMetaType type)
{
    QDataStream stream(bytes);
    stream.setVersion(StreamVersion);
    QByteArray name;
    stream >> name;
    if (name.isEmpty() || name != type.name())
        return std::nullopt;
    QVariant value(type);
    const bool isRead = type.hasRegisteredDataStreamOperators() &&
                        type.load(stream, value.data()) && stream.status() == QDataStream::Ok &&
                        stream.atEnd();
    return isRead ? std::optional(value) : std::nullopt;
}

bool isIntegerType(QMetaType type)
{
    return isOneOf({QMetaType::Char, QMetaType::SChar, QMetaType::UChar, QMetaType::Short,
                    QMetaType::UShort, QMetaType::Int, QMetaType::UInt, QMetaType::Long,
                    QMetaType::ULong, QMetaType::LongLong, QMetaType::ULongLong},
                   type);
}

bool isRealType(QMetaType type)
{
    return isOneOf({QMetaType::Float, QMetaType::Double}, type);
}

/// The number that a text shows; invalid if it shows none.
QVariant numberInText(const QString &text)
{
    bool isNumber = false;
    if (const qlonglong number = text.toLongLong(&isNumber); isNumber)
        return number;
    if (const qulonglong number = text.toULongLong(&isNumber); isNumber)
        return number;
    const double number = text.toDouble(&isNumber);
    return isNumber ? QVariant(number) : QVariant();
}

/// A number as an integer that is the same.
std::optional<QVariant> exactIntegerOf(const QVariant &number, QMetaType type)
{
    const auto integer = converted(number, type);
    return integer && NSObject::isEqual(*integer, number) ? integer : std::nullopt;
}

/// A number as the nearest one of a type that holds fewer digits; nothing if it holds none so large.
std::optional<QVariant> realOf(const QVariant &number, QMetaType type)
{
    const auto real = converted(number, type);
    const bool isTooLarge = real && std::isinf(real->toDouble()) && !std::isinf(number.toDouble());
    return isTooLarge ? std::nullopt : real;
}

bool isEnumeration(QMetaType type)
{
    return type.flags().testFlag(QMetaType::IsEnumeration);
}

std::optional<QVariant> enumerationOf(const QVariant &number, QMetaType type)
{
    const auto integer = exactIntegerOf(number, QMetaType::fromType<qlonglong>());
    const auto value = integer ? converted(*integer, type) : std::nullopt;
    const auto again = value ? converted(*value, integer->metaType()) : std::nullopt;
    return again && *again == *integer ? value : std::nullopt;
}

bool isArithmetic(QMetaType type)
{
    return isIntegerType(type) || isRealType(type);
}

/// What a number or the text of one is as a number of another type.
std::optional<QVariant> arithmeticOf(const QVariant &stored, QMetaType type)
{
    const bool isText = stored.typeId() == QMetaType::QString;
    const QVariant number = isText ? numberInText(stored.toString()) : stored;
    if (!NSObject::isNumber(number))
        return std::nullopt;
    return isIntegerType(type) ? exactIntegerOf(number, type) : realOf(number, type);
}

std::optional<QVariant> booleanOf(const QVariant &stored)
{
    const bool isBoolean = stored.typeId() == QMetaType::QString || NSObject::isNumber(stored);
    return isBoolean ? std::optional<QVariant>(NSObject::boolValue(stored)) : std::nullopt;
}

bool isListType(QMetaType type)
{
    return isOneOf({QMetaType::QStringList, QMetaType::QVariantList}, type);
}

bool isDictionaryType(QMetaType type)
{
    return isOneOf({QMetaType::QVariantMap, QMetaType::QVariantHash}, type);
}

/// A list as one of the other type: as texts only if all elements are some.
std::optional<QVariant> otherListOf(const QVariant &list, QMetaType type)
{
    const QVariantList elements = list.toList();
    const bool fits = type.id() == QMetaType::QVariantList ||
                      (type.id() == QMetaType::QStringList &&
                       std::ranges::all_of(elements, [](const QVariant &element) {
                           return element.typeId() == QMetaType::QString;
                       }));
    return fits ? converted(list, type) : std::nullopt;
}

/// A number, a text or a date as a value of another type. A text that says nothing of the type is
/// converted to one without a value.
std::optional<QVariant> scalarOf(const QVariant &stored, QMetaType type)
{
    if (type.id() == QMetaType::Bool)
        return booleanOf(stored);
    if (isArithmetic(type))
        return arithmeticOf(stored, type);
    if (isEnumeration(type) && NSObject::isNumber(stored))
        return enumerationOf(stored, type);
    const bool isText = stored.typeId() == QMetaType::QString;
    const auto value = isText ? fromText(stored, type) : converted(stored, type);
    return value && textFormOf(*value) ? value : std::nullopt;
}
} // namespace

std::optional<QVariant> StoredValue::formOf(const QVariant &value)
{
    if (NSPropertyListSerialization::isPropertyList(value))
        return value;
    if (isOfPropertyListType(value.metaType()))
        return std::nullopt;
    const bool isNeutral = hasNeutralText(value.metaType());
    const std::optional<QVariant> text = isNeutral ? textFormOf(value) : std::nullopt;
    const std::optional<QVariant> data = text ? text : dataFormOf(value);
    // Of a type that only a program knows, which has its own text.
    const bool isForeign = !data && value.typeId() >= QMetaType::User;
    return isForeign ? textFormOf(value) : data;
}

std::optional<QVariant> StoredValue::valueOf(const QVariant &stored, QMetaType type)
{
    if (!stored.isValid() || stored.metaType() == type)
        return stored.isValid() ? std::optional(stored) : std::nullopt;
    if (stored.typeId() == QMetaType::QByteArray)
        return fromBytes(stored.toByteArray(), type);
    if (isListType(stored.metaType()))
        return otherListOf(stored, type);
    if (isDictionaryType(stored.metaType()))
        return isDictionaryType(type) ? converted(stored, type) : std::nullopt;
    return scalarOf(stored, type);
}
