#include "Fields/FieldReader.h"

#include "Commands/UserSettings.h"
#include "Fields/FieldValue.h"

#include "support/TestSupport.h"

#include <KTUtility/KTReadingFormatter>
#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

namespace {
const QString NoNumber = u"The text is no number, or has something else in it."_s;

/// What a field of a type reads, or why it does not.
QString readBy(FieldType type, const QString &text)
{
    const Outcome<QVariant> value = FieldReader(type).read(text);
    return value ? FieldValue::textOf(*value) : value.reason();
}
} // namespace

TEST(FieldReader, TheExampleOfTheHeader)
{
    const FieldReader reader(FieldType::Number);
    EXPECT_TRUE(NSObject::isEqual(*reader.read(u"1,234"_s), 1234));
    EXPECT_EQ(reader.read(u"12abc"_s).reason(), NoNumber);
}

TEST(FieldReader, TellsWhyATextIsNoValueOfItsType)
{
    EXPECT_EQ(readBy(FieldType::Number, u"cow"_s), NoNumber);
    EXPECT_EQ(readBy(FieldType::Currency, u"cow"_s),
              u"The text is no amount in USD, or has something else in it."_s);
    EXPECT_EQ(readBy(FieldType::Date, u"cow"_s),
              u"The text is in no form of dates and times that is known."_s);
    EXPECT_EQ(readBy(FieldType::Time, u"25:00"_s), u"There is no such time."_s);
    EXPECT_FALSE(FieldReader(FieldType::Duration).read(u"cow"_s));
}

TEST(FieldReader, TextsAndMediaAreWhatTheyAre)
{
    for (const FieldType type : {FieldType::Text, FieldType::Media}) {
        const FieldReader reader(type);
        EXPECT_EQ(reader.formatter(), nullptr);
        for (const QString &text : testing_support::hostileTexts())
            EXPECT_EQ(reader.read(text, true)->toString(), text);
    }
}

TEST(FieldReader, NothingTypedIsNoValue)
{
    for (const FieldType type : {FieldType::Number, FieldType::Date, FieldType::Text}) {
        const Outcome<QVariant> value = FieldReader(type).readTyped(u""_s);
        ASSERT_TRUE(value);
        EXPECT_FALSE(value->isValid());
    }
}

TEST(FieldReader, WhatIsTypedAndNotReadHasAReason)
{
    for (const QString &name : FieldTypes::names()) {
        const FieldReader reader(*FieldTypes::typeNamed(name));
        for (const QString &text : testing_support::hostileTexts()) {
            const Outcome<QVariant> value = reader.readTyped(text);
            EXPECT_TRUE(value || !value.reason().isEmpty()) << name.toStdString();
        }
    }
}

TEST(FieldReader, ImportedDurationsMayBeSeconds)
{
    const FieldReader reader(FieldType::Duration);
    const Outcome<QVariant> imported = reader.read(u"45s"_s, true);
    ASSERT_TRUE(imported) << imported.reason().toStdString();
    EXPECT_TRUE(NSObject::isEqual(*imported, 45));
    // The help for imports ends with the value.
    const Outcome<QVariant> typed = reader.read(u"45s"_s);
    EXPECT_EQ(bool(typed), bool(FieldReader(FieldType::Duration).read(u"45s"_s)));
}

TEST(FieldReader, KnowsThePatternThatReadTheText)
{
    const FieldReader reader(FieldType::Date);
    reader.setReadsCommonForms(false);
    ASSERT_TRUE(reader.read(u"March 5, 2008"_s));
    EXPECT_TRUE(reader.recentPattern().contains(u"MMM")) << reader.recentPattern().toStdString();
    ASSERT_TRUE(reader.read(u"2008-03-05T17:30:00"_s));
    EXPECT_TRUE(reader.recentPattern().isNull()) << reader.recentPattern().toStdString();
}

