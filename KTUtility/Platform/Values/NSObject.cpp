#include "NSObject.h"

#include "Description_p.h"
#include "NSDecimalNumber.h"
#include "NSStringValues.h"
#include "ValueHash_p.h"
#include "VariantKind_p.h"

#include <QDateTime>
#include <QLocale>
#include <QObject>

#include <algorithm>
#include <cmath>
#include <limits>

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

NSDecimalNumber decimalOfUnsigned(quint64 value)
{
    return NSDecimalNumber::decimalNumberWithString(QString::number(value));
}

/// What may equal an integer exactly, other numbers by the shortest text that means the same double
/// (0.1 is one tenth).
NSDecimalNumber decimalOfDouble(double value)
{
    if (isWhole(value))
        return NSDecimalNumber(qint64(value));
    if (value >= 0x1p63 && value < 0x1p64)
        return decimalOfUnsigned(quint64(value));
    if (value == -0x1p63)
        return NSDecimalNumber(std::numeric_limits<qint64>::min());
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
        return decimalOfUnsigned(value.toULongLong());
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

/// Values of one type. Coordinates are compared exactly, as the hash sees them.
bool areOthersEqual(const QVariant &left, const QVariant &right)
{
    const auto coordinates = coordinatesOf(left);
    return coordinates ? coordinates == coordinatesOf(right) : left == right;
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
        return left.metaType() == right.metaType() && areOthersEqual(left, right);
    }
}

std::weak_ordering compareLists(const QVariantList &left, const QVariantList &right)
{
    for (qsizetype index = 0; index < std::min(left.size(), right.size()); ++index) {
        const std::weak_ordering order = NSObject::compare(left.at(index), right.at(index));
        if (order != 0)
            return order;
    }
    return left.size() <=> right.size();
}

/// Maps by their keys in order, then by their values.
std::weak_ordering compareMaps(const QVariantMap &left, const QVariantMap &right)
{
    const QStringList leftKeys = left.keys();
    const QStringList rightKeys = right.keys();
    const std::weak_ordering order = leftKeys < rightKeys   ? std::weak_ordering::less
                                     : rightKeys < leftKeys ? std::weak_ordering::greater
                                                            : std::weak_ordering::equivalent;
    return order != 0 ? order : compareLists(left.values(), right.values());
}

/// Values of one type, as the type itself orders them; equivalent if it does not.
std::weak_ordering compareOthers(const QVariant &left, const QVariant &right)
{
    const QPartialOrdering order = QVariant::compare(left, right);
    return order == QPartialOrdering::Less      ? std::weak_ordering::less
           : order == QPartialOrdering::Greater ? std::weak_ordering::greater
                                                : std::weak_ordering::equivalent;
}

/// Values of one kind that are neither nil nor numbers.
std::weak_ordering compareSameKind(VariantKind kind, const QVariant &left, const QVariant &right)
{
    switch (kind) {
    case VariantKind::Text:
        return QString::compare(textOf(left), textOf(right)) <=> 0;
    case VariantKind::Date:
        return left.toDateTime().toMSecsSinceEpoch() <=> right.toDateTime().toMSecsSinceEpoch();
    case VariantKind::List:
        return compareLists(left.toList(), right.toList());
    case VariantKind::Map:
        return compareMaps(left.toMap(), right.toMap());
    default:
        return left.metaType() == right.metaType() ? compareOthers(left, right)
                                                   : left.typeId() <=> right.typeId();
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

std::weak_ordering NSObject::compare(const QVariant &left, const QVariant &right)
{
    if (isNil(left) || isNil(right))
        return isNil(right) <=> isNil(left);
    const VariantKind leftKind = kindOf(left);
    const VariantKind rightKind = kindOf(right);
    if (isNumeric(leftKind) && isNumeric(rightKind))
        return compareNumbers(left, leftKind, right, rightKind);
    return leftKind == rightKind ? compareSameKind(leftKind, left, right) : leftKind <=> rightKind;
}

size_t NSObject::hash(const QVariant &value)
{
    return hashOf(value);
}

void NSObject::registerHash(QMetaType type, size_t (*hash)(const void *value))
{
    setHasher(type, hash);
}

QString NSObject::description(const QVariant &value)
{
    return describe(value);
}

QVariant NSNull()
{
    return QVariant::fromValue(nullptr);
}

bool isNSNull(const QVariant &value)
{
    return value.typeId() == QMetaType::Nullptr;
}
