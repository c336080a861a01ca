#include <KTUtility/KTPropertyBinder>

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTFileExtensionValueTransformer>
#include <KTUtility/NSException>
#include <KTUtility/NSSelectionMarker>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace {
const QString Number = u"number"_s;
const QString Name = u"name"_s;

QVariantMap named(const QString &transformer)
{
    return {{NSValueTransformerNameBindingOption, transformer}};
}
} // namespace

TEST(KTPropertyBinder, CopiesTheValueAndItsChanges)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    view.bind(NSValueBinding, &record, Number, {});
    EXPECT_EQ(view.value(), QVariant(1));
    record.setNumber(2);
    EXPECT_EQ(view.value(), QVariant(2));
    EXPECT_EQ(view.sets, 2);
}

TEST(KTPropertyBinder, CopiesBackWhatTheOwnerChanges)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    view.bind(NSValueBinding, &record, Number, {});
    view.type(7);
    EXPECT_EQ(record.number(), 7);
    // The record notifies of it, and the view gets it once more.
    EXPECT_EQ(view.sets, 2);
}

TEST(KTPropertyBinder, OtherOwnersSeeWhatNoSignalReports)
{
    ObservedRecord record;
    BoundView one;
    BoundView other;
    one.bind(NSValueBinding, &record, u"silent"_s, {});
    other.bind(NSValueBinding, &record, u"silent"_s, {});
    one.type(5);
    EXPECT_EQ(record.silent(), 5);
    EXPECT_EQ(other.value(), QVariant(5));
}

TEST(KTPropertyBinder, ThereIsNoEcho)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    view.changesBackAtOnce = true;
    view.bind(NSValueBinding, &record, Number,
              NSBindingOptions::withTransformer(KTBaseValueTransformer::valueTransformer()));
    EXPECT_EQ(record.number(), 1);
    record.setNumber(5);
    EXPECT_EQ(view.value(), QVariant(6U));
    EXPECT_EQ(record.number(), 5);
}

TEST(KTPropertyBinder, PathsAreFollowed)
{
    ObservedRecord record, first(u"first"_s), second(u"second"_s);
    record.setNext(&first);
    BoundView view;
    view.bind(NSValueBinding, &record, u"next.name"_s, {});
    EXPECT_EQ(view.value(), QVariant(u"first"_s));
    record.setNext(&second);
    EXPECT_EQ(view.value(), QVariant(u"second"_s));
    view.type(u"typed"_s);
    EXPECT_EQ(second.name(), u"typed"_s);
    record.setNext(nullptr);
    EXPECT_FALSE(view.value().isValid());
    view.type(u"lost"_s);
    EXPECT_EQ(second.name(), u"typed"_s);
}

TEST(KTPropertyBinder, MarkersLeaveTheOwnerAlone)
{
    ObservedRecord record;
    BoundView view;
    record.setAny(u"shown"_s);
    view.bind(NSValueBinding, &record, u"any"_s, {});
    for (const QVariant &marker :
         {NSNoSelectionMarker(), NSNotApplicableMarker(), NSMultipleValuesMarker()}) {
        record.setAny(marker);
        EXPECT_EQ(view.value(), QVariant(u"shown"_s));
    }
    EXPECT_EQ(view.sets, 1);
    record.setAny(QVariant());
    EXPECT_FALSE(view.value().isValid());
}

TEST(KTPropertyBinder, WithoutObservingTheValueIsReadOnly)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    view.valueBinder.setShouldObserveKeyPath(false);
    view.bind(NSValueBinding, &record, Number, {});
    record.setNumber(2);
    EXPECT_EQ(view.sets, 0);
    EXPECT_FALSE(view.value().isValid());
    EXPECT_EQ(view.valueBinder.currentValue(), QVariant(2));
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    view.type(9);
    EXPECT_EQ(record.number(), 9);
    view.unbind(NSValueBinding);
    EXPECT_FALSE(view.valueBinder.currentValue().isValid());
}

TEST(KTPropertyBinder, TransformersOfTheOptionsAreUsed)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    const auto reversed = KTBaseValueTransformer::reversedValueTransformer();
    view.bind(NSValueBinding, &record, Number, NSBindingOptions::withTransformer(reversed));
    EXPECT_EQ(view.value(), QVariant(0U));
    EXPECT_EQ(view.valueBinder.valueTransformer(), reversed);
    view.type(4);
    EXPECT_EQ(record.number(), 5);
    view.bind(NSValueBinding, &record, Number, named(u"KTBaseValueTransformer"_s));
    EXPECT_EQ(view.value(), QVariant(6U));
    // The object wins over the name.
    QVariantMap both = NSBindingOptions::withTransformer(reversed);
    both.insert(named(u"KTBaseValueTransformer"_s));
    view.bind(NSValueBinding, &record, Number, both);
    EXPECT_EQ(view.value(), QVariant(4U));
    EXPECT_EQ(view.valueBinder.bindingOptions(), both);
    view.bind(NSValueBinding, &record, Number, named(u"none"_s));
    EXPECT_EQ(view.valueBinder.valueTransformer(), nullptr);
    EXPECT_EQ(view.value(), QVariant(5));
}

