#include "Forms/DetailForm.h"

#include "support/TestSupport.h"

#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

namespace {
LibraryField fieldNamed(const QString &title, FieldType type)
{
    LibraryField field;
    field.columnName = QString(u"kt_" + title.toLower());
    field.header = title;
    field.type = type;
    return field;
}

class DetailFormTests : public testing::Test
{
protected:
    DetailFormTests()
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
        return rows.join(u", "_s);
    }

    static QVariantMap values(const QString &name, int age)
    {
        return {{u"kt_name"_s, name}, {u"kt_age"_s, age}};
    }

    FormField name{fieldNamed(u"Name"_s, FieldType::Text)};
    FormField age{fieldNamed(u"Age"_s, FieldType::Number)};
    FormRecord ada{values(u"Ada"_s, 1234)};
    FormRecord bob{values(u"Bob"_s, 5)};
    NSArrayController records;
    DetailForm form{&records};
};
} // namespace

TEST_F(DetailFormTests, FollowsTheSelection)
{
    EXPECT_EQ(shown(), u"Name: , Age: "_s);
    records.setSelectionIndex(0);
    EXPECT_EQ(shown(), u"Name: Ada, Age: 1,234"_s);
    records.selectNext();
    EXPECT_EQ(shown(), u"Name: Bob, Age: 5"_s);
}

TEST_F(DetailFormTests, FollowsTheValues)
{
    records.setSelectionIndex(0);
    NSKeyValueCoding::setValue(&ada, u"Augusta"_s, u"kt_name"_s);
    EXPECT_EQ(shown(), u"Name: Augusta, Age: 1,234"_s);
    NSKeyValueCoding::setValue(&bob, u"Robert"_s, u"kt_name"_s);
    EXPECT_EQ(shown(), u"Name: Augusta, Age: 1,234"_s);
}

TEST_F(DetailFormTests, FollowsTheFields)
{
    records.setSelectionIndex(0);
    FormRow *const rowOfName = form.rows().first();
    int changes = 0;
    QObject::connect(&form, &DetailForm::rowsChanged, &form, [&changes] { ++changes; });
    form.setFields({&age, &name});
    EXPECT_EQ(shown(), u"Age: 1,234, Name: Ada"_s);
    EXPECT_EQ(form.rows().last(), rowOfName);
    form.setFields({&name});
    EXPECT_EQ(shown(), u"Name: Ada"_s);
    form.setFields({});
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(changes, 3);
    form.setFields({&age});
    age.setTitle(u"Years"_s);
    EXPECT_EQ(shown(), u"Years: 1,234"_s);
}

TEST_F(DetailFormTests, TellsNobodyWhenItGoes)
{
    int changes = 0;
    auto other = std::make_unique<DetailForm>(&records);
    QObject::connect(other.get(), &DetailForm::rowsChanged, other.get(), [&changes] { ++changes; });
    other->setFields({&name});
    EXPECT_EQ(changes, 1);
    other.reset();
    EXPECT_EQ(changes, 1);
}

TEST_F(DetailFormTests, WhatIsTypedGoesToTheRecord)
{
    records.setSelectionIndex(0);
    EXPECT_TRUE(form.rows().at(1)->setText(u"2,000"_s));
    EXPECT_TRUE(NSObject::isEqual(ada.values().value(u"kt_age"_s), 2000));
    EXPECT_EQ(shown(), u"Name: Ada, Age: 2,000"_s);
    EXPECT_EQ(form.rows().at(1)->setText(u"cow"_s).reason(),
              u"The text is no number, or has something else in it."_s);
    EXPECT_EQ(shown(), u"Name: Ada, Age: 2,000"_s);
    EXPECT_TRUE(form.rows().at(1)->setText(QString()));
    EXPECT_FALSE(ada.values().value(u"kt_age"_s).isValid());
    EXPECT_EQ(shown(), u"Name: Ada, Age: "_s);
}

TEST_F(DetailFormTests, SeveralRecordsAreChangedAtOnce)
{
    records.setSelectionIndexes({0, 1});
    EXPECT_TRUE(form.rows().at(1)->setText(u"7"_s));
    for (const FormRecord *const record : {&ada, &bob})
        EXPECT_TRUE(NSObject::isEqual(record->values().value(u"kt_age"_s), 7));
}

TEST_F(DetailFormTests, TypedTextsThatWereNotReadAreShownAsTheyAre)
{
    NSKeyValueCoding::setValue(&ada, u"about 40"_s, u"kt_age"_s);
    records.setSelectionIndex(0);
    EXPECT_EQ(shown(), u"Name: Ada, Age: about 40"_s);
}
