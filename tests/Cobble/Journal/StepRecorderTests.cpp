#include "Journal/StepRecorder.h"

#include "StoreSupport.h"

using namespace Qt::StringLiterals;

using testing_support::fieldOf;

namespace {
/// What a change does can be undone and redone, to the last value.
class StepRecorderTests : public testing_support::StoreTest
{
protected:
    void expectStep(qint64 step, const QString &after)
    {
        ASSERT_GT(step, 0) << reason.toStdString();
        EXPECT_EQ(content(), after);
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(undo(step), QString());
            EXPECT_EQ(content(), everything);
            EXPECT_EQ(redo(step), QString());
            EXPECT_EQ(content(), after);
        }
    }
};
} // namespace

TEST_F(StepRecorderTests, MakesALibraryWithNamesForTheDatabase)
{
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(people.tableName, u"kt_people"_s);
    EXPECT_EQ(people.fields[1].columnName, u"kt_age"_s);
    EXPECT_EQ(people.fields[1].propertyName, u"age"_s);
    EXPECT_EQ(people.fields[1].label, u"Age"_s);
    EXPECT_TRUE(CatalogueChange::areEqual(*store->libraryNamed(u"People"_s), people));
}

TEST_F(StepRecorderTests, InsertsRecords)
{
    qint64 number = 0;
    const qint64 step = make([&](StepRecorder &recorder) -> Outcome<> {
        const Outcome<qint64> added = recorder.insert(people, {u"Dan"_s, 1, QVariant()});
        number = added.valueOr(0);
        return added ? recorder.insertWithId(people, 77, {u"Eve"_s, 2, QVariant()})
                     : added.failure();
    });
    EXPECT_EQ(number, 4);
    expectStep(step, everything + u"; 4 Dan 1 nil; 77 Eve 2 nil");
}

TEST_F(StepRecorderTests, ANumberCanBeGivenOnce)
{
    EXPECT_EQ(make([this](StepRecorder &step) {
                  return step.insertWithId(people, 3, {u"Dan"_s, 1, QVariant()});
              }),
              -1);
    EXPECT_FALSE(reason.isEmpty());
    EXPECT_EQ(content(), everything);
}

TEST_F(StepRecorderTests, UpdatesRecords)
{
    const qint64 step = make([this](StepRecorder &recorder) {
        return recorder.update(people, 1, 1, 32)
            .andThen([&] { return recorder.update(people, 1, 1, 33); })
            .andThen([&] { return recorder.update(people, 2, 0, QVariant()); })
            .andThen([&] { return recorder.update(people, 3, 2, u"x"_s); });
    });
    expectStep(step, u"People(Name, Age, Photo): 1 Ann 33 cobblemedia://ann.0.png; 2 nil nil nil; "
                     "3 Cid 4.5 x"_s);
}

TEST_F(StepRecorderTests, RemovesRecords)
{
    const qint64 step = make([this](StepRecorder &recorder) {
        return recorder.remove(people, 3).andThen([&] { return recorder.remove(people, 1); });
    });
    expectStep(step, u"People(Name, Age, Photo): 2 Bob nil nil"_s);
}

TEST_F(StepRecorderTests, RecordsThatAreGoneAreErrors)
{
    for (const auto &change : QList<std::function<Outcome<>(StepRecorder &)>>{
             [this](StepRecorder &step) { return step.remove(people, 9); },
             [this](StepRecorder &step) { return step.update(people, 9, 0, u"x"_s); }}) {
        EXPECT_EQ(make([&](StepRecorder &step) {
                      return step.remove(people, 1).andThen([&] { return change(step); });
                  }),
                  -1);
        EXPECT_EQ(reason, u"the record is no longer there"_s);
        EXPECT_EQ(content(), everything);
    }
}

TEST_F(StepRecorderTests, MakesLibraries)
{
    expectStep(make([](StepRecorder &step) -> Outcome<> {
                   Library pets;
                   pets.name = u"Pets"_s;
                   pets.fields = {fieldOf(u"Name"_s), fieldOf(u"name"_s), fieldOf(u"?"_s)};
                   const Outcome<Library> made = step.createLibrary(pets);
                   const auto added = made ? step.insert(*made, {1, 2, 3}) : made.failure();
                   return added ? Outcome<>() : added.failure();
               }),
               everything + u" | Pets(Name, name, ?): 1 1 2 3");
}

