#include "StoredValue_p.h"

#include "NSPropertyListSerialization.h"

#include <QDataStream>
#include <QIODevice>

#include <array>

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

/// A text that the value can be made of again; nothing if there is none.
std::optional<QVariant> textFormOf(const QVariant &value)
{
    QVariant text = value;
    if (!text.convert(QMetaType::fromType<QString>()))
        return std::nullopt;
    QVariant again = text;
    const bool isSame = again.convert(value.metaType()) && again == value;
    return isSame && NSPropertyListSerialization::isPropertyList(text) ? std::optional(text)
                                                                       : std::nullopt;
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
} // namespace

std::optional<QVariant> StoredValue::formOf(const QVariant &value)
{
    if (NSPropertyListSerialization::isPropertyList(value))
        return value;
    if (isOfPropertyListType(value.metaType()))
        return std::nullopt;
    const std::optional<QVariant> text = textFormOf(value);
    return text ? text : dataFormOf(value);
}

std::optional<QVariant> StoredValue::valueOf(const QVariant &stored, QMetaType type)
{
    if (!stored.isValid() || stored.metaType() == type)
        return stored.isValid() ? std::optional(stored) : std::nullopt;
    if (stored.typeId() == QMetaType::QByteArray)
        return fromBytes(stored.toByteArray(), type);
    QVariant value = stored;
    // A text that says nothing of the type is converted to one without a value.
    const bool isConverted = value.convert(type) && textFormOf(value);
    return isConverted ? std::optional(value) : std::nullopt;
}
