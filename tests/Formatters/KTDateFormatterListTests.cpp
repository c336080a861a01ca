#include <KTUtility/KTDateFormatterList>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/KTTimeFormatter>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// A list of three formatters, whose patterns are "d", "dd" and "ddd".
class CountedList
{
public:
    const KTDateFormatterList list{3, [this](size_t index) {
                                       ++madeFormatters;
                                       auto formatter = std::make_shared<NSDateFormatter>();
                                       formatter->setDateFormat(
                                           QString(qsizetype(index) + 1, u'd'));
                                       return formatter;
                                   }};
    std::atomic<int> madeFormatters = 0;
};

/// The formatters of a locale that no other test asks for are not made yet.
std::unique_ptr<KTDateTimeFormatter> formatterIn(const QString &locale)
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setLocale(NSLocale(locale));
    return formatter;
}
} // namespace

TEST(KTDateFormatterList, MakesAFormatterWhenItIsAskedForOnly)
{
    const CountedList counted;
    EXPECT_EQ(counted.list.size(), 3U);
    EXPECT_EQ(counted.list.madeCount(), 0U);
    EXPECT_EQ(counted.list[1]->dateFormat(), u"dd");
    EXPECT_EQ(counted.list.madeCount(), 1U);
    EXPECT_EQ(counted.madeFormatters, 1);
}

TEST(KTDateFormatterList, KeepsWhatItMade)
{
    const CountedList counted;
    const NSDateFormatter *const first = counted.list[0].get();
    EXPECT_EQ(counted.list[2]->dateFormat(), u"ddd");
    EXPECT_EQ(counted.list[0].get(), first);
    counted.list.makeAll();
    EXPECT_EQ(counted.list[0].get(), first);
    EXPECT_EQ(counted.list.madeCount(), 3U);
    EXPECT_EQ(counted.madeFormatters, 3);
}

TEST(KTDateFormatterList, MayBeEmpty)
{
    const KTDateFormatterList list(0, [](size_t) { return std::make_shared<NSDateFormatter>(); });
    list.makeAll();
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.madeCount(), 0U);
}

TEST(KTDateFormatterList, MakesEachFormatterOnceForSeveralThreads)
{
    constexpr size_t Size = 100;
    std::atomic<int> made = 0;
    const KTDateFormatterList list(Size, [&made](size_t) {
        ++made;
        return std::make_shared<NSDateFormatter>();
    });
    std::vector<std::thread> threads;
    std::atomic<int> missing = 0;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (size_t index = 0; index < Size; ++index)
                missing += list[index] == nullptr;
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(made, int(Size));
}

TEST(KTDateFormatterList, OfAFieldIsMadeAsFarAsATextNeeds)
{
    const auto field = formatterIn(u"en_BW"_s);
    const KTDateFormatterList &dates = field->strictDateFormatters();
    EXPECT_EQ(dates.madeCount(), 0U);
    QVariant value;
    EXPECT_TRUE(field->getObjectValue(&value, u"5/3/08"_s));
    EXPECT_EQ(field->mostRecentFormatter(), dates[dates.madeCount() - 1].get());
    EXPECT_LT(dates.madeCount(), 5U);
    EXPECT_EQ(field->strictTimeFormatters().madeCount(), 0U);
    EXPECT_FALSE(field->getObjectValue(&value, u"nothing"_s));
    EXPECT_EQ(dates.madeCount(), dates.size());
    EXPECT_EQ(field->strictTimeFormatters().madeCount(), field->strictTimeFormatters().size());
}

TEST(KTDateFormatterList, IsSharedByFieldsWithTheSameSettings)
{
    const auto field = formatterIn(u"en_ZM"_s);
    const auto other = formatterIn(u"en_ZM"_s);
    EXPECT_EQ(&field->strictDateFormatters(), &other->strictDateFormatters());
    EXPECT_EQ(&field->strictTimeFormatters(), &other->strictTimeFormatters());
    EXPECT_EQ(&field->strictIsoFormatters(), &other->strictIsoFormatters());
    EXPECT_EQ(&field->strictFormattersForDateFormat(u"d/M"_s),
              &other->strictFormattersForDateFormat(u"d/M"_s));
    EXPECT_NE(&field->strictFormattersForDateFormat(u"d/M"_s),
              &other->strictFormattersForDateFormat(u"d-M"_s));
    EXPECT_NE(&field->strictDateFormatters(), &formatterIn(u"en_ZA"_s)->strictDateFormatters());
}

TEST(KTDateFormatterList, IsNotSharedByFieldsWithAnotherDefaultDate)
{
    const auto date = formatterIn(u"ja_JP"_s);
    KTTimeFormatter time;
    time.setLocale(NSLocale(u"ja_JP"_s));
    EXPECT_NE(&date->strictTimeFormatters(), &time.strictTimeFormatters());
    EXPECT_FALSE(date->strictTimeFormatters()[0]->defaultDate().isValid());
    EXPECT_TRUE(time.strictTimeFormatters()[0]->defaultDate().isValid());
}

TEST(KTDateFormatterList, IsMadeAtOnceWhereItIsLogged)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    const auto field = formatterIn(u"en_ZM"_s);
    const KTDateFormatterList &iso = field->strictIsoFormatters();
    EXPECT_EQ(iso.madeCount(), iso.size());
    EXPECT_EQ(
        log.messages(),
        (QStringList{u"KTDateTimeFormatter creating formatter, format=yyyy-MM-dd'T'HH:mm:ss"_s,
                     u"KTDateTimeFormatter creating formatter, format=yyyy-MM-dd HH:mm:ss"_s,
                     u"KTDateTimeFormatter creating formatter, format=yyyy-MM-dd"_s}));
    EXPECT_NE(&iso, &formatterIn(u"en_ZM"_s)->strictIsoFormatters());
}

TEST(KTDateFormatterList, IsNotLoggedWhenATextNeedsItLater)
{
    useFreshHome();
    const auto field = formatterIn(u"en_NA"_s);
    EXPECT_EQ(field->strictDateFormatters().madeCount(), 0U);
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    QVariant value;
    EXPECT_TRUE(field->getObjectValue(&value, u"5/3/08"_s));
    EXPECT_TRUE(log.messages().filter(u"creating"_s).isEmpty());
}
