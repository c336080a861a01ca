#include "Making/LibrarySteps.h"

#include "Cobble/Journal/StoreSupport.h"

#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

namespace {
class LibraryStepsTests : public testing_support::StoreTest
{
protected:
    LibrarySteps::Change change()
    {
        return [this](const StepTitle &title, const auto &changes) -> Outcome<> {
            const Outcome<qint64> made = ChangeJournal(*store).make(title, changes);
            last = title;
            return made ? Outcome<>() : made.failure();
        };
    }
    Library libraryOf(const QString &name) { return store->libraryNamed(name).valueOr({}); }

    StepTitle last;
};
} // namespace

TEST_F(LibraryStepsTests, MakesALibraryWithAField)
{
    ASSERT_TRUE(LibrarySteps::makeLibrary(change(), u" Things "_s));
    ASSERT_EQ(libraryOf(u"Things"_s).fields.size(), 1);
    EXPECT_EQ(libraryOf(u"Things"_s).fields.first().title(), u"Name"_s);
    EXPECT_EQ(last.kind, StepKinds::NewLibrary);
    EXPECT_EQ(last.parameters.value(StepParameters::Library), u"Things"_s);
}

TEST_F(LibraryStepsTests, RenamesAndRemovesALibrary)
{
    ASSERT_TRUE(LibrarySteps::renameLibrary(change(), people, u"Friends"_s));
    EXPECT_EQ(libraryOf(u"Friends"_s).tableName, people.tableName);
    // It is no longer as it was.
    EXPECT_FALSE(LibrarySteps::removeLibrary(change(), people));
    ASSERT_TRUE(LibrarySteps::removeLibrary(change(), libraryOf(u"Friends"_s)));
    EXPECT_TRUE(store->libraries()->isEmpty());
}

TEST_F(LibraryStepsTests, AddsAFieldInTheUsersCurrency)
{
    NSLocale::setCurrentLocale(NSLocale(u"de_DE"_s));
    ASSERT_TRUE(LibrarySteps::addField(change(), people, u"Paid"_s, FieldType::Currency));
    NSLocale::resetCurrentLocale();
    const LibraryField field = libraryOf(u"People"_s).fields.last();
    EXPECT_EQ(field.title(), u"Paid"_s);
    EXPECT_EQ(field.type, FieldType::Currency);
    EXPECT_EQ(field.options.value(u"currencyType"_s).toString(), u"EUR"_s);
    EXPECT_EQ(last.parameters.value(StepParameters::Field), u"Paid"_s);
}

TEST_F(LibraryStepsTests, RefusesNamesThatAreTakenOrNone)
{
    EXPECT_EQ(LibrarySteps::makeLibrary(change(), u"people"_s).reason(),
              u"there is a library of that name"_s);
    EXPECT_EQ(LibrarySteps::makeLibrary(change(), u" "_s).reason(), u"a library needs a name"_s);
    EXPECT_EQ(LibrarySteps::addField(change(), people, u"name "_s, FieldType::Text).reason(),
              u"there is a field of that name"_s);
    EXPECT_EQ(LibrarySteps::addField(change(), people, u" "_s, FieldType::Text).reason(),
              u"a field needs a name"_s);
}

TEST_F(LibraryStepsTests, MovesAField)
{
    ASSERT_TRUE(LibrarySteps::moveField(change(), people, 2, 0));
    EXPECT_TRUE(content().startsWith(u"People(Photo, Name, Age): "_s));
    EXPECT_EQ(last.kind, StepKinds::MoveField);
    EXPECT_EQ(last.parameters.value(StepParameters::Field), u"Photo"_s);
    // It is no longer as it was.
    EXPECT_FALSE(LibrarySteps::moveField(change(), people, 2, 0));
}

TEST_F(LibraryStepsTests, MakesNoPartOfAPlanWithANameThatIsTaken)
{
    FieldPlan plan(people);
    plan.move(0, 2);
    plan.rename(0, u"photo"_s);
    EXPECT_EQ(LibrarySteps::changeFields(change(), plan).reason(),
              u"there is a field of that name"_s);
    EXPECT_EQ(content(), everything);
}
