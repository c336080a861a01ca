#include "NSObject.h"

#include "NSDecimalNumber.h"
#include "NSStringValues.h"

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QMetaMethod>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
enum class Family {
    Nil,
    Signed,
    Unsigned,
    Double,
    Decimal,
    Text,
    Date,
    Data,
    List,
    Map,
    Object,
    Other
};

Family familyOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return Family::Nil;
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::SChar:
        return Family::Signed;
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
    case QMetaType::UShort:
    case QMetaType::UChar:
        return Family::Unsigned;
    case QMetaType::Double:
    case QMetaType::Float:
        return Family::Double;
    case QMetaType::QString:
        return Family::Text;
    case QMetaType::QDateTime:
        return Family::Date;
    case QMetaType::QByteArray:
        return Family::Data;
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return Family::List;
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return Family::Map;
    default:
        break;
    }
    if (value.metaType() == QMetaType::fromType<NSDecimalNumber>())
        return Family::Decimal;
    return value.metaType().flags() & QMetaType::PointerToQObject ? Family::Object : Family::Other;
}

bool isNumeric(Family family)
{
    return family >= Family::Signed && family <= Family::Decimal;
}

const QString &textOf(const QVariant &value)
{
    return *static_cast<const QString *>(value.constData());
}

QObject *objectOf(const QVariant &value)
{
    return *static_cast<QObject *const *>(value.constData());
}

bool isWhole(double value)
{
    return value == std::trunc(value) && std::abs(value) < 0x1p63;
}

/// Integers exactly, fractions by the shortest text that means the same double (0.1 is one tenth).
NSDecimalNumber decimalOfDouble(double value)
{
    if (isWhole(value))
        return NSDecimalNumber(qint64(value));
    return NSDecimalNumber::decimalNumberWithString(
        QString::number(value, 'g', QLocale::FloatingPointShortest));
}

NSDecimalNumber decimalOf(const QVariant &value)
{
    switch (familyOf(value)) {
    case Family::Decimal:
        return value.value<NSDecimalNumber>();
    case Family::Signed:
        return NSDecimalNumber(value.toLongLong());
    case Family::Double:
        return decimalOfDouble(value.toDouble());
    default:
        return NSDecimalNumber::decimalNumberWithString(QString::number(value.toULongLong()));
    }
}

/// Integers of any signedness, exactly.
std::weak_ordering compareIntegers(const QVariant &left, Family leftFamily, const QVariant &right,
                                   Family rightFamily)
{
    if (leftFamily == Family::Signed && rightFamily == Family::Signed)
        return left.toLongLong() <=> right.toLongLong();
    if (leftFamily == Family::Signed && left.toLongLong() < 0)
        return std::weak_ordering::less;
    if (rightFamily == Family::Signed && right.toLongLong() < 0)
        return std::weak_ordering::greater;
    return left.toULongLong() <=> right.toULongLong();
}

/// Doubles in a total order with NaN above every number.
std::weak_ordering compareDoubles(double left, double right)
{
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(left) <=> std::isnan(right);
    return left < right   ? std::weak_ordering::less
           : left > right ? std::weak_ordering::greater
                          : std::weak_ordering::equivalent;
}

/// A double against an integer, without rounding the integer: by whole parts, then by fraction.
std::weak_ordering compareDoubleToInteger(double left, const QVariant &right, Family rightFamily)
{
    if (std::isnan(left) || left >= 0x1p64)
        return std::weak_ordering::greater;
    if (left < -0x1p63)
        return std::weak_ordering::less;
    const double whole = std::trunc(left);
    const auto order =
        whole >= 0x1p63
            ? compareIntegers(QVariant(quint64(whole)), Family::Unsigned, right, rightFamily)
            : compareIntegers(QVariant(qlonglong(whole)), Family::Signed, right, rightFamily);
    return order != 0 ? order : compareDoubles(left, whole);
}

double doubleOf(const QVariant &number)
{
    return familyOf(number) == Family::Decimal ? number.value<NSDecimalNumber>().doubleValue()
                                               : number.toDouble();
}

/// Numbers of which one is a decimal. Doubles beyond the range of decimals are compared as doubles.
std::weak_ordering compareDecimals(const QVariant &left, const QVariant &right)
{
    const NSDecimalNumber leftDecimal = decimalOf(left);
    const NSDecimalNumber rightDecimal = decimalOf(right);
    if (leftDecimal.isNaN() || rightDecimal.isNaN())
        return compareDoubles(doubleOf(left), doubleOf(right));
    return leftDecimal <=> rightDecimal;
}

