#include "Fields/FieldFormat.h"

#include "support/TestSupport.h"

#include <KTUtility/KTReadingFormatter>
#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

TEST(FieldFormat, TheExampleOfTheHeader)
{
    const FieldFormat format = FieldFormat::of(FieldType::Date);
    QVariant value;
    ASSERT_TRUE(format.formatter->getObjectValue(&value, u"March 5, 2008"_s, nullptr));
    EXPECT_EQ(format.formatter->stringForObjectValue(value), u"3/5/2008"_s);
}

TEST(FieldFormat, WhatHasANameHasAFormatter)
{
    for (const QString &name : FieldTypes::names())
        EXPECT_TRUE(FieldFormat::of(*FieldTypes::typeNamed(name)).formatter) << name.toStdString();
    EXPECT_FALSE(FieldFormat::of(FieldType::Text).formatter);
    EXPECT_FALSE(FieldFormat::of(FieldType::Media).formatter);
}

TEST(FieldFormat, NothingWasReadAtFirst)
{
    for (const FieldType type : {FieldType::Time, FieldType::Date, FieldType::DateTime})
        EXPECT_TRUE(FieldFormat::of(type).recentPattern().isNull());
}

TEST(FieldFormat, DurationsAloneAreHelpedByImports)
{
    for (const QString &name : FieldTypes::names()) {
        const FieldType type = *FieldTypes::typeNamed(name);
        const FieldFormat format = FieldFormat::of(type);
        EXPECT_EQ(bool(format.willImport), type == FieldType::Duration);
        EXPECT_EQ(bool(format.didImport), type == FieldType::Duration);
    }
}

TEST(FieldFormat, ItsFunctionsStayWithTheFormatterWhenItMoves)
{
    FieldFormat first = FieldFormat::of(FieldType::Duration);
    const FieldFormat moved = std::move(first);
    const QString text = u"45s"_s;
    moved.willImport(text);
    QVariant value;
    EXPECT_TRUE(moved.formatter->getObjectValue(&value, text, nullptr));
    moved.didImport(text);
    EXPECT_TRUE(NSObject::isEqual(value, 45));
}

TEST(FieldFormat, DatesWithATimeReadBoth)
{
    const FieldFormat format = FieldFormat::of(FieldType::DateTime);
    qobject_cast<KTReadingFormatter *>(format.formatter.get())->setReadsCommonForms(false);
    QVariant value;
    ASSERT_TRUE(format.formatter->getObjectValue(&value, u"3/5/2008 5:30 PM"_s, nullptr));
    EXPECT_TRUE(format.recentPattern().contains(u'd') && format.recentPattern().contains(u'h'));
}