TEST(KTPropertyBinder, TransformersWithoutAWayBackAreNotUsedForIt)
{
    ObservedRecord record(u"Report.cobble"_s);
    BoundView view;
    view.bind(
        NSValueBinding, &record, Name,
        NSBindingOptions::withTransformer(KTFileExtensionValueTransformer::valueTransformer()));
    EXPECT_EQ(view.value(), QVariant(u"Report"_s));
    view.type(u"Other"_s);
    EXPECT_EQ(record.name(), u"Other"_s);
}

TEST(KTPropertyBinder, TheCurrentValueIsTransformedBothWays)
{
    ObservedRecord record(Name, 1);
    KTPropertyBinder binder;
    EXPECT_FALSE(binder.currentValue().isValid());
    binder.setCurrentValue(5);
    binder.bind(u"anything"_s, &record, Number,
                NSBindingOptions::withTransformer(KTBaseValueTransformer::valueTransformer()));
    EXPECT_EQ(binder.currentValue(), QVariant(2U));
    binder.setCurrentValue(10);
    EXPECT_EQ(record.number(), 9);
    EXPECT_EQ(binder.observedObject(), &record);
    EXPECT_EQ(binder.keyPath(), Number);
}

TEST(KTPropertyBinder, BindingAgainReplaces)
{
    ObservedRecord first(Name, 1), second(Name, 2);
    BoundView view;
    view.bind(NSValueBinding, &first, Number, {});
    view.bind(NSValueBinding, &second, Number, {});
    first.setNumber(10);
    EXPECT_EQ(view.value(), QVariant(2));
    EXPECT_EQ(first.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KTPropertyBinder, UnbindingTwiceIsHarmless)
{
    ObservedRecord record(Name, 1);
    BoundView view;
    view.unbind(NSValueBinding);
    view.bind(NSValueBinding, &record, Number, {});
    view.unbind(NSValueBinding);
    view.unbind(NSValueBinding);
    record.setNumber(2);
    EXPECT_EQ(view.value(), QVariant(1));
    EXPECT_EQ(view.valueBinder.observedObject(), nullptr);
    EXPECT_TRUE(view.valueBinder.keyPath().isNull());
    view.type(3);
    EXPECT_EQ(record.number(), 2);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KTPropertyBinder, EitherSideMayGoFirst)
{
    ObservedRecord record(Name, 1);
    {
        BoundView view;
        view.bind(NSValueBinding, &record, Number, {});
        EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 1);
    }
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    record.setNumber(2);
    BoundView view;
    {
        ObservedRecord shortLived(Name, 3);
        view.bind(NSValueBinding, &shortLived, Number, {});
    }
    EXPECT_EQ(view.valueBinder.observedObject(), nullptr);
    EXPECT_FALSE(view.valueBinder.currentValue().isValid());
    view.type(4);
    view.unbind(NSValueBinding);
    view.bind(NSValueBinding, &record, Number, {});
    EXPECT_EQ(view.value(), QVariant(2));
}

TEST(KTPropertyBinder, TheOwnerMayGoWhileItIsSet)
{
    class Suicidal : public QObject
    {
    public:
        KTPropertyBinder binder{u"text"_s, NSValueBinding, this};
    };
    ObservedRecord record(Name, 1);
    auto *const owner = new Suicidal;
    owner->setProperty("text", 0);
    testing_support::needApplication();
    // The event of the dynamic property deletes it.
    class Killer : public QObject
    {
    public:
        bool eventFilter(QObject *object, QEvent *event) override
        {
            const bool isItsEnd = event->type() == QEvent::DynamicPropertyChange && kills;
            if (isItsEnd)
                delete object;
            return isItsEnd;
        }
        bool kills = false;
    } killer;
    owner->installEventFilter(&killer);
    owner->binder.bind(NSValueBinding, &record, Number);
    EXPECT_EQ(owner->property("text"), QVariant(1));
    killer.kills = true;
    record.setNumber(2);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KTPropertyBinder, MayBeBoundInsideOfANotification)
{
    ObservedRecord record(Name, 1), other(Name, 100);
    BoundView view, second;
    view.bind(NSValueBinding, &record, Number, {});
    const NSKeyValueObservation rebinds(&record, Number, 0, [&](const NSKeyValueChange &) {
        view.bind(NSValueBinding, &other, Number, {});
        second.bind(NSValueBinding, &record, Number, {});
    });
    record.setNumber(2);
    EXPECT_EQ(view.value(), QVariant(100));
    EXPECT_EQ(second.value(), QVariant(2));
}

TEST(KTPropertyBinder, ExceptionsOfTheOwnerLeaveTheFlagClear)
{
    ObservedRecord record(Name, 1);
    QObject owner; // has no key
    KTPropertyBinder binder(u"none"_s, NSValueBinding, &owner);
    EXPECT_THROW(binder.bind(NSValueBinding, &record, Number), NSException);
    owner.setProperty("none", 5);
    binder.ownerKeyPathChanged();
    EXPECT_EQ(record.number(), 5);
}

TEST(KTPropertyBinder, UnknownKeysRaiseAndBindNothing)
{
    ObservedRecord record;
    BoundView view;
    for (const char16_t *path : {u"none", u"name.none", u""}) {
        EXPECT_THROW(view.bind(NSValueBinding, &record, QString::fromUtf16(path), {}), NSException)
            << QString::fromUtf16(path).toStdString();
        EXPECT_EQ(view.valueBinder.observedObject(), nullptr);
    }
    view.bind(NSValueBinding, nullptr, Number, {});
    EXPECT_EQ(view.valueBinder.observedObject(), nullptr);
    EXPECT_EQ(view.sets, 0);
}
