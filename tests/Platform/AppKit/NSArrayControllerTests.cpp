#include <KTUtility/NSArrayController>

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>
#include <KTUtility/NSKeyValueObserving>

#include "Bindings/BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
class NSArrayControllerTests : public testing::Test
{
protected:
    NSArrayControllerTests() { controller.setContent({boxed(ada), boxed(bob), boxed(cay)}); }

    static QVariant boxed(ObservedRecord &record) { return QVariant::fromValue(&record); }
    static QString namesOf(const QVariantList &objects)
    {
        QString names;
        for (const QVariant &object : objects)
            names += object.value<ObservedRecord *>()->name();
        return names;
    }
    QString shown() const { return namesOf(controller.arrangedObjects()); }
    QString selected() const { return namesOf(controller.selectedObjects()); }
    QVariant selection(const char16_t *key) const
    {
        return NSKeyValueCoding::valueForKeyPath(&controller,
                                                 u"selection." + QString::fromUtf16(key));
    }

    ObservedRecord ada{u"A"_s, 3}, bob{u"B"_s, 1}, cay{u"C"_s, 3};
    NSArrayController controller;
};

const QString Number = u"number"_s;

/// Answers keys by itself.
class Keyed : public QObject, public NSKeyValueCodingObject
{
public:
    void *qt_metacast(const char *iid) override
    {
        if (qstrcmp(iid, qobject_interface_iid<NSKeyValueCodingObject *>()) == 0)
            return static_cast<NSKeyValueCodingObject *>(this);
        return QObject::qt_metacast(iid);
    }
};

/// Counts how often it is read.
class Counted : public Keyed
{
public:
    std::optional<QVariant> valueForKey(const QString &) const override
    {
        ++reads;
        return name;
    }
    bool setValueForKey(const QVariant &value, const QString &key) override
    {
        name = value.toString();
        NSKeyValueObserving::didChangeValueForKey(this, key);
        return true;
    }
    QString name = QStringLiteral("a");
    inline static int reads = 0;
};

/// Does something else the next time it is read, and counts the keys that are observed.
class Surprising : public Keyed
{
public:
    explicit Surprising(const QString &value) : values{{u"k"_s, value}, {u"j"_s, value}} {}

    std::optional<QVariant> valueForKey(const QString &key) const override
    {
        if (const std::function<void()> surprise = std::exchange(whenRead, {}))
            surprise();
        if (isBroken)
            throw std::runtime_error("broken");
        return values.value(key);
    }
    bool setValueForKey(const QVariant &value, const QString &key) override
    {
        values.insert(key, value);
        NSKeyValueObserving::didChangeValueForKey(this, key);
        return true;
    }
    void firstObserverCame(const QString &) override { ++observedKeys; }
    void lastObserverWent(const QString &) override { --observedKeys; }

    QVariantMap values;
    mutable std::function<void()> whenRead;
    bool isBroken = false; ///< raises whenever it is read
    int observedKeys = 0;
};

/// Three surprising objects, the first of which is selected.
class NSArrayControllerSurprises : public testing::Test
{
protected:
    NSArrayControllerSurprises()
    {
        QVariantList content;
        for (Surprising *const each : {&first, &second, &third})
            content += QVariant::fromValue<QObject *>(each);
        controller->setContent(content);
        controller->setSelectionIndex(0);
    }

    void bind(BoundView &view, const QString &key)
    {
        view.bind(NSValueBinding, controller.get(), u"selection." + key, {});
    }

    Surprising first{u"1"_s}, second{u"2"_s}, third{u"2"_s};
    std::unique_ptr<NSArrayController> controller = std::make_unique<NSArrayController>();
    BoundView k, j;
};

[[noreturn]] void fail()
{
    throw std::runtime_error("no");
}
} // namespace

