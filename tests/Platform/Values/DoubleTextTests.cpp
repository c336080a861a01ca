#include <KTUtility/NSObject>
#include <KTUtility/NSStringFormat>
#include <KTUtility/NSUserDefaults>

#include "support/TestSupport.h"

#include <cmath>
#include <limits>
#include <locale.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
struct Row
{
    QVariant number;
    QString text;
};

const std::vector<Row> &rows()
{
    static const std::vector<Row> rows = {
        {100000.0, u"100000"_s},
        {250000.0, u"250000"_s},
        {1e6, u"1000000"_s},
        {1e8, u"100000000"_s},
        {1e15, u"1000000000000000"_s},
        {1e16, u"1e+16"_s},
        {1e100, u"1e+100"_s},
        {99999.5, u"99999.5"_s},
        {123456.0, u"123456"_s},
        {0.1, u"0.1"_s},
        {0.1 + 0.2, u"0.3"_s},
        {1.0 / 3, u"0.3333333333333333"_s},
        {0.001, u"0.001"_s},
        {0.0001, u"0.0001"_s},
        {0.00001, u"1e-05"_s},
        {-2.5, u"-2.5"_s},
        {-0.0, u"-0"_s},
        {0.1f, u"0.1"_s},
        {100000.0f, u"100000"_s},
        {16777216.0f, u"1.677722e+07"_s},
        {std::numeric_limits<double>::infinity(), u"inf"_s},
        {std::nan(""), u"nan"_s},
    };
    return rows;
}
} // namespace

TEST(DoubleText, DescriptionsArePlainDigitsUpToSixteen)
{
    for (const auto &[number, text] : rows())
        EXPECT_EQ(NSObject::description(number), text);
}

TEST(DoubleText, FormatsPrintTheSame)
{
    for (const auto &[number, text] : rows()) {
        EXPECT_EQ(NSString::stringWithFormat(u"%@", number), text);
        if (number.typeId() == QMetaType::Float)
            EXPECT_EQ(NSString::stringWithFormat(u"%@", number.toFloat()), text);
        else
            EXPECT_EQ(NSString::stringWithFormat(u"%@", number.toDouble()), text);
    }
}

TEST(DoubleText, DefaultsGiveTheSame)
{
    testing_support::useFreshHome();
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    for (const double number : {100000.0, 0.0001, 2.5}) {
        defaults->setDouble(number, u"number"_s);
        EXPECT_EQ(defaults->stringForKey(u"number"_s), NSObject::description(number));
    }
    defaults->removeObjectForKey(u"number"_s);
}