TEST_F(StepRecorderTests, RenamesLibraries)
{
    expectStep(change([this](StepRecorder &step) { return step.renameLibrary(people, u"Men"_s); }),
               QString(everything).replace(u"People"_s, u"Men"_s));
}

TEST_F(StepRecorderTests, RemovesLibraries)
{
    expectStep(make([this](StepRecorder &step) {
                   return step.update(people, 1, 0, u"Eve"_s).andThen([&] {
                       return step.removeLibrary(people);
                   });
               }),
               QString());
}

TEST_F(StepRecorderTests, AddsFields)
{
    expectStep(change([this](StepRecorder &step) -> Outcome<Library> {
                   const auto wider = step.addField(people, fieldOf(u"Size"_s), 1);
                   if (!wider)
                       return wider;
                   const Outcome<> set = step.update(*wider, 2, 1, u"tall"_s);
                   return set ? step.addField(*wider, fieldOf(u"Size"_s, FieldType::Number))
                              : set.failure();
               }),
               u"People(Name, Size, Age, Photo, Size): 1 Ann nil 31 cobblemedia://ann.0.png nil; "
               "2 Bob tall nil nil nil; 3 Cid nil 4.5 '' nil"_s);
    EXPECT_EQ(people.fields[1].columnName, u"kt_size"_s);
    EXPECT_EQ(people.fields[4].columnName, u"kt_size1"_s);
}

TEST_F(StepRecorderTests, RenamesAndMovesFields)
{
    expectStep(change([this](StepRecorder &step) -> Outcome<Library> {
                   const auto renamed = step.renameField(people, 0, u"Full Name"_s);
                   return renamed ? step.reorderFields(*renamed, {2, 0, 1}) : renamed;
               }),
               u"People(Photo, Full Name, Age): 1 cobblemedia://ann.0.png Ann 31; 2 nil Bob nil; "
               "3 '' Cid 4.5"_s);
    for (const QList<qsizetype> &order : {QList<qsizetype>{0, 1}, {0, 1, 1}, {0, 1, 3}}) {
        EXPECT_EQ(change([&](StepRecorder &step) { return step.reorderFields(people, order); }),
                  -1);
        EXPECT_EQ(reason, u"this is no order of the fields"_s);
    }
}

TEST_F(StepRecorderTests, ChangesTypesWithTheirValues)
{
    const auto doubled = [](const QVariant &value) -> Outcome<QVariant> {
        return QVariant(NSObject::description(value) + u"!");
    };
    expectStep(change([&](StepRecorder &step) {
                   return step.changeType(people, 1, FieldType::Text, {}, doubled);
               }),
               QString(everything).replace(u"31"_s, u"31!"_s).replace(u"4.5"_s, u"4.5!"_s));
    EXPECT_EQ(people.fields[1].columnName, u"kt_age1"_s);
    EXPECT_EQ(people.fields[1].type, FieldType::Text);
}

TEST_F(StepRecorderTests, HoldsOneValueAtATimeToChangeItsType)
{
    QStringList seen;
    const auto changeLast = [&](const QVariant &value) -> Outcome<QVariant> {
        seen += NSObject::description(value);
        runSQL(u"UPDATE kt_people SET kt_age = 6 WHERE id = 3"_s);
        return value;
    };
    change([&](StepRecorder &step) {
        return step.changeType(people, 1, FieldType::Number, {}, changeLast);
    });
    EXPECT_EQ(seen, QStringList({u"31"_s, u"6"_s}));
}

TEST_F(StepRecorderTests, AValueThatCannotBeConvertedEndsTheChange)
{
    EXPECT_EQ(change([this](StepRecorder &step) {
                  return step.changeType(
                      people, 1, FieldType::Text, {},
                      [](const QVariant &) -> Outcome<QVariant> { return Failure{u"no"_s}; });
              }),
              -1);
    EXPECT_EQ(reason, u"no"_s);
    EXPECT_EQ(content(), everything);
}