TEST_F(NSArrayControllerTests, RunsItsExample)
{
    controller.setSelectionIndexes({0});
    BoundView view;
    view.bind(NSValueBinding, &controller, u"selection.name"_s, {});
    EXPECT_EQ(view.value(), QVariant(u"A"_s));
    controller.setSelectionIndex(1);
    EXPECT_EQ(view.value(), QVariant(u"B"_s));
    bob.setName(u"Bob"_s);
    EXPECT_EQ(view.value(), QVariant(u"Bob"_s));
    view.type(u"Bobby"_s);
    EXPECT_EQ(bob.name(), u"Bobby"_s);
    // Without selection, what is shown stays.
    controller.setSelectionIndexes({});
    EXPECT_EQ(view.value(), QVariant(u"Bobby"_s));
}

TEST_F(NSArrayControllerTests, SelectionsHaveMarkers)
{
    EXPECT_EQ(selection(u"name"), NSNoSelectionMarker());
    controller.setSelectionIndexes({0, 2});
    EXPECT_EQ(selection(u"number"), QVariant(3));
    EXPECT_EQ(selection(u"name"), NSMultipleValuesMarker());
    EXPECT_EQ(selection(u"nothing"), NSNotApplicableMarker());
    NSKeyValueCoding::setValueForKeyPath(&controller, 9, u"selection.number"_s);
    EXPECT_EQ(ada.number() + cay.number(), 18);
    EXPECT_EQ(bob.number(), 1);
}

TEST_F(NSArrayControllerTests, MarkersAnswerWhatLiesBehindThem)
{
    ObservedRecord next(u"N"_s);
    BoundView view;
    view.bind(NSValueBinding, &controller, u"selection.next.name"_s, {});
    EXPECT_EQ(view.sets, 0);
    EXPECT_EQ(selection(u"next.name"), NSNoSelectionMarker());
    view.type(u"lost"_s);
    controller.setSelectionIndex(0);
    EXPECT_FALSE(view.value().isValid());
    ada.setNext(&next);
    EXPECT_EQ(view.value(), QVariant(u"N"_s));
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(selection(u"next.name"), NSMultipleValuesMarker());
    EXPECT_EQ(view.value(), QVariant(u"N"_s));
    // Where there is no object on the way, nothing is set.
    view.type(u"typed"_s);
    EXPECT_EQ(next.name(), u"typed"_s);
}

TEST_F(NSArrayControllerTests, SettingTheSelectionIsToldOnce)
{
    controller.setSelectionIndexes({0, 1, 2});
    QVariantList told;
    const auto note = [&](const NSKeyValueChange &change) { told += *change.newValue; };
    const NSKeyValueObservation names(&controller, u"selection.name"_s,
                                      NSKeyValueObservingOptionNew, note);
    const NSKeyValueObservation greetings(&controller, u"selection.greeting"_s,
                                          NSKeyValueObservingOptionNew, note);
    NSKeyValueCoding::setValueForKeyPath(&controller, u"X"_s, u"selection.name"_s);
    EXPECT_EQ(told, QVariantList({u"X"_s, u"Hello X"_s}));
    told.clear();
    EXPECT_THROW(NSKeyValueCoding::setValueForKeyPath(&controller, 1, u"selection.greeting"_s),
                 NSException);
    cay.setName(u"Y"_s);
    EXPECT_EQ(told, QVariantList({NSMultipleValuesMarker(), NSMultipleValuesMarker()}));
}

TEST_F(NSArrayControllerTests, SelectionsCanBeObserved)
{
    QVariantList told;
    const NSKeyValueObservation observation(
        &controller, u"selection.number"_s, NSKeyValueObservingOptionNew,
        [&](const NSKeyValueChange &change) { told += *change.newValue; });
    controller.setSelectionIndex(1);
    bob.setNumber(2);
    ada.setNumber(4);
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(told, QVariantList({1, 2, NSMultipleValuesMarker()}));
    told.clear();
    bob.setNumber(4);
    EXPECT_EQ(told, QVariantList({4}));
}

