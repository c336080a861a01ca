#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSCalendar>
#include <KTUtility/NSDecimalNumber>

#include "support/DefaultLocale.h"
#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// English texts, Swiss numbers, French money, British dates: what desktops call formats.
struct MixedEnvironment
{
    DefaultLocale unchanged{QLocale::system()};
    EnvironmentGuard all{"LC_ALL", QByteArray()};
    EnvironmentGuard language{"LANGUAGE", "en"};
    EnvironmentGuard other{"LANG", "de_DE.UTF-8"};
    EnvironmentGuard numbers{"LC_NUMERIC", "de_CH.UTF-8"};
    EnvironmentGuard money{"LC_MONETARY", "fr_FR.UTF-8"};
    EnvironmentGuard dates{"LC_TIME", "en_GB.UTF-8"};
};
} // namespace

TEST(FormatterLocale, EachFormatterHasTheLocaleOfItsCategory)
{
    const MixedEnvironment mixed;
    EXPECT_EQ(KTNumberFormatter().locale().localeIdentifier(), u"de_CH"_s);
    EXPECT_EQ(KTCurrencyFormatter().locale().localeIdentifier(), u"fr_FR"_s);
    EXPECT_EQ(KTDateTimeFormatter().locale().localeIdentifier(), u"en_GB"_s);
    EXPECT_EQ(KTTimeFormatter().locale().localeIdentifier(), u"en_GB"_s);
    EXPECT_EQ(NSCalendar().locale().localeIdentifier(), u"en_GB"_s);
}

TEST(FormatterLocale, ACommaIsAPointWhereNumbersSaySoWhateverTextsSay)
{
    const DefaultLocale unchanged(QLocale::system());
    const EnvironmentGuard all("LC_ALL", QByteArray());
    const EnvironmentGuard numbers("LC_NUMERIC", QByteArray());
    const EnvironmentGuard lang("LANG", "de_DE.UTF-8");
    const EnvironmentGuard language("LANGUAGE", "en");
    QVariant value;
    ASSERT_TRUE(KTNumberFormatter().getObjectValue(&value, u"1,50"_s, nullptr));
    EXPECT_EQ(value.value<NSDecimalNumber>(), NSDecimalNumber::decimalNumberWithString(u"1.5"_s));
}