TEST(FieldReader, OnlyDatesHavePatternsAndOnlyAmountsCurrencies)
{
    for (const QString &name : FieldTypes::names()) {
        const FieldType type = *FieldTypes::typeNamed(name);
        const FieldReader reader(type);
        (void)reader.read(u"5"_s);
        EXPECT_EQ(reader.currencyType().isNull(), type != FieldType::Currency);
        const bool isDate =
            type == FieldType::Date || type == FieldType::Time || type == FieldType::DateTime;
        EXPECT_TRUE(isDate || reader.recentPattern().isNull());
    }
    EXPECT_TRUE(FieldReader(FieldType::Text).currencyType().isNull());
    EXPECT_TRUE(FieldReader(FieldType::Text).recentPattern().isNull());
}

TEST(FieldReader, TheCurrencyIsTheUsersUnlessItIsSet)
{
    const LocaleScope scope(u"de_DE"_s);
    const FieldReader reader(FieldType::Currency);
    EXPECT_EQ(reader.currencyType(), u"EUR"_s);
    reader.formatter()->setOptions({{u"currencyType"_s, u"GBP"_s}});
    EXPECT_EQ(reader.currencyType(), u"GBP"_s);
}

TEST(FieldReader, TakesNoSeparatorForAnotherOne)
{
    const QString reason =
        u"The separators do not stand where groups of digits end or the fraction begins."_s;
    EXPECT_EQ(readBy(FieldType::Number, u"1,50"_s), reason);
    EXPECT_EQ(readBy(FieldType::Currency, u"$1,50"_s), reason);
    EXPECT_EQ(readBy(FieldType::Number, u"1,500.25"_s), u"1500.25"_s);
    EXPECT_EQ(readBy(FieldType::Currency, u"$1,500.25"_s), u"1500.25"_s);
}

TEST(FieldReader, TakesNumbersBetweenMarksOfDirection)
{
    for (const QString &text : {u"12\u200F"_s, u"\u202A12\u202C"_s, u"\u2066 12 \u2069 "_s}) {
        EXPECT_EQ(readBy(FieldType::Number, text), u"12"_s);
        EXPECT_EQ(readBy(FieldType::Currency, text), u"12"_s);
    }
    EXPECT_EQ(readBy(FieldType::Currency, u"\u2066($1,234)\u2069"_s), u"-1234"_s);
    EXPECT_EQ(readBy(FieldType::Number, u"12\u200Fx"_s), NoNumber);
    EXPECT_EQ(readBy(FieldType::Number, u"\u202A\u202C"_s), NoNumber);
}

TEST(FieldReader, ImportedValuesAreReadAsTheirColumnSays)
{
    FieldReader reader(FieldType::Number);
    std::optional<KTColumnReading> column = reader.newColumn();
    ASSERT_TRUE(column);
    column->add(u"1,5"_s);
    reader.setColumn(*column);
    EXPECT_TRUE(NSObject::isEqual(*reader.read(u"1.234"_s, true), 1234));
    EXPECT_EQ(reader.read(u"1.5"_s, true).reason(),
              u"The text contradicts what the other texts of its column are read by."_s);
    // What is typed into a field is not.
    EXPECT_TRUE(NSObject::isEqual(*reader.read(u"1.5"_s), 1.5));
    EXPECT_TRUE(FieldReader(FieldType::Date).newColumn());
    EXPECT_FALSE(FieldReader(FieldType::Text).newColumn());
}

TEST(FieldReader, ReadsCommonFormsUnlessToldNotTo)
{
    for (const QString &name : FieldTypes::names()) {
        const FieldReader reader(*FieldTypes::typeNamed(name));
        const auto *const formatter = qobject_cast<KTReadingFormatter *>(reader.formatter());
        ASSERT_NE(formatter, nullptr) << name.toStdString();
        EXPECT_TRUE(formatter->readsCommonForms()) << name.toStdString();
        reader.setReadsCommonForms(false);
        EXPECT_FALSE(formatter->readsCommonForms()) << name.toStdString();
    }
    FieldReader(FieldType::Text).setReadsCommonForms(false);
    EXPECT_FALSE(FieldReader(FieldType::Text).reading().isRead());
}
