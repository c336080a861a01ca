// What texts are as numbers, in other letter cases, in order and in encodings.

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSStringCase>
#include <KTUtility/NSStringCompare>
#include <KTUtility/NSStringEncoding>
#include <KTUtility/NSStringTrim>
#include <KTUtility/NSStringValues>

#include "support/TestSupport.h"

#include <QLocale>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

namespace {
QString operationOf(const QJsonObject &row)
{
    return row.value(u"op"_s).toString();
}

using TextFunction = std::function<QVariant(const QJsonValue &)>;

QVariant localizedOrder(const QJsonValue &pair, const char *locale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLatin1String(locale)));
    const auto order = NSString::localizedCompare(pair[0].toString(), pair[1].toString());
    QLocale::setDefault(before);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

const std::map<QString, TextFunction> &textFunctions()
{
    static const std::map<QString, TextFunction> table = {
        {u"boolValue"_s, [](const QJsonValue &v) { return NSString::boolValue(v.toString()); }},
        {u"integerValue"_s,
         [](const QJsonValue &v) { return NSString::integerValue(v.toString()); }},
        {u"longLongValue"_s,
         [](const QJsonValue &v) { return NSString::integerValue(v.toString()); }},
        {u"intValue"_s, [](const QJsonValue &v) { return NSString::integerValue(v.toString()); }},
        {u"doubleValue"_s, [](const QJsonValue &v) { return NSString::doubleValue(v.toString()); }},
        {u"floatValue"_s, [](const QJsonValue &v) { return NSString::doubleValue(v.toString()); }},
        {u"lowercaseString"_s,
         [](const QJsonValue &v) { return NSString::lowercaseString(v.toString()); }},
        {u"uppercaseString"_s,
         [](const QJsonValue &v) { return NSString::uppercaseString(v.toString()); }},
        {u"capitalizedString"_s,
         [](const QJsonValue &v) { return NSString::capitalizedString(v.toString()); }},
        {u"stringByTrimmingCharactersInSet:whitespaceAndNewline"_s,
         [](const QJsonValue &v) {
             return NSString::stringByTrimmingWhitespaceAndNewlines(v.toString());
         }},
        {u"canBeConvertedToEncoding:ISOLatin1"_s,
         [](const QJsonValue &v) {
             return NSString::canBeConvertedToEncoding(v.toString(), NSISOLatin1StringEncoding);
         }},
        {u"canBeConvertedToEncoding:ASCII"_s,
         [](const QJsonValue &v) {
             return NSString::canBeConvertedToEncoding(v.toString(), NSASCIIStringEncoding);
         }},
        {u"localizedCompare en_US"_s,
         [](const QJsonValue &v) { return localizedOrder(v, "en_US"); }},
        {u"localizedCompare sv_SE"_s,
         [](const QJsonValue &v) { return localizedOrder(v, "sv_SE"); }},
    };
    return table;
}

/// Numbers by value; what JSON has no number for is a text in the tables.
bool isSame(const QVariant &result, const QJsonValue &expected)
{
    return expected.isDouble()
               ? NSObject::isNumber(result) && result.toDouble() == expected.toDouble()
               : NSObject::isEqual(result, expected.toVariant());
}
} // namespace

TEST(NSStringValuesTable, EveryRowGivesItsResult)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/string_values.jsonl"_s)) {
        const auto function = textFunctions().find(operationOf(row));
        // Rows about functions that QString has itself, and readings of "-y" that are not ours.
        if (function == textFunctions().end() || row.contains(u"difference"_s))
            continue;
        const QVariant result = function->second(row.value(u"input"_s));
        EXPECT_TRUE(isSame(result, row.value(u"expected"_s)))
            << function->first.toStdString() << ' '
            << row.value(u"input"_s).toVariant().toString().toStdString() << " gives "
            << NSObject::description(result).toStdString();
        ++rows;
    }
    EXPECT_EQ(rows, 94);
}