TEST_F(StepRecorderTests, ChangesOptionsAndRemovesFields)
{
    expectStep(change([this](StepRecorder &step) {
                   return step.changeOptions(people, 1, {{u"currencyType"_s, u"EUR"_s}});
               }),
               everything);
    EXPECT_EQ(store->libraryNamed(u"People"_s)->fields[1].options.value(u"currencyType"_s),
              QVariant(u"EUR"_s));
    expectStep(change([this](StepRecorder &step) -> Outcome<Library> {
                   const auto smaller = step.removeField(people, 0);
                   return smaller ? step.removeField(*smaller, 1) : smaller;
               }),
               u"People(Age): 1 31; 2 nil; 3 4.5"_s);
    EXPECT_EQ(change([this](StepRecorder &step) { return step.removeField(people, 0); }), -1);
    EXPECT_EQ(reason, u"a library needs a field"_s);
}

TEST_F(StepRecorderTests, NamesAreOfOneLibrary)
{
    const auto named = [](const QString &name) {
        Library library;
        library.name = name;
        library.fields = {fieldOf(u"A"_s)};
        return library;
    };
    for (const QString &name : {u"people"_s, u""_s, u" "_s}) {
        EXPECT_EQ(change([&](StepRecorder &step) { return step.createLibrary(named(name)); }), -1);
        EXPECT_FALSE(reason.isEmpty());
    }
    EXPECT_GT(
        change([this](StepRecorder &step) { return step.renameLibrary(people, u"people"_s); }), 0);
}

TEST_F(StepRecorderTests, ALibraryThatIsOtherMeanwhileIsNotChanged)
{
    Library other = people;
    other.fields.removeLast();
    EXPECT_EQ(change([&](StepRecorder &step) { return step.removeField(other, 0); }), -1);
    EXPECT_EQ(reason, u"the library was changed meanwhile"_s);
    other.tableName = u"kt_other"_s;
    EXPECT_EQ(make([&](StepRecorder &step) { return step.removeLibrary(other); }), -1);
    EXPECT_EQ(reason, u"the library is no longer there"_s);
    EXPECT_EQ(content(), everything);
}

TEST_F(StepRecorderTests, KeepsValuesOfAllKinds)
{
    runSQL(u"UPDATE kt_people SET kt_age = 9007199254740993 WHERE id = 1"_s);
    runSQL(u"UPDATE kt_people SET kt_age = 0.1 + 0.2, kt_photo = x'00ff' WHERE id = 2"_s);
    runSQL(u"UPDATE kt_people SET kt_name = 'a' || char(0) || 'b', kt_photo = x'', kt_age = '' "
           "WHERE id = 3"_s);
    const QString all = u"SELECT group_concat(quote(kt_name) || quote(hex(kt_name)) || "
                        "printf('%!.20g', kt_age) || typeof(kt_age) || quote(kt_photo)) FROM "
                        "kt_people"_s;
    const QStringList before = *SQL::texts(store->database(), all);
    const qint64 step = make([this](StepRecorder &recorder) {
        return recorder.remove(people, 1)
            .andThen([&] { return recorder.remove(people, 2); })
            .andThen([&] { return recorder.remove(people, 3); });
    });
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(*SQL::texts(store->database(), all), before);
    EXPECT_EQ(redo(step), QString());
    EXPECT_EQ(countOf(u"kt_people"_s), 0);
}

TEST_F(StepRecorderTests, ManyRecordsAreWrittenInParts)
{
    const QString text(1000, u'x');
    const qint64 step = make([&](StepRecorder &recorder) {
        Outcome<> done;
        for (int number = 0; done && number < 3000; ++number) {
            const auto added = recorder.insert(people, {text, number, QVariant()});
            done =
                added ? recorder.update(people, *added, 0, QString(u'y' + text)) : added.failure();
        }
        return done;
    });
    EXPECT_GT(countOf(u"cobble_step_change WHERE step = %1"_s.arg(step)), 5);
    EXPECT_EQ(countOf(u"kt_people"_s), 3003);
    EXPECT_EQ(undo(step), QString());
    EXPECT_EQ(content(), everything);
    EXPECT_EQ(redo(step), QString());
    EXPECT_EQ(countOf(u"kt_people WHERE kt_name LIKE 'yx%'"_s), 3000);
}