TEST_F(NSArrayControllerTests, NothingIsObservedAnyMoreAfterwards)
{
    controller.setSelectionIndexes({0, 1});
    {
        const NSKeyValueObservation observation(&controller, u"selection.number"_s, 0,
                                                [](const NSKeyValueChange &) {});
        EXPECT_EQ(ada.receivers(SIGNAL(numberChanged())), 1);
        controller.setSelectionIndexes({1});
        EXPECT_EQ(ada.receivers(SIGNAL(numberChanged())), 0);
        EXPECT_EQ(bob.receivers(SIGNAL(numberChanged())), 1);
    }
    EXPECT_EQ(bob.receivers(SIGNAL(numberChanged())), 0);
}

TEST_F(NSArrayControllerTests, FiltersAndSorts)
{
    EXPECT_EQ(shown(), u"ABC"_s);
    controller.setSortDescriptors({{Number, true}});
    EXPECT_EQ(shown(), u"BAC"_s);
    controller.setSortDescriptors({{Number, false}, {u"name"_s, false}});
    EXPECT_EQ(shown(), u"CAB"_s);
    controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"number = 3"));
    EXPECT_EQ(shown(), u"CA"_s);
    bob.setNumber(3);
    EXPECT_EQ(shown(), u"CA"_s);
    controller.rearrangeObjects();
    EXPECT_EQ(shown(), u"CBA"_s);
    controller.setFilterPredicate({});
    controller.setSortDescriptors({});
    EXPECT_EQ(shown(), u"ABC"_s);
}

TEST_F(NSArrayControllerTests, TheSelectionStaysWithItsObjects)
{
    controller.setSelectionIndexes({0, 2});
    controller.setSortDescriptors({{u"name"_s, false}});
    EXPECT_EQ(selected(), u"CA"_s);
    controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"name != 'C'"));
    EXPECT_EQ(selected(), u"A"_s);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{1});
    controller.setContent({boxed(bob)});
    EXPECT_EQ(controller.selectionIndex(), -1);
}

TEST_F(NSArrayControllerTests, AddedObjectsAreSelectedUntilRemoved)
{
    ObservedRecord dan(u"D"_s);
    controller.addObject(boxed(dan));
    EXPECT_EQ(shown(), u"ABCD"_s);
    EXPECT_EQ(selected(), u"D"_s);
    controller.removeObject(boxed(dan));
    EXPECT_EQ(shown(), u"ABC"_s);
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(controller.content().size(), 3);
}

TEST_F(NSArrayControllerTests, TheSelectionMovesWithinTheList)
{
    EXPECT_FALSE(controller.canSelectNext() || controller.canSelectPrevious());
    controller.selectNext();
    EXPECT_EQ(controller.selectionIndex(), -1);
    controller.setSelectionIndex(1);
    EXPECT_TRUE(controller.canSelectNext() && controller.canSelectPrevious());
    controller.selectNext();
    controller.selectNext();
    EXPECT_EQ(selected(), u"C"_s);
    controller.selectPrevious();
    EXPECT_EQ(selected(), u"B"_s);
    controller.setSelectionIndexes({5, 1, -1, 1, 0});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>({0, 1}));
}

TEST_F(NSArrayControllerTests, ListenersFindAConsistentController)
{
    controller.setSelectionIndexes({2});
    const NSKeyValueObservation observation(
        &controller, u"arrangedObjects"_s, 0, [&](const NSKeyValueChange &) {
            EXPECT_LE(controller.selectedObjects().size(), controller.arrangedObjects().size());
        });
    controller.setContent({boxed(ada)});
    controller.setContent({});
    EXPECT_EQ(shown(), QString());
}

TEST_F(NSArrayControllerTests, MapsAreObjectsToo)
{
    controller.setContent({QVariantMap{{u"name"_s, 1}}, QVariantMap{{u"name"_s, 2}}});
    controller.setSelectionIndexes({0});
    EXPECT_EQ(selection(u"name"), QVariant(1));
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(selection(u"name"), NSMultipleValuesMarker());
}