std::weak_ordering compareNumbers(const QVariant &left, Family leftFamily, const QVariant &right,
                                  Family rightFamily)
{
    if (leftFamily == Family::Decimal || rightFamily == Family::Decimal)
        return compareDecimals(left, right);
    if (leftFamily == Family::Double && rightFamily == Family::Double)
        return compareDoubles(left.toDouble(), right.toDouble());
    if (leftFamily == Family::Double)
        return compareDoubleToInteger(left.toDouble(), right, rightFamily);
    if (rightFamily == Family::Double)
        return 0 <=> compareDoubleToInteger(right.toDouble(), left, leftFamily);
    return compareIntegers(left, leftFamily, right, rightFamily);
}

bool areListsEqual(const QVariantList &left, const QVariantList &right)
{
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), NSObject::isEqual);
}

bool areMapsEqual(const QVariantMap &left, const QVariantMap &right)
{
    return left.keys() == right.keys() && areListsEqual(left.values(), right.values());
}

bool areSameFamilyEqual(Family family, const QVariant &left, const QVariant &right)
{
    switch (family) {
    case Family::Nil:
        return true;
    case Family::Text:
        return textOf(left) == textOf(right);
    case Family::Object:
        return objectOf(left) == objectOf(right);
    case Family::List:
        return areListsEqual(left.toList(), right.toList());
    case Family::Map:
        return areMapsEqual(left.toMap(), right.toMap());
    default:
        return left.metaType() == right.metaType() && left == right;
    }
}

size_t hashOfNumber(const QVariant &value, Family family)
{
    if (family == Family::Decimal)
        return qHash(value.value<NSDecimalNumber>().doubleValue());
    return qHash(value.toDouble());
}

size_t hashOfList(const QVariantList &list)
{
    size_t result = size_t(list.size());
    for (const QVariant &element : list)
        result = result * 31 + NSObject::hash(element);
    return result;
}

// --- Descriptions ---------------------------------------------------------------------------

