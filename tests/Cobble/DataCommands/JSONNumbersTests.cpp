#include "DataCommands/JSONNumbers.h"

#include <gtest/gtest.h>

#include <QTest>

TEST(JSONNumbers, FindsWhatADoubleDoesNotKeep)
{
    const struct
    {
        QByteArray json;
        QString inexact;
    } rows[] = {
        {"", {}},
        {"[0.1, -2.50, 1e3, 0.30000000000000004]", {}},
        {"[9223372036854775807, -9007199254740993]", {}},
        {"[0.1, 0.1234567890123456789, 12345678901234.56789]",
         QStringLiteral("0.1234567890123456789")},
        {"{\"a\": -12345678901234.56789}", QStringLiteral("-12345678901234.56789")},
        {"1.000000000000000000000", {}},
        {"1.000000000000000000001", QStringLiteral("1.000000000000000000001")},
        {"[\"0.1234567890123456789\", \"\\\"0.1234567890123456789\"]", {}},
        {"[\"\\\\\", 0.1234567890123456789]", QStringLiteral("0.1234567890123456789")},
        {"\"never closed 0.1234567890123456789", {}},
        {"\"\\", {}},
        {"true, null, false, e, +, -", {}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(JSONNumbers::firstInexact(row.json), row.inexact) << row.json.constData();
}
