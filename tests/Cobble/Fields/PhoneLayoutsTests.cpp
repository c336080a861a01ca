#include "Fields/PhoneLayouts.h"

#include "support/TestSupport.h"

#include <KTUtility/KTPhoneNumberFormatter>

#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(PhoneLayouts, KnowsAllCountriesThatTheFrameworkHas)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/phones.jsonl"_s)) {
        const QStringList countries = row[u"country"].toString().split(u' ');
        for (const QString &country : countries)
            EXPECT_EQ(PhoneLayouts::indexForCountry(country), row[u"index"].toInt());
        ++checked;
    }
    EXPECT_EQ(checked, KTPhoneNumberFormatter::patternSets().size());
}

TEST(PhoneLayouts, HasNoneForOtherCountries)
{
    for (const QString &country : {u""_s, QString(), u"XX"_s, u"de"_s, u"US CA"_s, u"C"_s})
        EXPECT_EQ(PhoneLayouts::indexForCountry(country), -1) << qPrintable(country);
}