QString describeDate(const QDateTime &date)
{
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

QString describeObject(QObject *object)
{
    QString text;
    const QMetaObject *metaObject = object->metaObject();
    if (metaObject->indexOfMethod("description()") >= 0 &&
        QMetaObject::invokeMethod(object, "description", Qt::DirectConnection,
                                  Q_RETURN_ARG(QString, text)))
        return text;
    return u'<' + QString::fromLatin1(metaObject->className()) + u": 0x"_s +
           QString::number(quintptr(object), 16) + u'>';
}

bool needsQuotes(const QString &text)
{
    return text.isEmpty() || !std::all_of(text.begin(), text.end(), [](QChar unit) {
               return unit.unicode() < 0x80 &&
                      (unit.isLetterOrNumber() || unit == u'_' || unit == u'.');
           });
}

constexpr int DeepestDescription = 64;

QString describeAtDepth(const QVariant &value, int depth);

QString describeElement(const QVariant &value, int depth)
{
    QString text = describeAtDepth(value, depth);
    if (familyOf(value) != Family::Text || !needsQuotes(text))
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

QString describeNumber(const QVariant &value, Family family)
{
    switch (family) {
    case Family::Decimal:
        return value.value<NSDecimalNumber>().description();
    case Family::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case Family::Unsigned:
        return QString::number(value.toULongLong());
    default:
        return QString::number(value.toLongLong());
    }
}

QString describeOther(const QVariant &value)
{
    QString text;
    if (value.canConvert<QString>())
        text = value.toString();
    return text.isEmpty() ? u'<' + QString::fromLatin1(value.typeName()) + u'>' : text;
}

QString describeAtDepth(const QVariant &value, int depth)
{
    if (NSObject::isNil(value))
        return u"(null)"_s;
    if (isNSNull(value))
        return u"<null>"_s;
    if (depth > DeepestDescription)
        return u"..."_s;
    switch (const Family family = familyOf(value)) {
    case Family::Text:
        return textOf(value);
    case Family::Date:
        return describeDate(value.toDateTime());
    case Family::Data:
        return describeData(value.toByteArray());
    case Family::List:
        return describeList(value.toList(), depth);
    case Family::Map:
        return describeMap(value.toMap(), depth);
    case Family::Object:
        return describeObject(objectOf(value));
    default:
        return isNumeric(family) ? describeNumber(value, family) : describeOther(value);
    }
}
} // namespace

bool NSObject::isNil(const QVariant &value)
{
    switch (familyOf(value)) {
    case Family::Nil:
        return true;
    case Family::Text:
        return textOf(value).isNull();
    case Family::Object:
        return !objectOf(value);
    default:
        return false;
    }
}

bool NSObject::isNumber(const QVariant &value)
{
    return isNumeric(familyOf(value));
}

bool NSObject::isEqual(const QVariant &left, const QVariant &right)
{
    const Family leftFamily = familyOf(left);
    const Family rightFamily = familyOf(right);
    if (isNumeric(leftFamily) && isNumeric(rightFamily))
        return compareNumbers(left, leftFamily, right, rightFamily) == 0;
    const bool isLeftNil = isNil(left);
    if (isLeftNil || isNil(right))
        return isLeftNil && isNil(right);
    return leftFamily == rightFamily && areSameFamilyEqual(leftFamily, left, right);
}

bool NSObject::isEqualTo(const QVariant &left, const QVariant &right)
{
    return isEqual(left, right) && !isNil(left);
}

bool NSObject::isIdenticalTo(const QVariant &left, const QVariant &right)
{
    if (left.metaType() != right.metaType())
        return false;
    switch (familyOf(left)) {
    case Family::Text:
        return textOf(left).constData() == textOf(right).constData() &&
               textOf(left).size() == textOf(right).size();
    case Family::Data:
        return left.toByteArray().constData() == right.toByteArray().constData();
    default:
        return isEqual(left, right);
    }
}

qint64 NSObject::integerValue(const QVariant &value)
{
    switch (familyOf(value)) {
    case Family::Text:
        return NSString::integerValue(textOf(value));
    case Family::Decimal:
        return value.value<NSDecimalNumber>().integerValue();
    case Family::Double:
        return isWhole(std::trunc(value.toDouble())) ? qint64(value.toDouble()) : 0;
    default:
        return isNumber(value) ? value.toLongLong() : 0;
    }
}

bool NSObject::boolValue(const QVariant &value)
{
    if (familyOf(value) == Family::Text)
        return NSString::boolValue(textOf(value));
    return isNumber(value) && !isEqual(value, QVariant(0));
}

size_t NSObject::hash(const QVariant &value)
{
    const Family family = familyOf(value);
    if (isNumeric(family))
        return hashOfNumber(value, family);
    switch (family) {
    case Family::Text:
        return textOf(value).isNull() ? 0 : qHash(textOf(value));
    case Family::Date:
        return qHash(value.toDateTime());
    case Family::Data:
        return qHash(value.toByteArray());
    case Family::List:
        return hashOfList(value.toList());
    case Family::Map:
        return hashOfList(value.toMap().values());
    case Family::Object:
        return qHash(objectOf(value));
    default:
        return 0;
    }
}

std::weak_ordering NSObject::compare(const QVariant &left, const QVariant &right)
{
    if (isNil(left) || isNil(right))
        return isNil(right) <=> isNil(left);
    const Family leftFamily = familyOf(left);
    const Family rightFamily = familyOf(right);
    if (isNumeric(leftFamily) && isNumeric(rightFamily))
        return compareNumbers(left, leftFamily, right, rightFamily);
    if (leftFamily != rightFamily)
        return leftFamily <=> rightFamily;
    if (leftFamily == Family::Text)
        return QString::compare(textOf(left), textOf(right)) <=> 0;
    if (leftFamily == Family::Date)
        return left.toDateTime().toMSecsSinceEpoch() <=> right.toDateTime().toMSecsSinceEpoch();
    if (left.metaType() != right.metaType())
        return left.typeId() <=> right.typeId();
    const QPartialOrdering order = QVariant::compare(left, right);
    return order == QPartialOrdering::Less      ? std::weak_ordering::less
           : order == QPartialOrdering::Greater ? std::weak_ordering::greater
                                                : std::weak_ordering::equivalent;
}

QString NSObject::description(const QVariant &value)
{
    return describeAtDepth(value, 0);
}

QVariant NSNull()
{
    return QVariant::fromValue(nullptr);
}

bool isNSNull(const QVariant &value)
{
    return value.typeId() == QMetaType::Nullptr;
}