TEST_F(NSArrayControllerTests, PathsBehindTheSelectionAreComparedAtTheirEnd)
{
    ObservedRecord first(u"same"_s), second(u"same"_s);
    ada.setNext(&first);
    bob.setNext(&second);
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(selection(u"next.name"), QVariant(u"same"_s));
    BoundView view;
    view.bind(NSValueBinding, &controller, u"selection.next.name"_s, {});
    EXPECT_EQ(view.value(), QVariant(u"same"_s));
    view.type(u"typed"_s);
    EXPECT_EQ(first.name() + second.name(), u"typedtyped"_s);
    // The ends of the paths are followed, and the objects on the way.
    first.setName(u"other"_s);
    EXPECT_EQ(selection(u"next.name"), NSMultipleValuesMarker());
    second.setName(u"other"_s);
    EXPECT_EQ(view.value(), QVariant(u"other"_s));
    bob.setNext(&first);
    first.setName(u"both"_s);
    EXPECT_EQ(view.value(), QVariant(u"both"_s));
    ada.setNext(nullptr);
    EXPECT_EQ(selection(u"next.name"), NSMultipleValuesMarker());
    controller.setSelectionIndexes({1});
    view.type(u"one"_s);
    EXPECT_EQ(first.name(), u"one"_s);
    EXPECT_EQ(selection(u"next.nothing"), NSNotApplicableMarker());
    view.unbind(NSValueBinding);
    for (const ObservedRecord *const each : {&ada, &bob, &cay})
        EXPECT_EQ(each->receivers(SIGNAL(nextChanged())), 0);
    EXPECT_EQ(first.receivers(SIGNAL(nameChanged())) + second.receivers(SIGNAL(nameChanged())), 0);
}

TEST_F(NSArrayControllerTests, TheSelectionCanBeCounted)
{
    EXPECT_EQ(selection(u"@count"), QVariant(0));
    EXPECT_EQ(selection(u"@sum.number"), NSNoSelectionMarker());
    BoundView count, sum;
    count.bind(NSValueBinding, &controller, u"selection.@count"_s, {});
    sum.bind(NSValueBinding, &controller, u"selection.@sum.number"_s, {});
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(count.value().toInt(), 2);
    EXPECT_EQ(sum.value().toInt(), 4);
    bob.setNumber(10);
    EXPECT_EQ(sum.value().toInt(), 13);
}

TEST(NSArrayController, ManyChangesOfManySelectedRecordsAreToldOnce)
{
    constexpr int Count = 3'000;
    std::vector<std::unique_ptr<Counted>> records;
    QVariantList content;
    QList<qsizetype> indexes;
    for (int index = 0; index < Count; ++index) {
        records.push_back(std::make_unique<Counted>());
        content += QVariant::fromValue<QObject *>(records.back().get());
        indexes += index;
    }
    NSArrayController controller;
    controller.setContent(content);
    controller.setSelectionIndexes(indexes);
    int told = 0;
    QVariant last;
    const NSKeyValueObservation observation(&controller, u"selection.name",
                                            NSKeyValueObservingOptionNew,
                                            [&](const NSKeyValueChange &change) {
                                                ++told;
                                                last = *change.newValue;
                                            });
    Counted::reads = 0;
    for (const auto &record : records)
        NSKeyValueCoding::setValue(record.get(), u"b"_s, u"name");
    // The first makes them differ, the last makes them one again.
    EXPECT_EQ(told, 2);
    EXPECT_EQ(last, QVariant(u"b"_s));
    EXPECT_LT(Counted::reads, 10 * Count);
    for (int index = 0; index < Count; ++index)
        NSKeyValueCoding::setValue(records[size_t(index)].get(), QString::number(index), u"name");
    EXPECT_EQ(told, 3);
    EXPECT_EQ(last, NSMultipleValuesMarker());
    EXPECT_LT(Counted::reads, 20 * Count);
}

