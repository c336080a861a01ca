#include "Making/FieldPlan.h"

#include "Cobble/Journal/StoreSupport.h"

#include <KTUtility/NSLocale>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
class FieldPlanTests : public testing_support::StoreTest
{
protected:
    FieldPlanTests() { NSLocale::setCurrentLocale(NSLocale(u"en_US"_s)); }
    ~FieldPlanTests() override { NSLocale::resetCurrentLocale(); }

    qint64 makePlan(const FieldPlan &plan)
    {
        const qint64 step = make([&](StepRecorder &recorder) { return plan.make(recorder); });
        people = store->libraryNamed(u"People"_s).valueOr(people);
        return step;
    }
    static QStringList titlesOf(const FieldPlan &plan)
    {
        QStringList titles;
        for (const FieldPlan::Field &each : plan.fields())
            titles += each.field.title();
        return titles;
    }
};

using Changes = std::function<void(FieldPlan &)>;
} // namespace

TEST_F(FieldPlanTests, AllOfItIsOneStep)
{
    FieldPlan plan(people);
    plan.rename(0, u" Full Name "_s);
    plan.setType(1, FieldType::Text, {});
    plan.remove(2);
    plan.add(FieldPlan::newField(u"Note"_s, FieldType::Text));
    plan.add(FieldPlan::newField(u"Photo"_s, FieldType::Number), 0);
    plan.move(2, 1);
    const QString after =
        u"People(Photo, Age, Full Name, Note): 1 nil 31 Ann nil; 2 nil nil Bob nil; 3 nil 4.5 Cid nil"_s;
    const qint64 step = makePlan(plan);
    ASSERT_GT(step, 0) << reason.toStdString();
    EXPECT_EQ(content(), after);
    EXPECT_EQ(people.fields.at(1).type, FieldType::Text);
    EXPECT_EQ(people.fields.at(0).type, FieldType::Number);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(store->libraryNamed(u"People"_s)->fields.at(1).type, FieldType::Number);
    EXPECT_EQ(redo(step), QString());
    EXPECT_EQ(content(), after);
}

TEST_F(FieldPlanTests, IsCalledByWhatItDoes)
{
    const struct
    {
        Changes changes;
        QString kind;
        QString field;
    } rows[] = {
        {[](FieldPlan &plan) { plan.rename(0, u"Who"_s); }, StepKinds::RenameField, u"Who"_s},
        {[](FieldPlan &plan) { plan.move(2, 0); }, StepKinds::MoveField, u"Photo"_s},
        {[](FieldPlan &plan) { plan.setType(1, FieldType::Text, {}); }, StepKinds::ChangeType,
         u"Age"_s},
        {[](FieldPlan &plan) {
             plan.setOptions(1, {{u"decimalPlaces"_s, 2}});
         },
         StepKinds::ChangeOptions, u"Age"_s},
        {[](FieldPlan &plan) { plan.remove(1); }, StepKinds::RemoveField, u"Age"_s},
        {[](FieldPlan &plan) { plan.add(testing_support::fieldOf(u"Note"_s), 1); },
         StepKinds::AddField, u"Note"_s},
        {[](FieldPlan &plan) {
             plan.move(0, 1);
             plan.remove(2);
         },
         StepKinds::ChangeFields, QString()},
    };
    for (const auto &row : rows) {
        FieldPlan plan(people);
        row.changes(plan);
        EXPECT_FALSE(plan.isEmpty());
        EXPECT_EQ(plan.title().kind, row.kind);
        EXPECT_EQ(plan.title().parameters.value(StepParameters::Field).toString(), row.field);
        EXPECT_EQ(plan.title().parameters.value(StepParameters::Library), u"People"_s);
    }
}

TEST_F(FieldPlanTests, WhatIsTakenBackIsNoChange)
{
    const QString before = content();
    const Changes rows[] = {
        [](FieldPlan &) {},
        [](FieldPlan &plan) {
            plan.rename(0, u"Who"_s);
            plan.rename(0, u"Name"_s);
        },
        [](FieldPlan &plan) {
            plan.move(0, 2);
            plan.move(2, 0);
        },
        [](FieldPlan &plan) {
            plan.setType(1, FieldType::Date, {});
            plan.keepType(1);
        },
        [](FieldPlan &plan) {
            plan.add(testing_support::fieldOf(u"Note"_s), 1);
            plan.remove(1);
        },
    };
    for (const Changes &changes : rows) {
        FieldPlan plan(people);
        changes(plan);
        EXPECT_TRUE(plan.isEmpty());
        EXPECT_EQ(makePlan(plan), 0);
        EXPECT_EQ(content(), before);
    }
}

