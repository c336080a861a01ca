#include <KTUtility/NSCharacterSet>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/NSScanner>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

#include <QJsonArray>

#include <functional>

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

namespace {
QString operationOf(const QJsonObject &row)
{
    return row.value(u"op"_s).toString();
}

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

    /// Runs a step.
    /// \return false if there is no such operation.
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

TEST(NSScannerTable, EveryStepGivesItsResult)
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
