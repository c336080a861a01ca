#include "Forms/DetailForm.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSLocale>
#include <KTUtility/NSObject>

namespace {
LibraryField fieldNamed(const QString &title, FieldType type)
{
    LibraryField field;
    field.columnName = QString(u"kt_" + title.toLower());
    field.header = title;
    field.type = type;
    return field;
}

class DetailFormTest : public testing::Test
{
protected:
    DetailFormTest()
    {
        records.setContent({QVariant::fromValue(&ada), QVariant::fromValue(&bob)});
        form.setFields({&name, &age});
    }

    /// What the form shows: "title: text, …".
    QString shown() const
    {
        QStringList rows;
        for (const FormRow *const row : form.rows())
            rows += row->label().toString() + u": " + row->text();
        return rows.join(QStringLiteral(", "));
    }

    static QVariantMap values(const QString &name, int age)
    {
        return {{QStringLiteral("kt_name"), name}, {QStringLiteral("kt_age"), age}};
    }

    FormField name{fieldNamed(QStringLiteral("Name"), FieldType::Text)};
    FormField age{fieldNamed(QStringLiteral("Age"), FieldType::Number)};
    FormRecord ada{values(QStringLiteral("Ada"), 1234)};
    FormRecord bob{values(QStringLiteral("Bob"), 5)};
    NSArrayController records;
    DetailForm form{&records};
};
} // namespace

TEST_F(DetailFormTest, FollowsTheSelection)
{
    EXPECT_EQ(shown(), QStringLiteral("Name: , Age: "));
    records.setSelectionIndex(0);
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada, Age: 1,234"));
    records.selectNext();
    EXPECT_EQ(shown(), QStringLiteral("Name: Bob, Age: 5"));
}

TEST_F(DetailFormTest, FollowsTheValues)
{
    records.setSelectionIndex(0);
    NSKeyValueCoding::setValue(&ada, QStringLiteral("Augusta"), QStringLiteral("kt_name"));
    EXPECT_EQ(shown(), QStringLiteral("Name: Augusta, Age: 1,234"));
    NSKeyValueCoding::setValue(&bob, QStringLiteral("Robert"), QStringLiteral("kt_name"));
    EXPECT_EQ(shown(), QStringLiteral("Name: Augusta, Age: 1,234"));
}

TEST_F(DetailFormTest, FollowsTheFields)
{
    records.setSelectionIndex(0);
    FormRow *const rowOfName = form.rows().first();
    int changes = 0;
    QObject::connect(&form, &DetailForm::rowsChanged, &form, [&changes] { ++changes; });
    form.setFields({&age, &name});
    EXPECT_EQ(shown(), QStringLiteral("Age: 1,234, Name: Ada"));
    EXPECT_EQ(form.rows().last(), rowOfName);
    form.setFields({&name});
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada"));
    form.setFields({});
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(changes, 3);
    form.setFields({&age});
    age.setTitle(QStringLiteral("Years"));
    EXPECT_EQ(shown(), QStringLiteral("Years: 1,234"));
}

TEST_F(DetailFormTest, TellsNobodyWhenItGoes)
{
    int changes = 0;
    auto other = std::make_unique<DetailForm>(&records);
    QObject::connect(other.get(), &DetailForm::rowsChanged, other.get(), [&changes] { ++changes; });
    other->setFields({&name});
    EXPECT_EQ(changes, 1);
    other.reset();
    EXPECT_EQ(changes, 1);
}

TEST_F(DetailFormTest, WhatIsTypedGoesToTheRecord)
{
    records.setSelectionIndex(0);
    EXPECT_TRUE(form.rows().at(1)->setText(QStringLiteral("2,000")));
    EXPECT_TRUE(NSObject::isEqual(ada.values().value(QStringLiteral("kt_age")), 2000));
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada, Age: 2,000"));
    QString reason;
    EXPECT_FALSE(form.rows().at(1)->setText(QStringLiteral("cow"), &reason));
    EXPECT_EQ(reason, QStringLiteral("it is no number"));
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada, Age: 2,000"));
    EXPECT_TRUE(form.rows().at(1)->setText(QString()));
    EXPECT_FALSE(ada.values().value(QStringLiteral("kt_age")).isValid());
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada, Age: "));
}

TEST_F(DetailFormTest, SeveralRecordsAreChangedAtOnce)
{
    records.setSelectionIndexes({0, 1});
    EXPECT_TRUE(form.rows().at(1)->setText(QStringLiteral("7")));
    for (const FormRecord *const record : {&ada, &bob})
        EXPECT_TRUE(NSObject::isEqual(record->values().value(QStringLiteral("kt_age")), 7));
}

TEST_F(DetailFormTest, TypedTextsThatWereNotReadAreShownAsTheyAre)
{
    NSKeyValueCoding::setValue(&ada, QStringLiteral("about 40"), QStringLiteral("kt_age"));
    records.setSelectionIndex(0);
    EXPECT_EQ(shown(), QStringLiteral("Name: Ada, Age: about 40"));
}

TEST(FormRecord, AnswersItsOwnKeysOnly)
{
    FormRecord record({{QStringLiteral("a"), QVariant()}});
    EXPECT_TRUE(record.valueForKey(QStringLiteral("a")).has_value());
    EXPECT_FALSE(record.valueForKey(QStringLiteral("b")).has_value());
    EXPECT_TRUE(record.setValueForKey(1, QStringLiteral("a")));
    EXPECT_FALSE(record.setValueForKey(1, QStringLiteral("b")));
}