TEST_F(FieldPlanTests, TitlesThatAreGivenAreTheirOwn)
{
    const struct
    {
        Changes changes;
        QString reason;
    } rows[] = {
        {[](FieldPlan &plan) { plan.rename(0, u"age"_s); }, u"there is a field of that name"_s},
        {[](FieldPlan &plan) { plan.rename(0, u"  "_s); }, u"a field needs a name"_s},
        {[](FieldPlan &plan) { plan.add(testing_support::fieldOf(u"PHOTO "_s)); },
         u"there is a field of that name"_s},
        {[](FieldPlan &plan) {
             plan.rename(0, u"Age"_s);
             plan.rename(1, u"Name"_s);
         },
         QString()},
        {[](FieldPlan &plan) {
             plan.remove(1);
             plan.rename(0, u"Age"_s);
         },
         QString()},
        {[](FieldPlan &plan) { plan.rename(0, u"NAME"_s); }, QString()},
    };
    for (const auto &row : rows) {
        FieldPlan plan(people);
        row.changes(plan);
        EXPECT_EQ(plan.check().reason(), row.reason);
    }
}

TEST_F(FieldPlanTests, TitlesOfAStrangerCanStay)
{
    people.fields[1].header = u"Name"_s;
    people.fields[2].header = QString();
    people.fields[2].label = u" "_s;
    FieldPlan plan(people);
    plan.move(2, 0);
    EXPECT_EQ(plan.check().reason(), QString());
    plan.rename(2, u"name"_s);
    EXPECT_EQ(plan.check().reason(), u"there is a field of that name"_s);
}

TEST_F(FieldPlanTests, EmptiesNoMoreThanWasSaid)
{
    FieldPlan plan(people);
    plan.setType(0, FieldType::Number, {});
    plan.setEmptied(0, 2);
    EXPECT_EQ(makePlan(plan), -1);
    EXPECT_EQ(reason, u"meanwhile there are more values that cannot be read"_s);
    EXPECT_EQ(content(), everything);
    plan.setEmptied(0, 3);
    const qint64 step = makePlan(plan);
    EXPECT_TRUE(content().startsWith(u"People(Name, Age, Photo): 1 nil 31"_s));
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(FieldPlanTests, NeedsTheLibraryAsItWas)
{
    FieldPlan plan(people);
    plan.move(0, 2);
    change([&](StepRecorder &step) { return step.renameField(people, 1, u"Years"_s); });
    EXPECT_EQ(makePlan(plan), -1);
    EXPECT_EQ(reason, u"the library was changed meanwhile"_s);
}

TEST_F(FieldPlanTests, AllFieldsCanGoIfThereIsANewOne)
{
    FieldPlan plan(people);
    for (int count = 0; count < 3; ++count)
        plan.remove(0);
    EXPECT_EQ(plan.removed(), QList<qsizetype>({0, 1, 2}));
    EXPECT_EQ(makePlan(plan), -1);
    EXPECT_EQ(reason, u"a library needs a field"_s);
    plan.add(FieldPlan::newField(u"Name"_s, FieldType::Date));
    EXPECT_EQ(titlesOf(plan), QStringList(u"Name"_s));
    const qint64 step = makePlan(plan);
    EXPECT_EQ(content(), u"People(Name): 1 nil; 2 nil; 3 nil"_s);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
}

TEST_F(FieldPlanTests, AmountsGetTheUsersCurrency)
{
    NSLocale::setCurrentLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(FieldPlan::newField(u" Paid "_s, FieldType::Currency).header, u"Paid"_s);
    EXPECT_EQ(FieldPlan::newField({}, FieldType::Currency).options,
              QVariantMap({{u"currencyType"_s, u"EUR"_s}}));
    EXPECT_EQ(FieldPlan::newField({}, FieldType::Number).options, QVariantMap());
}
