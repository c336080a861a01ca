#include "Description_p.h"

#include "Describable.h"
#include "DoubleText_p.h"
#include "NSDecimalNumber.h"
#include "NSObject.h"
#include "VariantKind_p.h"

#include <QAssociativeIterable>
#include <QDateTime>
#include <QDebug>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QObject>
#include <QSequentialIterable>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int DeepestDescription = 64;

QString describeAtDepth(const QVariant &value, int depth);

QString addressText(const void *address)
{
    return u"0x"_s + QString::number(quintptr(address), 16);
}

QString describeDate(const QDateTime &date)
{
    if (!date.isValid())
        return u"<invalid date>"_s;
    const int minutes = date.offsetFromUtc() / 60;
    return date.toString(u"yyyy-MM-dd HH:mm:ss "_s) +
           u"%1%2%3"_s.arg(QChar(minutes < 0 ? u'-' : u'+'))
               .arg(std::abs(minutes) / 60, 2, 10, QLatin1Char('0'))
               .arg(std::abs(minutes) % 60, 2, 10, QLatin1Char('0'));
}

QString describeData(const QByteArray &data)
{
    return u'<' + QString::fromLatin1(data.toHex()) + u'>';
}

// --- Objects ------------------------------------------------------------------------------------

/// What an object says of itself, by a method or a property; nil if it says nothing.
QString ownDescription(QObject *object)
{
    QString text;
    const QMetaObject *metaObject = object->metaObject();
    if (metaObject->indexOfMethod("description()") >= 0 &&
        QMetaObject::invokeMethod(object, "description", Qt::DirectConnection,
                                  Q_RETURN_ARG(QString, text)))
        return text.isNull() ? u""_s : text;
    const int property = metaObject->indexOfProperty("description");
    if (property < 0)
        return {};
    const QVariant value = metaObject->property(property).read(object);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

QString describeObject(QObject *object)
{
    const QString own = ownDescription(object);
    if (!own.isNull())
        return own;
    return u'<' + QString::fromLatin1(object->metaObject()->className()) + u": "_s +
           addressText(object) + u'>';
}

// --- Lists and maps -----------------------------------------------------------------------------

bool needsQuotes(const QString &text)
{
    return text.isEmpty() || !std::all_of(text.begin(), text.end(), [](QChar unit) {
               return unit.unicode() < 0x80 &&
                      (unit.isLetterOrNumber() || unit == u'_' || unit == u'.');
           });
}

QString describeElement(const QVariant &value, int depth)
{
    QString text = describeAtDepth(value, depth);
    if (kindOf(value) != VariantKind::Text || !needsQuotes(text))
        return text;
    return u'"' + text.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\"")) +
           u'"';
}

QString describeList(const QVariantList &list, int depth)
{
    const QString indent(qsizetype(depth + 1) * 4, u' ');
    QStringList lines;
    for (const QVariant &element : list)
        lines += indent + describeElement(element, depth + 1);
    return u"(\n"_s + lines.join(u",\n"_s) + (lines.isEmpty() ? QString() : u"\n"_s) +
           QString(qsizetype(depth) * 4, u' ') + u')';
}

QString describeMap(const QVariantMap &map, int depth)
{
    const QString indent(qsizetype(depth + 1) * 4, u' ');
    QString text = u"{\n"_s;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        text += indent + describeElement(entry.key(), depth + 1) + u" = "_s +
                describeElement(entry.value(), depth + 1) + u";\n"_s;
    return text + QString(qsizetype(depth) * 4, u' ') + u'}';
}

QVariantList elementsOf(const QSequentialIterable &list)
{
    QVariantList elements;
    for (const QVariant &element : list)
        elements.append(element);
    return elements;
}

QVariantMap entriesOf(const QAssociativeIterable &map)
{
    QVariantMap entries;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        entries.insert(describe(entry.key()), entry.value());
    return entries;
}

// --- Other values -------------------------------------------------------------------------------

QString describeNumber(const QVariant &value, VariantKind kind)
{
    switch (kind) {
    case VariantKind::Decimal:
        return value.value<NSDecimalNumber>().description();
    case VariantKind::Double:
        return textOfDouble(value.toDouble(),
                            value.typeId() == QMetaType::Float ? FloatDigits : DoubleDigits);
    case VariantKind::Unsigned:
        return QString::number(value.toULongLong());
    default:
        return QString::number(value.toLongLong());
    }
}

