#include <KTUtility/NSArrayController>

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>

#include "Bindings/BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

namespace {
class ArrayController : public testing::Test
{
protected:
    ArrayController() { controller.setContent({boxed(ada), boxed(bob), boxed(cay)}); }

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

    ObservedRecord ada{QStringLiteral("A"), 3}, bob{QStringLiteral("B"), 1},
        cay{QStringLiteral("C"), 3};
    NSArrayController controller;
};

const QString Number = QStringLiteral("number");
} // namespace

TEST_F(ArrayController, HeaderExample)
{
    controller.setSelectionIndexes({0});
    BoundView view;
    view.bind(NSValueBinding, &controller, QStringLiteral("selection.name"), {});
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("A")));
    controller.setSelectionIndex(1);
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("B")));
    bob.setName(QStringLiteral("Bob"));
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("Bob")));
    view.type(QStringLiteral("Bobby"));
    EXPECT_EQ(bob.name(), QStringLiteral("Bobby"));
    // Without selection, what is shown stays.
    controller.setSelectionIndexes({});
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("Bobby")));
}

TEST_F(ArrayController, SelectionsHaveMarkers)
{
    EXPECT_EQ(selection(u"name"), NSNoSelectionMarker());
    controller.setSelectionIndexes({0, 2});
    EXPECT_EQ(selection(u"number"), QVariant(3));
    EXPECT_EQ(selection(u"name"), NSMultipleValuesMarker());
    EXPECT_EQ(selection(u"nothing"), NSNotApplicableMarker());
    NSKeyValueCoding::setValueForKeyPath(&controller, 9, QStringLiteral("selection.number"));
    EXPECT_EQ(ada.number() + cay.number(), 18);
    EXPECT_EQ(bob.number(), 1);
}

TEST_F(ArrayController, MarkersAnswerWhatLiesBehindThem)
{
    ObservedRecord next(QStringLiteral("N"));
    BoundView view;
    view.bind(NSValueBinding, &controller, QStringLiteral("selection.next.name"), {});
    EXPECT_EQ(view.sets, 0);
    EXPECT_EQ(selection(u"next.name"), NSNoSelectionMarker());
    view.type(QStringLiteral("lost"));
    controller.setSelectionIndex(0);
    EXPECT_FALSE(view.value().isValid());
    ada.setNext(&next);
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("N")));
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(selection(u"next.name"), NSMultipleValuesMarker());
    EXPECT_EQ(view.value(), QVariant(QStringLiteral("N")));
    view.type(QStringLiteral("lost"));
    EXPECT_EQ(next.name(), QStringLiteral("N"));
}

TEST_F(ArrayController, SettingTheSelectionIsToldOnce)
{
    controller.setSelectionIndexes({0, 1, 2});
    QVariantList told;
    const auto note = [&](const NSKeyValueChange &change) { told += *change.newValue; };
    const NSKeyValueObservation names(&controller, QStringLiteral("selection.name"),
                                      NSKeyValueObservingOptionNew, note);
    const NSKeyValueObservation greetings(&controller, QStringLiteral("selection.greeting"),
                                          NSKeyValueObservingOptionNew, note);
    NSKeyValueCoding::setValueForKeyPath(&controller, QStringLiteral("X"),
                                         QStringLiteral("selection.name"));
    EXPECT_EQ(told, QVariantList({QStringLiteral("X"), QStringLiteral("Hello X")}));
    told.clear();
    EXPECT_THROW(
        NSKeyValueCoding::setValueForKeyPath(&controller, 1, QStringLiteral("selection.greeting")),
        NSException);
    cay.setName(QStringLiteral("Y"));
    EXPECT_EQ(told, QVariantList({NSMultipleValuesMarker(), NSMultipleValuesMarker()}));
}

