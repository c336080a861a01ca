#include "Fields/FieldTypeTitles.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(FieldTypeTitles, EachTypeHasItsOwn)
{
    const std::pair<FieldType, QString> titles[] = {
        {FieldType::Number, u"Number"_s},      {FieldType::Currency, u"Currency"_s},
        {FieldType::Duration, u"Duration"_s},  {FieldType::Time, u"Time"_s},
        {FieldType::Date, u"Date"_s},          {FieldType::DateTime, u"Date and time"_s},
        {FieldType::Phone, u"Phone number"_s}, {FieldType::Media, u"Picture"_s},
        {FieldType::Text, u"Text"_s},
    };
    for (const auto &[type, title] : titles)
        EXPECT_EQ(FieldTypeTitles::titleOf(type), title);
}

TEST(FieldTypeTitles, ACurrencyIsNamed)
{
    EXPECT_EQ(FieldTypeTitles::titleOf(FieldType::Currency, u"EUR"_s), u"Currency (EUR)"_s);
    EXPECT_EQ(FieldTypeTitles::titleOf(FieldType::Date, QString()), u"Date"_s);
}

TEST(FieldTypeTitles, EachTypeIsOfferedOnce)
{
    QStringList titles;
    for (const FieldType type : FieldTypeTitles::types())
        titles += FieldTypeTitles::titleOf(type);
    EXPECT_EQ(titles.size(), FieldTypes::names().size() + 2);
    EXPECT_EQ(titles.removeDuplicates(), 0);
}