/// The characters that Qt makes no texts of; nil for other values.
QString textOfCharacter(const QVariant &value)
{
    if (value.typeId() == QMetaType::Char16)
        return QChar(value.value<char16_t>());
    if (value.typeId() != QMetaType::Char32)
        return {};
    return characterText(value.value<char32_t>());
}

/// What a value becomes by conversion; nil if there is none.
QString textByConversion(const QVariant &value)
{
    const QString character = textOfCharacter(value);
    if (!character.isNull())
        return character;
    const QString text = value.canConvert<QString>() ? value.toString() : QString();
    return text.isEmpty() ? QString() : text;
}

/// "<Point x = 1, y = 2>".

/// A property may hold a value of the same type that is made when it is asked for, and so on for ever.
QString describeGadget(const QVariant &value, int depth)
{
    const QMetaObject *metaObject = value.metaType().metaObject();
    QStringList properties;
    for (int index = 0; index < metaObject->propertyCount(); ++index) {
        const QMetaProperty property = metaObject->property(index);
        properties += QLatin1String(property.name()) + u" = "_s +
                      describeAtDepth(property.readOnGadget(value.constData()), depth + 1);
    }
    return u'<' + QLatin1String(metaObject->className()) + (properties.isEmpty() ? u""_s : u" "_s) +
           properties.join(u", "_s) + u'>';
}

QString describePointer(const QVariant &value)
{
    const void *const address = *static_cast<void *const *>(value.constData());
    return address ? addressText(address) : u"(null)"_s;
}

/// Values without elements.
QString describePlain(const QVariant &value, int depth)
{
    const QMetaType::TypeFlags flags = value.metaType().flags();
    const QString text = textByConversion(value);
    if (!text.isNull())
        return text;
    if (flags & QMetaType::IsPointer || value.typeId() == QMetaType::VoidStar)
        return describePointer(value);
    const QString debugText = textForProgrammers(value);
    if (!debugText.isEmpty())
        return debugText;
    return flags & QMetaType::IsGadget ? describeGadget(value, depth)
                                       : u'<' + QString::fromLatin1(value.typeName()) + u'>';
}

QString describeOther(const QVariant &value, int depth)
{
    constexpr QMetaType::TypeFlags Holders = QMetaType::SharedPointerToQObject |
                                             QMetaType::WeakPointerToQObject |
                                             QMetaType::TrackingPointerToQObject;
    if (value.metaType().flags() & Holders)
        return describe(QVariant::fromValue(value.value<QObject *>()));
    if (QMetaType::canView(value.metaType(), QMetaType::fromType<QAssociativeIterable>()))
        return describeMap(entriesOf(value.value<QAssociativeIterable>()), depth);
    if (QMetaType::canView(value.metaType(), QMetaType::fromType<QSequentialIterable>()))
        return describeList(elementsOf(value.value<QSequentialIterable>()), depth);
    return describePlain(value, depth);
}

QString describeAtDepth(const QVariant &value, int depth)
{
    if (NSObject::isNil(value))
        return u"(null)"_s;
    if (isNSNull(value))
        return u"<null>"_s;
    if (depth > DeepestDescription)
        return u"..."_s;
    switch (const VariantKind kind = kindOf(value)) {
    case VariantKind::Text:
        return *static_cast<const QString *>(value.constData());
    case VariantKind::Date:
        return describeDate(value.toDateTime());
    case VariantKind::Data:
        return describeData(value.toByteArray());
    case VariantKind::List:
        return describeList(value.toList(), depth);
    case VariantKind::Map:
        return describeMap(value.toMap(), depth);
    case VariantKind::Object:
        return describeObject(*static_cast<QObject *const *>(value.constData()));
    default:
        return isNumeric(kind) ? describeNumber(value, kind) : describeOther(value, depth);
    }
}
} // namespace

QString KTPrivate::describe(const QVariant &value)
{
    return describeAtDepth(value, 0);
}

QString KTPrivate::textForProgrammers(const QVariant &value)
{
    QMetaType type = value.metaType();
    if (!type.hasRegisteredDebugStreamOperator())
        return {};
    QString text;
    QDebug stream(&text);
    type.debugStream(stream.noquote().nospace(), value.constData());
    return text.trimmed();
}