TEST_F(ArrayController, SelectionsCanBeObserved)
{
    QVariantList told;
    const NSKeyValueObservation observation(
        &controller, QStringLiteral("selection.number"), NSKeyValueObservingOptionNew,
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

TEST_F(ArrayController, NothingIsObservedAnyMoreAfterwards)
{
    controller.setSelectionIndexes({0, 1});
    {
        const NSKeyValueObservation observation(&controller, QStringLiteral("selection.number"), 0,
                                                [](const NSKeyValueChange &) {});
        EXPECT_EQ(ada.receivers(SIGNAL(numberChanged())), 1);
        controller.setSelectionIndexes({1});
        EXPECT_EQ(ada.receivers(SIGNAL(numberChanged())), 0);
        EXPECT_EQ(bob.receivers(SIGNAL(numberChanged())), 1);
    }
    EXPECT_EQ(bob.receivers(SIGNAL(numberChanged())), 0);
}

TEST_F(ArrayController, FiltersAndSorts)
{
    EXPECT_EQ(shown(), QStringLiteral("ABC"));
    controller.setSortDescriptors({{Number, true}});
    EXPECT_EQ(shown(), QStringLiteral("BAC"));
    controller.setSortDescriptors({{Number, false}, {QStringLiteral("name"), false}});
    EXPECT_EQ(shown(), QStringLiteral("CAB"));
    controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"number = 3"));
    EXPECT_EQ(shown(), QStringLiteral("CA"));
    bob.setNumber(3);
    EXPECT_EQ(shown(), QStringLiteral("CA"));
    controller.rearrangeObjects();
    EXPECT_EQ(shown(), QStringLiteral("CBA"));
    controller.setFilterPredicate({});
    controller.setSortDescriptors({});
    EXPECT_EQ(shown(), QStringLiteral("ABC"));
}

TEST_F(ArrayController, TheSelectionStaysWithItsObjects)
{
    controller.setSelectionIndexes({0, 2});
    controller.setSortDescriptors({{QStringLiteral("name"), false}});
    EXPECT_EQ(selected(), QStringLiteral("CA"));
    controller.setFilterPredicate(NSPredicate::predicateWithFormat(u"name != 'C'"));
    EXPECT_EQ(selected(), QStringLiteral("A"));
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>{1});
    controller.setContent({boxed(bob)});
    EXPECT_EQ(controller.selectionIndex(), -1);
}

TEST_F(ArrayController, AddingAndRemoving)
{
    ObservedRecord dan(QStringLiteral("D"));
    controller.addObject(boxed(dan));
    EXPECT_EQ(shown(), QStringLiteral("ABCD"));
    EXPECT_EQ(selected(), QStringLiteral("D"));
    controller.removeObject(boxed(dan));
    EXPECT_EQ(shown(), QStringLiteral("ABC"));
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(controller.content().size(), 3);
}

TEST_F(ArrayController, MovingTheSelection)
{
    EXPECT_FALSE(controller.canSelectNext() || controller.canSelectPrevious());
    controller.selectNext();
    EXPECT_EQ(controller.selectionIndex(), -1);
    controller.setSelectionIndex(1);
    EXPECT_TRUE(controller.canSelectNext() && controller.canSelectPrevious());
    controller.selectNext();
    controller.selectNext();
    EXPECT_EQ(selected(), QStringLiteral("C"));
    controller.selectPrevious();
    EXPECT_EQ(selected(), QStringLiteral("B"));
    controller.setSelectionIndexes({5, 1, -1, 1, 0});
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>({0, 1}));
}

TEST_F(ArrayController, ListenersFindAConsistentController)
{
    controller.setSelectionIndexes({2});
    const NSKeyValueObservation observation(
        &controller, QStringLiteral("arrangedObjects"), 0, [&](const NSKeyValueChange &) {
            EXPECT_LE(controller.selectedObjects().size(), controller.arrangedObjects().size());
        });
    controller.setContent({boxed(ada)});
    controller.setContent({});
    EXPECT_EQ(shown(), QString());
}

TEST_F(ArrayController, MapsAreObjectsToo)
{
    controller.setContent(
        {QVariantMap{{QStringLiteral("name"), 1}}, QVariantMap{{QStringLiteral("name"), 2}}});
    controller.setSelectionIndexes({0});
    EXPECT_EQ(selection(u"name"), QVariant(1));
    controller.setSelectionIndexes({0, 1});
    EXPECT_EQ(selection(u"name"), NSMultipleValuesMarker());
}
