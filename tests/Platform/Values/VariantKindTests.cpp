#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSStringFormat>
#include <KTUtility/Platform/Values/VariantKind_p.h>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QFloat16>
#include <QObject>

#include <climits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using Kind = VariantKind;

enum class TestColour { Red, Green = 7 };
enum class TestLevel : uchar { Low, High = 200 };

namespace {

/// A value, and everything that goes by its kind.
struct Row
{
    const char *type;
    QVariant value;
    Kind kind;
    const char *asInteger;
    const char *asHexadecimal;
    const char *asReal;
    /// The element of a property list; empty for what none can hold.
    const char *element;
};

QVariant decimal(QStringView text)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text));
}

QList<Row> numbers()
{
    return {
        {"bool", true, Kind::Bool, "1", "1", "1.0", "<true/>"},
        {"bool", false, Kind::Bool, "0", "0", "0.0", "<false/>"},
        {"char", QVariant::fromValue('A'), Kind::Signed, "65", "41", "65.0",
         "<integer>65</integer>"},
        {"signed char", QVariant::fromValue<signed char>(-56), Kind::Signed, "-56", "ffffffc8",
         "-56.0", "<integer>-56</integer>"},
        {"uchar", QVariant::fromValue<uchar>(200), Kind::Unsigned, "200", "c8", "200.0",
         "<integer>200</integer>"},
        {"short", QVariant::fromValue<short>(-200), Kind::Signed, "-200", "ffffff38", "-200.0",
         "<integer>-200</integer>"},
        {"ushort", QVariant::fromValue<ushort>(65535), Kind::Unsigned, "65535", "ffff", "65535.0",
         "<integer>65535</integer>"},
        {"int", -1, Kind::Signed, "-1", "ffffffff", "-1.0", "<integer>-1</integer>"},
        {"uint", UINT_MAX, Kind::Unsigned, "4294967295", "ffffffff", "4294967295.0",
         "<integer>4294967295</integer>"},
        {"long", QVariant::fromValue(-1L), Kind::Signed, "-1", "ffffffffffffffff", "-1.0",
         "<integer>-1</integer>"},
        {"ulong", QVariant::fromValue(5UL), Kind::Unsigned, "5", "5", "5.0",
         "<integer>5</integer>"},
        {"long long", LLONG_MIN, Kind::Signed, "-9223372036854775808", "8000000000000000",
         "-9223372036854775808.0", "<integer>-9223372036854775808</integer>"},
        {"ulonglong", ULLONG_MAX, Kind::Unsigned, "18446744073709551615", "ffffffffffffffff",
         "18446744073709551616.0", "<integer>18446744073709551615</integer>"},
        {"float", 0.5F, Kind::Double, "0.5", "0.5", "0.5", "<real>0.5</real>"},
        {"double", 2.25, Kind::Double, "2.25", "2.25", "2.2", "<real>2.25</real>"},
        {"decimal", decimal(u"12.34"), Kind::Decimal, "12.34", "12.34", "12.3",
         "<real>12.34</real>"},
        {"enumeration", QVariant::fromValue(TestColour::Green), Kind::Signed, "7", "7", "7.0",
         "<integer>7</integer>"},
        {"unsigned enumeration", QVariant::fromValue(TestLevel::High), Kind::Unsigned, "200", "c8",
         "200.0", "<integer>200</integer>"},
        {"flags", QVariant::fromValue(Qt::Alignment(Qt::AlignRight)), Kind::Signed, "2", "2", "2.0",
         "<integer>2</integer>"},
        {"whole decimal", decimal(u"-12"), Kind::Decimal, "-12", "-12", "-12.0",
         "<integer>-12</integer>"},
    };
}

/// What arithmetic is possible with, in C++ or in Qt, and is no number here.
QList<Row> otherValues()
{
    return {
        {"QChar", QChar(u'A'), Kind::Other, "A", "A", "A", ""},
        {"char16_t", QVariant::fromValue(u'A'), Kind::Other, "A", "A", "A", ""},
        {"char32_t", QVariant::fromValue(U'A'), Kind::Other, "A", "A", "A", ""},
    };
}

