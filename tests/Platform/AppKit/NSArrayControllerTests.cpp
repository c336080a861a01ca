#include <KTUtility/NSArrayController>

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>

#include "Bindings/BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

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
    view.type(u"lost"_s);
    EXPECT_EQ(next.name(), u"N"_s);
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
