#include "NSObject.h"

#include "NSDecimalNumber.h"
#include "NSStringValues.h"
#include "VariantKind_p.h"

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QMetaMethod>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <cmath>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
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
    switch (kindOf(value)) {
    case VariantKind::Decimal:
        return value.value<NSDecimalNumber>();
    case VariantKind::Bool:
    case VariantKind::Signed:
        return NSDecimalNumber(value.toLongLong());
    case VariantKind::Double:
        return decimalOfDouble(value.toDouble());
    default:
        return NSDecimalNumber::decimalNumberWithString(QString::number(value.toULongLong()));
    }
}

/// Integers of any signedness, exactly.
std::weak_ordering compareIntegers(const QVariant &left, VariantKind leftKind,
                                   const QVariant &right, VariantKind rightKind)
{
    if (leftKind == VariantKind::Signed && rightKind == VariantKind::Signed)
        return left.toLongLong() <=> right.toLongLong();
    if (leftKind == VariantKind::Signed && left.toLongLong() < 0)
        return std::weak_ordering::less;
    if (rightKind == VariantKind::Signed && right.toLongLong() < 0)
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
std::weak_ordering compareDoubleToInteger(double left, const QVariant &right, VariantKind rightKind)
{
    if (std::isnan(left) || left >= 0x1p64)
        return std::weak_ordering::greater;
    if (left < -0x1p63)
        return std::weak_ordering::less;
    const double whole = std::trunc(left);
    const auto order =
        whole >= 0x1p63
            ? compareIntegers(QVariant(quint64(whole)), VariantKind::Unsigned, right, rightKind)
            : compareIntegers(QVariant(qlonglong(whole)), VariantKind::Signed, right, rightKind);
    return order != 0 ? order : compareDoubles(left, whole);
}

double doubleOf(const QVariant &number)
{
    return kindOf(number) == VariantKind::Decimal ? number.value<NSDecimalNumber>().doubleValue()
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

std::weak_ordering compareNumbers(const QVariant &left, VariantKind leftKind, const QVariant &right,
                                  VariantKind rightKind)
{
    if (leftKind == VariantKind::Decimal || rightKind == VariantKind::Decimal)
        return compareDecimals(left, right);
    if (leftKind == VariantKind::Double && rightKind == VariantKind::Double)
        return compareDoubles(left.toDouble(), right.toDouble());
    if (leftKind == VariantKind::Double)
        return compareDoubleToInteger(left.toDouble(), right, rightKind);
    if (rightKind == VariantKind::Double)
        return 0 <=> compareDoubleToInteger(right.toDouble(), left, leftKind);
    return compareIntegers(left, leftKind, right, rightKind);
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

bool areSameKindEqual(VariantKind kind, const QVariant &left, const QVariant &right)
{
    switch (kind) {
    case VariantKind::Nil:
        return true;
    case VariantKind::Text:
        return textOf(left) == textOf(right);
    case VariantKind::Object:
        return objectOf(left) == objectOf(right);
    case VariantKind::List:
        return areListsEqual(left.toList(), right.toList());
    case VariantKind::Map:
        return areMapsEqual(left.toMap(), right.toMap());
    default:
        return left.metaType() == right.metaType() && left == right;
    }
}

size_t hashOfNumber(const QVariant &value, VariantKind kind)
{
    if (kind == VariantKind::Decimal)
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

QString describeNumber(const QVariant &value, VariantKind kind)
{
    switch (kind) {
    case VariantKind::Decimal:
        return value.value<NSDecimalNumber>().description();
    case VariantKind::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
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
    const auto character = value.value<char32_t>();
    return QString::fromUcs4(&character, 1);
}

QString describeOther(const QVariant &value)
{
    QString text = textOfCharacter(value);
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
    switch (const VariantKind kind = kindOf(value)) {
    case VariantKind::Text:
        return textOf(value);
    case VariantKind::Date:
        return describeDate(value.toDateTime());
    case VariantKind::Data:
        return describeData(value.toByteArray());
    case VariantKind::List:
        return describeList(value.toList(), depth);
    case VariantKind::Map:
        return describeMap(value.toMap(), depth);
    case VariantKind::Object:
        return describeObject(objectOf(value));
    default:
        return isNumeric(kind) ? describeNumber(value, kind) : describeOther(value);
    }
}
} // namespace

bool NSObject::isNil(const QVariant &value)
{
    switch (kindOf(value)) {
    case VariantKind::Nil:
        return true;
    case VariantKind::Text:
        return textOf(value).isNull();
    case VariantKind::Object:
        return !objectOf(value);
    default:
        return false;
    }
}

bool NSObject::isNumber(const QVariant &value)
{
    return isNumeric(kindOf(value));
}

bool NSObject::isEqual(const QVariant &left, const QVariant &right)
{
    const VariantKind leftKind = kindOf(left);
    const VariantKind rightKind = kindOf(right);
    if (isNumeric(leftKind) && isNumeric(rightKind))
        return compareNumbers(left, leftKind, right, rightKind) == 0;
    const bool isLeftNil = isNil(left);
    if (isLeftNil || isNil(right))
        return isLeftNil && isNil(right);
    return leftKind == rightKind && areSameKindEqual(leftKind, left, right);
}

bool NSObject::isEqualTo(const QVariant &left, const QVariant &right)
{
    return isEqual(left, right) && !isNil(left);
}

bool NSObject::isIdenticalTo(const QVariant &left, const QVariant &right)
{
    if (left.metaType() != right.metaType())
        return false;
    switch (kindOf(left)) {
    case VariantKind::Text:
        return textOf(left).constData() == textOf(right).constData() &&
               textOf(left).size() == textOf(right).size();
    case VariantKind::Data:
        return left.toByteArray().constData() == right.toByteArray().constData();
    default:
        return isEqual(left, right);
    }
}

qint64 NSObject::integerValue(const QVariant &value)
{
    switch (kindOf(value)) {
    case VariantKind::Text:
        return NSString::integerValue(textOf(value));
    case VariantKind::Decimal:
        return value.value<NSDecimalNumber>().integerValue();
    case VariantKind::Double:
        return isWhole(std::trunc(value.toDouble())) ? qint64(value.toDouble()) : 0;
    default:
        return isNumber(value) ? value.toLongLong() : 0;
    }
}

bool NSObject::boolValue(const QVariant &value)
{
    if (kindOf(value) == VariantKind::Text)
        return NSString::boolValue(textOf(value));
    return isNumber(value) && !isEqual(value, QVariant(0));
}

size_t NSObject::hash(const QVariant &value)
{
    const VariantKind kind = kindOf(value);
    if (isNumeric(kind))
        return hashOfNumber(value, kind);
    switch (kind) {
    case VariantKind::Text:
        return textOf(value).isNull() ? 0 : qHash(textOf(value));
    case VariantKind::Date:
        return qHash(value.toDateTime());
    case VariantKind::Data:
        return qHash(value.toByteArray());
    case VariantKind::List:
        return hashOfList(value.toList());
    case VariantKind::Map:
        return hashOfList(value.toMap().values());
    case VariantKind::Object:
        return qHash(objectOf(value));
    default:
        return 0;
    }
}

std::weak_ordering NSObject::compare(const QVariant &left, const QVariant &right)
{
    if (isNil(left) || isNil(right))
        return isNil(right) <=> isNil(left);
    const VariantKind leftKind = kindOf(left);
    const VariantKind rightKind = kindOf(right);
    if (isNumeric(leftKind) && isNumeric(rightKind))
        return compareNumbers(left, leftKind, right, rightKind);
    if (leftKind != rightKind)
        return leftKind <=> rightKind;
    if (leftKind == VariantKind::Text)
        return QString::compare(textOf(left), textOf(right)) <=> 0;
    if (leftKind == VariantKind::Date)
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