std::string element(const QVariant &value)
{
    const QByteArray data = NSPropertyListSerialization::dataWithPropertyList(value);
    const qsizetype start = data.indexOf("<plist version=\"1.0\">\n") + 22;
    return data.isNull() ? "" : data.mid(start).chopped(10).toStdString();
}

std::string format(QStringView text, const QVariant &value)
{
    return NSString::stringWithFormat(text, value).toStdString();
}

void expectRow(const Row &row)
{
    SCOPED_TRACE(row.type);
    EXPECT_EQ(kindOf(row.value), row.kind);
    EXPECT_EQ(NSObject::isNumber(row.value), isNumeric(row.kind));
    EXPECT_EQ(format(u"%d", row.value), row.asInteger);
    EXPECT_EQ(format(u"%x", row.value), row.asHexadecimal);
    EXPECT_EQ(format(u"%.1f", row.value), row.asReal);
    EXPECT_EQ(element(row.value), row.element);
}
} // namespace

TEST(VariantKind, NumbersOfEveryTypePrintAndAreStoredAlike)
{
    for (const Row &row : numbers()) {
        expectRow(row);
        EXPECT_TRUE(isNumeric(row.kind)) << row.type;
    }
}

TEST(VariantKind, CharactersAreNoNumbers)
{
    for (const Row &row : otherValues()) {
        expectRow(row);
        EXPECT_FALSE(isNumeric(row.kind)) << row.type;
    }
}

TEST(VariantKind, ANumberEqualsTheSameNumberInEveryOtherType)
{
    for (const Row &row : numbers()) {
        const QVariant same = decimal(NSObject::description(row.value));
        EXPECT_TRUE(NSObject::isEqual(row.value, same)) << row.type;
        EXPECT_TRUE(NSObject::isEqual(same, row.value)) << row.type;
        EXPECT_EQ(NSObject::hash(row.value), NSObject::hash(same)) << row.type;
        EXPECT_FALSE(NSObject::isEqual(row.value, NSObject::description(row.value))) << row.type;
    }
}

TEST(VariantKind, SmallNumbersOfAllTypesAreOne)
{
    const QList<QVariant> ones{QVariant::fromValue<char>(1),
                               QVariant::fromValue<signed char>(1),
                               QVariant::fromValue<uchar>(1),
                               QVariant::fromValue<short>(1),
                               QVariant::fromValue<ushort>(1),
                               true,
                               1,
                               1U,
                               QVariant::fromValue(1L),
                               QVariant::fromValue(1UL),
                               1LL,
                               1ULL,
                               1.0F,
                               1.0,
                               decimal(u"1")};
    for (const QVariant &left : ones) {
        for (const QVariant &right : ones) {
            EXPECT_TRUE(NSObject::isEqual(left, right)) << left.typeName() << right.typeName();
            EXPECT_TRUE(NSObject::compare(left, right) == 0) << left.typeName();
        }
        EXPECT_EQ(NSObject::integerValue(left), 1) << left.typeName();
        EXPECT_TRUE(NSObject::boolValue(left)) << left.typeName();
        EXPECT_EQ(format(u"%c", left).size(), 1U) << left.typeName();
    }
}

TEST(VariantKind, OtherKinds)
{
    const QList<std::pair<QVariant, Kind>> rows{
        {QVariant(), Kind::Nil},
        {QString(), Kind::Text},
        {u"5"_s, Kind::Text},
        {QDateTime(), Kind::Date},
        {QByteArray(), Kind::Data},
        {QVariantList(), Kind::List},
        {QStringList(), Kind::List},
        {QVariantMap(), Kind::Map},
        {QVariantHash(), Kind::Map},
        {QVariant::fromValue<QObject *>(nullptr), Kind::Object},
        {NSNull(), Kind::Other},
        {QVariant::fromValue(qfloat16(1.0F)), Kind::Other},
        {QDate(2008, 3, 4), Kind::Other},
    };
    for (const auto &[value, kind] : rows)
        EXPECT_EQ(kindOf(value), kind) << value.typeName();
}

TEST(VariantKind, AHashIsStoredAsAMapIs)
{
    const QVariantMap map{{u"a"_s, 1}, {u"b"_s, u"two"_s}};
    QVariantHash hash;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        hash.insert(entry.key(), entry.value());
    EXPECT_EQ(element(hash), element(map));
    EXPECT_TRUE(NSObject::isEqual(hash, map));
}
