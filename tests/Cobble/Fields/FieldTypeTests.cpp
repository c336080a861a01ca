#include "Fields/FieldType.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
constexpr FieldType All[] = {FieldType::Number, FieldType::Currency, FieldType::Duration,
                             FieldType::Time,   FieldType::Date,     FieldType::DateTime,
                             FieldType::Phone,  FieldType::Media,    FieldType::Text};
} // namespace

TEST(FieldType, NamesAreStoredAndFoundAgain)
{
    for (const FieldType type : All)
        EXPECT_EQ(FieldTypes::storedTypeNamed(FieldTypes::nameOf(type)), type);
}

TEST(FieldType, WhatIsNotKnownIsStoredAsText)
{
    EXPECT_EQ(FieldTypes::storedTypeNamed(u"colour"_s), FieldType::Text);
    EXPECT_EQ(FieldTypes::storedTypeNamed(QString()), FieldType::Text);
}

TEST(FieldType, PeopleMayNameThoseWithAFormatter)
{
    EXPECT_EQ(FieldTypes::typeNamed(u"date+time"_s), FieldType::DateTime);
    EXPECT_EQ(FieldTypes::typeNamed(u"datetime"_s), FieldType::DateTime);
    EXPECT_EQ(FieldTypes::typeNamed(u"phone"_s), FieldType::Phone);
    for (const QString &name : {u"text"_s, u"media"_s, u"Number"_s, u""_s})
        EXPECT_FALSE(FieldTypes::typeNamed(name)) << name.toStdString();
}

TEST(FieldType, ListsTheNamesThatPeopleMayUse)
{
    EXPECT_EQ(FieldTypes::names().join(u' '),
              u"number currency duration time date date+time phone"_s);
}
