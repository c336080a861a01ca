#include <KTUtility/NSNumberFormatter>
#include <KTUtility/SharedNumberFormatter>

#include "support/TestSupport.h"

#include <QTextCharFormat>

#include <array>
#include <thread>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
SharedNumberFormatter decimalFormatter()
{
    SharedNumberFormatter formatter(std::make_unique<NSNumberFormatter>());
    formatter.edit().setLocale(NSLocale(u"en_US"_s));
    formatter.edit().setNumberStyle(NSNumberFormatterDecimalStyle);
    return formatter;
}

using Setting = void (*)(NSNumberFormatter &formatter);

/// Something that each of two otherwise equal formatters may have, and the other not.
constexpr std::array<Setting, 12> Settings{{
    [](NSNumberFormatter &formatter) { formatter.setNegativeSuffix(u""_s); },
    [](NSNumberFormatter &formatter) { formatter.setNegativeSuffix(u")"_s); },
    [](NSNumberFormatter &formatter) { formatter.setMinimumFractionDigits(2); },
    [](NSNumberFormatter &formatter) { formatter.setGeneratesDecimalNumbers(true); },
    [](NSNumberFormatter &formatter) { formatter.setAllowsFloats(false); },
    [](NSNumberFormatter &formatter) { formatter.setZeroSymbol(u"none"_s); },
    [](NSNumberFormatter &formatter) { formatter.setNilSymbol(QString()); },
    [](NSNumberFormatter &formatter) { formatter.setPositiveInfinitySymbol(u"much"_s); },
    [](NSNumberFormatter &formatter) { formatter.setNegativeInfinitySymbol(u"little"_s); },
    [](NSNumberFormatter &formatter) { formatter.setLocale(NSLocale(u"de_DE"_s)); },
    [](NSNumberFormatter &formatter) { formatter.setCurrencySymbol(u"$"_s); },
    [](NSNumberFormatter &formatter) {
        formatter.setTextAttributesForNegativeValues(QTextCharFormat());
    },
}};

int changesMade = 0;

void useGroups(NSNumberFormatter &formatter, const QString &)
{
    ++changesMade;
    formatter.setUsesGroupingSeparator(true);
}

void setPrefix(NSNumberFormatter &formatter, const QString &prefix)
{
    formatter.setPositivePrefix(prefix);
}
} // namespace

TEST(SharedNumberFormatter, IsOneForTheSameSettings)
{
    const SharedNumberFormatter first = decimalFormatter();
    const SharedNumberFormatter second = decimalFormatter();
    EXPECT_EQ(&*first, &*second);
    EXPECT_EQ(first->stringForObjectValue(5), u"5"_s);
}

TEST(SharedNumberFormatter, IsAnotherForOtherSettings)
{
    const SharedNumberFormatter plain = decimalFormatter();
    std::vector<const NSNumberFormatter *> seen{&*plain};
    std::vector<SharedNumberFormatter> kept;
    for (const Setting set : Settings) {
        SharedNumberFormatter other = decimalFormatter();
        set(other.edit());
        EXPECT_EQ(std::count(seen.begin(), seen.end(), &*other), 0) << kept.size();
        seen.push_back(&*other);
        kept.push_back(std::move(other));
    }
}

TEST(SharedNumberFormatter, EditingOneLeavesTheOthers)
{
    SharedNumberFormatter first = decimalFormatter();
    const SharedNumberFormatter second = decimalFormatter();
    EXPECT_EQ(first->stringForObjectValue(0.5), u"0.5"_s);
    first.edit().setMinimumFractionDigits(3);
    EXPECT_EQ(first->stringForObjectValue(0.5), u"0.500"_s);
    EXPECT_EQ(second->stringForObjectValue(0.5), u"0.5"_s);
    first.edit().setNegativePrefix(u"("_s);
    EXPECT_EQ(first->minimumFractionDigits(), 3);
}

TEST(SharedNumberFormatter, AChangeIsMadeOnce)
{
    changesMade = 0;
    const SharedNumberFormatter formatter = decimalFormatter();
    const SharedNumberFormatter changed = formatter.changed(useGroups);
    EXPECT_EQ(&*changed, &*decimalFormatter().changed(useGroups));
    EXPECT_EQ(changesMade, 1);
    EXPECT_EQ(&*changed, &*changed.changed(useGroups));
    EXPECT_EQ(changesMade, 2);
    EXPECT_EQ(formatter.changed(setPrefix, u"a"_s)->stringForObjectValue(1), u"a1"_s);
    EXPECT_EQ(formatter.changed(setPrefix, u"b"_s)->stringForObjectValue(1), u"b1"_s);
    EXPECT_EQ(formatter->stringForObjectValue(1), u"1"_s);
}

TEST(SharedNumberFormatter, IsKeptByItsOwnerHoweverManyOthersCome)
{
    const SharedNumberFormatter first = decimalFormatter();
    const NSNumberFormatter *const address = &*first;
    for (int count = 0; count < 600; ++count) {
        SharedNumberFormatter other = decimalFormatter();
        other.edit().setPositivePrefix(QString::number(count) + u':');
        ASSERT_EQ(other->stringForObjectValue(7), QString::number(count) + u":7"_s);
        ASSERT_EQ(other.changed(setPrefix, u"x"_s)->stringForObjectValue(7), u"x7"_s);
    }
    EXPECT_EQ(&*first, address);
    EXPECT_EQ(first->stringForObjectValue(5), u"5"_s);
    EXPECT_EQ(first.changed(setPrefix, u"y"_s)->stringForObjectValue(7), u"y7"_s);
}

TEST(SharedNumberFormatter, SeveralThreadsUseOne)
{
    std::vector<std::thread> threads;
    std::array<QString, 4> texts;
    for (QString &text : texts) {
        threads.emplace_back([&text] {
            const SharedNumberFormatter formatter = decimalFormatter();
            for (int count = 0; count < 50; ++count) {
                QVariant value;
                formatter.changed(setPrefix, QString::number(count % 5))
                    ->getObjectValue(&value, u"1"_s);
                text = formatter->stringForObjectValue(1234.5);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (const QString &text : texts)
        EXPECT_EQ(text, u"1,234.5"_s);
}
