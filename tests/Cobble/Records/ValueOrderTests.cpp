#include "Records/ValueOrder.h"

#include "Commands/UserSettings.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
QStringList ordered(QStringList texts)
{
    std::stable_sort(texts.begin(), texts.end(), [](const QString &left, const QString &right) {
        return ValueOrder::compare(left, right) < 0;
    });
    return texts;
}
} // namespace

TEST(ValueOrder, NumbersInTextsCountByTheirValue)
{
    EXPECT_EQ(ordered({u"a10"_s, u"a9"_s, u"a2"_s}), QStringList({u"a2"_s, u"a9"_s, u"a10"_s}));
}

TEST(ValueOrder, TextsAreInTheOrderOfTheLanguage)
{
    {
        const LocaleScope scope(u"de_DE"_s);
        EXPECT_EQ(ordered({u"Zug"_s, u"Äpfel"_s, u"Birne"_s}),
                  QStringList({u"Äpfel"_s, u"Birne"_s, u"Zug"_s}));
    }
    const LocaleScope scope(u"sv_SE"_s);
    EXPECT_EQ(ordered({u"Ärta"_s, u"Zebra"_s, u"Apa"_s}),
              QStringList({u"Apa"_s, u"Zebra"_s, u"Ärta"_s}));
}

TEST(ValueOrder, ValuesAreInTheOrderOfTheirKind)
{
    const QVariant two = QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"2"_s));
    const QVariant ten = QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"10"_s));
    EXPECT_TRUE(ValueOrder::compare(two, ten) < 0);
    EXPECT_TRUE(ValueOrder::compare(ten, two) > 0);
    EXPECT_TRUE(ValueOrder::compare(two, QVariant(2)) == 0);
    const QDateTime day(QDate(2008, 3, 4), QTime(12, 0), KTPrivate::UTC);
    EXPECT_TRUE(ValueOrder::compare(day, day.addSecs(1)) < 0);
}