TEST(NSArrayController, EqualValuesAreSelectedAsManyAsWere)
{
    NSArrayController controller;
    controller.setContent({1, 1, 2});
    controller.setSelectionIndexes({0});
    controller.rearrangeObjects();
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{0});
    controller.addObject(2);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{3});
    controller.setSelectionIndexes({2, 3});
    controller.setContent({2, 1, 2, 2});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>({0, 2}));
}

TEST_F(NSArrayControllerTests, AFilterThatRaisesChangesNothing)
{
    EXPECT_THROW(controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"nothing == 1")),
                 NSException);
    EXPECT_EQ(shown(), u"ABC"_s);
    controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"number == 3"));
    QObject bare;
    EXPECT_THROW(controller.addObject(QVariant::fromValue(&bare)), NSException);
    EXPECT_THROW(controller.setContent({QVariant::fromValue(&bare)}), NSException);
    EXPECT_EQ(shown(), u"AC"_s);
    EXPECT_EQ(controller.content().size(), 3);
    controller.addObject(boxed(ada));
    EXPECT_EQ(shown(), u"ACA"_s);
}

TEST(NSArrayController, OfEqualRowsTheSameOnesStaySelected)
{
    const auto row = [](int number) { return QVariant(QVariantMap{{u"n"_s, number}}); };
    NSArrayController controller;
    controller.setContent({row(1), row(1), row(2)});
    controller.setSelectionIndexes({1});
    controller.rearrangeObjects();
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{1});
    controller.addObject(row(1));
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{3});
    controller.rearrangeObjects();
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{3});
    controller.setSortDescriptors({{u"n"_s, false}});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{3});
    controller.setSortDescriptors({{u"n"_s, true}});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{2});
    controller.removeObject(row(2));
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{2});
}

TEST(NSArrayController, EqualRowsAreSelectedByRank)
{
    const struct
    {
        QVariantList content;
        QList<qsizetype> selected;
        QVariantList next;
        QList<qsizetype> stillSelected;
    } rows[] = {
        {{1, 1, 1}, {1}, {1, 1, 1}, {1}}, {{1, 1, 1}, {0, 2}, {2, 1, 1, 1}, {1, 3}},
        {{1, 1, 1}, {2}, {1, 1}, {1}},    {{1, 1, 1}, {1, 2}, {1, 1}, {0, 1}},
        {{1, 1, 1}, {1, 2}, {2, 1}, {1}}, {{1, 2, 1, 2}, {2, 3}, {2, 2, 1, 1}, {1, 3}},
        {{1, 2}, {0, 1}, {3}, {}},        {{1, 1}, {}, {1, 1}, {}},
        {{1, 1}, {1}, {1, 1, 1, 1}, {1}}, {{1, 1.0, 2}, {1}, {1.0, 1, 2}, {1}},
    };
    for (const auto &row : rows) {
        NSArrayController controller;
        controller.setContent(row.content);
        controller.setSelectionIndexes(row.selected);
        controller.setContent(row.next);
        EXPECT_EQ(controller.selectionIndexes(), row.stillSelected) << (&row - rows);
    }
}

TEST_F(NSArrayControllerSurprises, AGetterMayDestroyTheControllerThatIsBoundTo)
{
    first.whenRead = [this] { controller.reset(); };
    bind(k, u"k"_s);
    EXPECT_FALSE(controller);
    EXPECT_EQ(first.observedKeys, 0);
    first.setValueForKey(u"new"_s, u"k"_s);
    EXPECT_FALSE(k.value().isValid());
}

TEST_F(NSArrayControllerSurprises, AGetterMayBindAnotherAndUnbindIt)
{
    first.whenRead = [this] {
        bind(j, u"k"_s);
        j.unbind(NSValueBinding);
    };
    bind(k, u"k"_s);
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
    EXPECT_EQ(j.value(), QVariant(u"1"_s));
    first.setValueForKey(u"new"_s, u"k"_s);
    EXPECT_EQ(k.value(), QVariant(u"new"_s));
    EXPECT_EQ(j.value(), QVariant(u"1"_s));
    k.unbind(NSValueBinding);
    EXPECT_EQ(first.observedKeys, 0);
}

