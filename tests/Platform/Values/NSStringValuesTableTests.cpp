// The tables of platform facts: scanners, character sets, values of texts, URLs, decimals.

#include <KTUtility/NSCharacterSet>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>
#include <KTUtility/NSScanner>
#include <KTUtility/NSStringCase>
#include <KTUtility/NSStringCompare>
#include <KTUtility/NSStringEncoding>
#include <KTUtility/NSStringTrim>
#include <KTUtility/NSStringValues>
#include <KTUtility/NSURL>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <QJsonArray>
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

// --- Values of texts

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

// --- Scanners

/// A set as the scanner rows write it: the name of a predefined one, a text in quotes, or both
/// joined with "+".
NSCharacterSet setFrom(const QString &text)
{
    NSCharacterSet set;
    for (const QString &part : text.split(u'+')) {
        const bool isQuoted = part.startsWith(u'"');
        set = set.unionWithCharacterSet(
            isQuoted
                ? NSCharacterSet::characterSetWithCharactersInString(part.mid(1, part.size() - 2))
                : testing_support::characterSetNamed(part));
    }
    return set;
}

/// The result of one step: a number, a text, a bool; nil when the scan fails.
class ScannerSteps
{
public:
    explicit ScannerSteps(const QJsonObject &row) : _scanner(row.value(u"input"_s).toString())
    {
        const QJsonValue skip = row.value(u"skip"_s);
        if (!skip.toString().startsWith(u"whitespaceAndNewline"))
            _scanner.setCharactersToBeSkipped(NSCharacterSet());
    }

    /// Runs a step. \return false if there is no such operation.
    bool run(const QJsonObject &step, QVariant *result)
    {
        const QString operation = operationOf(step);
        const QString argument = step.value(u"arg"_s).toString();
        QString text;
        const auto textIf = [&](bool isFound) { *result = isFound ? QVariant(text) : QVariant(); };
        if (operation == u"scanString")
            textIf(_scanner.scanString(argument, &text));
        else if (operation == u"scanUpToString")
            textIf(_scanner.scanUpToString(argument, &text));
        else if (operation == u"scanCharactersFromSet")
            textIf(_scanner.scanCharactersFromSet(setFrom(argument), &text));
        else if (operation == u"scanUpToCharactersFromSet")
            textIf(_scanner.scanUpToCharactersFromSet(setFrom(argument), &text));
        else if (operation == u"isAtEnd")
            *result = _scanner.isAtEnd();
        else if (operation == u"scanLocation")
            *result = _scanner.scanLocation();
        else if (operation == u"caseSensitive")
            *result = _scanner.caseSensitive();
        else
            return runNumber(operation, result);
        return true;
    }

private:
    template<typename Number>
    bool number(bool (NSScanner::*scan)(Number *), QVariant *result)
    {
        Number value = 0;
        *result = (_scanner.*scan)(&value) ? QVariant::fromValue(value) : QVariant();
        return true;
    }

    bool runNumber(const QString &operation, QVariant *result)
    {
        if (operation == u"scanInt")
            return number(&NSScanner::scanInt, result);
        if (operation == u"scanLongLong")
            return number(&NSScanner::scanLongLong, result);
        if (operation == u"scanHexInt")
            return number(&NSScanner::scanHexInt, result);
        if (operation == u"scanHexUInt64")
            return number(&NSScanner::scanHexLongLong, result);
        if (operation == u"scanDouble" || operation == u"scanFloat")
            return number(&NSScanner::scanDouble, result);
        return false;
    }

    NSScanner _scanner;
};
} // namespace

TEST(PlatformTables, ValuesOfTexts)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/string_values.jsonl"_s)) {
        const auto function = textFunctions().find(operationOf(row));
        // Rows about functions that QString has itself, and readings of "-y" that are not ours.
        if (function == textFunctions().end() || row.contains(u"difference"_s))
            continue;
        const QVariant result = function->second(row.value(u"input"_s));
        EXPECT_TRUE(NSObject::isEqual(result, row.value(u"expected"_s).toVariant()) ||
                    result.toDouble() == row.value(u"expected"_s).toDouble())
            << function->first.toStdString() << ' '
            << row.value(u"input"_s).toVariant().toString().toStdString() << " gives "
            << NSObject::description(result).toStdString();
        ++rows;
    }
    EXPECT_EQ(rows, 94);
}

