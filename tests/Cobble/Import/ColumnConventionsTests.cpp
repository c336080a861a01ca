#include "Import/ColumnConventions.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(ColumnConventions, EachKindIsToldItsOwn)
{
    const ColumnConventions told{u"dmy"_s, u","_s, u"m:s"_s};
    EXPECT_EQ(told.conventionOf(KTColumnReading::Dates), u"dmy"_s);
    EXPECT_EQ(told.conventionOf(KTColumnReading::Numbers), u","_s);
    EXPECT_EQ(told.conventionOf(KTColumnReading::Amounts), u","_s);
    EXPECT_EQ(told.conventionOf(KTColumnReading::Durations), u"m:s"_s);
    EXPECT_TRUE(told.currency().isNull());
    EXPECT_TRUE(told.isAny());
    EXPECT_FALSE(ColumnConventions().isAny());
}

TEST(ColumnConventions, AUnitIsACurrencyOrAClock)
{
    const ColumnConventions told{{}, {}, u"EUR"_s};
    EXPECT_EQ(told.currency(), u"EUR"_s);
    EXPECT_TRUE(told.conventionOf(KTColumnReading::Durations).isNull());
}

TEST(ColumnConventions, ReadersGetWhatIsTold)
{
    const ColumnConventions told{u"dmy"_s, {}, {}};
    const auto dates = told.newColumnFor(FieldReader(FieldType::Date));
    ASSERT_TRUE(dates);
    EXPECT_EQ(dates->basis(), KTColumnReading::Told);
    EXPECT_EQ(dates->convention(), u"dmy"_s);
    const auto numbers = told.newColumnFor(FieldReader(FieldType::Number));
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers->basis(), KTColumnReading::Locale);
    EXPECT_FALSE(told.newColumnFor(FieldReader(FieldType::Phone)));
    EXPECT_FALSE(told.newColumnFor(FieldReader(FieldType::Time)));
}