TEST_F(NSArrayControllerSurprises, AGetterMayDestroyTheControllerWhileTheSelectionChanges)
{
    bind(k, u"k"_s);
    bind(j, u"j"_s);
    second.whenRead = [this] { controller.reset(); };
    controller->setSelectionIndexes({1, 2});
    EXPECT_FALSE(controller);
    for (const Surprising *const each : {&first, &second, &third})
        EXPECT_EQ(each->observedKeys, 0);
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
}

TEST_F(NSArrayControllerSurprises, AGetterMayDestroyTheControllerAndChangeWhatItObserved)
{
    bind(k, u"k"_s);
    third.whenRead = [this] {
        controller.reset();
        second.setValueForKey(u"new"_s, u"k"_s);
    };
    controller->setSelectionIndexes({1, 2});
    EXPECT_FALSE(controller);
    EXPECT_EQ(second.observedKeys, 0);
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
}

TEST_F(NSArrayControllerSurprises, AGetterMaySelectOthers)
{
    bind(k, u"k"_s);
    second.whenRead = [this] { controller->setSelectionIndexes({0}); };
    controller->setSelectionIndexes({1, 2});
    EXPECT_EQ(controller->selectionIndexes(), QList<qsizetype>{0});
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
    first.setValueForKey(u"new"_s, u"k"_s);
    EXPECT_EQ(k.value(), QVariant(u"new"_s));
    EXPECT_EQ(second.observedKeys + third.observedKeys, 0);
}

TEST_F(NSArrayControllerSurprises, WhatAGetterRaisesIsThrownWhenAllObjectsAreObserved)
{
    bind(k, u"k"_s);
    bind(j, u"j"_s);
    int changes = 0;
    QObject::connect(controller.get(), &NSArrayController::selectionChanged, [&] { ++changes; });
    second.whenRead = fail;
    EXPECT_THROW(controller->setSelectionIndexes({1, 2}), std::runtime_error);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(k.value(), QVariant(u"2"_s));
    EXPECT_EQ(j.value(), QVariant(u"2"_s));
    EXPECT_EQ(first.observedKeys, 0);
    for (Surprising *const each : {&second, &third}) {
        EXPECT_EQ(each->observedKeys, 2);
        each->setValueForKey(u"new k"_s, u"k"_s);
        each->setValueForKey(u"new j"_s, u"j"_s);
    }
    EXPECT_EQ(k.value(), QVariant(u"new k"_s));
    EXPECT_EQ(j.value(), QVariant(u"new j"_s));
}

TEST_F(NSArrayControllerSurprises, ObjectsThatCannotBeReadAreObservedUntilTheyCan)
{
    bind(k, u"k"_s);
    second.isBroken = true;
    EXPECT_THROW(controller->setSelectionIndexes({1, 2}), std::runtime_error);
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
    second.isBroken = false;
    second.setValueForKey(u"2"_s, u"k"_s);
    EXPECT_EQ(k.value(), QVariant(u"2"_s));
    controller->setSelectionIndex(0);
    EXPECT_EQ(second.observedKeys, 0);
}

TEST_F(NSArrayControllerSurprises, WhereAGetterRaisesNothingIsBound)
{
    first.whenRead = fail;
    EXPECT_THROW(
        NSKeyValueObservation(controller.get(), u"selection.k", 0, [](const NSKeyValueChange &) {}),
        std::runtime_error);
    EXPECT_EQ(first.observedKeys, 0);
    bind(k, u"k"_s);
    EXPECT_EQ(k.value(), QVariant(u"1"_s));
    EXPECT_EQ(first.observedKeys, 1);
}
