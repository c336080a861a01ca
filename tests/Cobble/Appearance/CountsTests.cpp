#include "Appearance/Counts.h"

#include "support/TestSupport.h"

#include "Appearance/WindowLanguage.h"

#include <KTUtility/NSLocale>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
struct Counted
{
    const char16_t *locale;
    qint64 count;
    QString records;
    QString found;
};

const Counted Rows[] = {
    {u"en_US", 0, u"0 records"_s, u"1 of 0 records"_s},
    {u"en_US", 1, u"1 record"_s, u"1 of 1 record"_s},
    {u"en_US", 100'000, u"100,000 records"_s, u"1 of 100,000 records"_s},
    {u"en_US", 3'000'000'000, u"3,000,000,000 records"_s, u"1 of 3,000,000,000 records"_s},
    {u"en_IN", 100'000, u"1,00,000 records"_s, u"1 of 1,00,000 records"_s},
    {u"de_DE", 1, u"1 Datensatz"_s, u"1 von 1 Datensatz"_s},
    {u"de_CH", 12'345, u"12’345 Datensätze"_s, u"1 von 12’345 Datensätzen"_s},
    {u"fr_FR", 0, u"0 enregistrement"_s, u"1 enregistrement sur 0"_s},
    {u"ja_JP", 2'000, u"2,000 件のレコード"_s, u"2,000 件中 1 件"_s},
};
} // namespace

class CountsTests : public testing_support::WindowedTest
{
protected:
    ~CountsTests() override { NSLocale::resetCurrentLocale(); }
};

TEST_F(CountsTests, HaveTheFormsAndSeparatorsOfTheUser)
{
    for (const Counted &row : Rows) {
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(row.locale)));
        const WindowLanguage language;
        EXPECT_EQ(Counts::records(row.count), row.records);
        EXPECT_EQ(Counts::recordsOf(1, row.count), row.found);
    }
}

TEST_F(CountsTests, LargeCountsArePlural)
{
    EXPECT_EQ(Counts::plural(1), 1);
    EXPECT_EQ(Counts::plural(qint64(1) << 32), std::numeric_limits<int>::max());
}