TEST(PlatformTables, MembersOfCharacterSets)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/character_sets.jsonl"_s)) {
        const QString code = row.value(u"codepoint"_s).toString();
        const QString name = row.value(u"set"_s).toString();
        if (!code.startsWith(u"U+"))
            continue;
        const char32_t character = code.mid(2).toUInt(nullptr, 16);
        EXPECT_EQ(testing_support::characterSetNamed(name).characterIsMember(character),
                  row.value(u"member"_s).toBool())
            << name.toStdString() << ' ' << code.toStdString();
        ++rows;
    }
    EXPECT_GE(rows, 150);
}

TEST(PlatformTables, ScannerSteps)
{
    int steps = 0;
    for (const QJsonObject &row : rowsOf(u"platform/scanner.jsonl"_s)) {
        ScannerSteps scanner(row);
        const QJsonArray sequence = row.value(u"steps"_s).toArray();
        for (const QJsonValue step : sequence) {
            const QJsonValue expected = step[u"expected"_s];
            QVariant result;
            // Steps of operations that this scanner does not have end the row.
            if (!scanner.run(step.toObject(), &result))
                break;
            const bool isSeparators = expected.toString() == u"<separators>";
            EXPECT_TRUE(isSeparators ? result.isValid()
                                     : NSObject::isEqual(result, expected.toVariant()) ||
                                           (result.isValid() && expected.isDouble() &&
                                            result.toDouble() == expected.toDouble()) ||
                                           (!result.isValid() && expected.isNull()))
                << row.value(u"input"_s).toString().toStdString() << ": "
                << operationOf(step.toObject()).toStdString() << " gives "
                << NSObject::description(result).toStdString();
            ++steps;
        }
    }
    EXPECT_GE(steps, 70);
}

TEST(PlatformTables, URLs)
{
    for (const QJsonObject &row : rowsOf(u"platform/url_parse.jsonl"_s)) {
        const QString text = row.value(u"input"_s).toString(QString());
        const auto url = NSURL::URLWithString(text);
        EXPECT_EQ(url.has_value(), row.value(u"accepted"_s).toBool()) << text.toStdString();
        if (url) {
            EXPECT_EQ(url->absoluteString(), text);
            if (row.contains(u"scheme"_s)) {
                EXPECT_EQ(url->scheme(), row.value(u"scheme"_s).toString(QString()));
            }
        }
    }
}

TEST(PlatformTables, Decimals)
{
    const auto decimal = [](const QJsonValue &text) {
        return NSDecimalNumber::decimalNumberWithString(text.toString());
    };
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/decimal.jsonl"_s)) {
        const QString operation = operationOf(row);
        const QJsonArray arguments = row.value(u"args"_s).toArray();
        const QJsonValue expected = row.value(u"expected"_s);
        SCOPED_TRACE(operation.toStdString() + ' ' + arguments.at(0).toString().toStdString());
        // A number keeps 38 digits here, also where 39 would fit its 128 bits.
        const bool has39Digits = arguments.at(0).toString().size() == 40;
        if (row.contains(u"difference"_s) || has39Digits)
            continue;
        ++rows;
        if (operation == u"description") {
            EXPECT_EQ(decimal(arguments.at(0)).description(), expected.toString());
        } else if (operation == u"compare") {
            const auto order = decimal(arguments.at(0)) <=> decimal(arguments.at(1));
            EXPECT_EQ(order < 0 ? -1 : order > 0 ? 1 : 0, expected.toInt());
        } else if (operation == u"intValue") {
            EXPECT_EQ(decimal(arguments.at(0)).integerValue(), expected.toInteger());
        } else if (operation == u"fromString" && expected.toString().startsWith(u"non-nil")) {
            EXPECT_FALSE(decimal(arguments.at(0)).isNaN());
        } else if (operation == u"fromString") {
            const bool isNaN = expected.isNull() || expected.toString() == u"NaN";
            EXPECT_EQ(decimal(arguments.at(0)).isNaN(), isNaN);
            EXPECT_TRUE(isNaN || decimal(arguments.at(0)) == decimal(expected));
        } else {
            --rows;
        }
    }
    EXPECT_EQ(rows, 27);
}
