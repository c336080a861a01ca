#include <KTUtility/KTFieldDetailBinder>

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTSingleObjectFilter>
#include <KTUtility/NSCollections>
#include <KTUtility/NSException>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <algorithm>
#include <ctime>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// A form that makes a view for each field, and writes down what it is notified of.
class Form : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *field)
    {
        log += u"create " + nameOf(field);
        if (makesNothing)
            return nullptr;
        views.push_back(std::make_unique<BoundView>());
        views.back()->setObjectName(nameOf(field));
        views.back()->row = int(views.size());
        return views.back().get();
    }
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *detail, QObject *toField)
    {
        log += u"bound " + detail->objectName() + u' ' + nameOf(toField);
    }
    Q_INVOKABLE void fieldDetailObjectWillBeDestroyed(QObject *detail)
    {
        log += u"destroy " + detail->objectName();
        std::erase_if(views, [&](const auto &view) { return view.get() == detail; });
    }
    Q_INVOKABLE void fieldDetailObjectsFinishedAdding() { log += u"added"_s; }
    Q_INVOKABLE void fieldDetailObjectsFinishedRemoving() { log += u"removed"_s; }
    Q_INVOKABLE void fieldDetailObjectsFinishedRearrange() { log += u"rearranged"_s; }
    Q_INVOKABLE void setAutoScrollToInsertedObject(bool scrolls)
    {
        log += scrolls ? u"scroll on"_s : u"scroll off"_s;
    }

    QStringList takeLog() { return std::exchange(log, {}); }
    BoundView *view(const QString &name) const
    {
        for (const auto &view : views) {
            if (view->objectName() == name)
                return view.get();
        }
        return nullptr;
    }

    QStringList log;
    std::vector<std::unique_ptr<BoundView>> views;
    bool makesNothing = false;

private:
    static QString nameOf(QObject *field) { return static_cast<ObservedRecord *>(field)->name(); }
};

/// An owner with what is required only, as slots with other parameter types.
class PlainForm : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    QObject *createNewFieldDetailObjectForField(const QVariant &) { return &view; }
    void fieldDetailObjectWasBound(const QVariant &, const QVariant &) { ++bound; }
    void fieldDetailObjectWillBeDestroyed(QObject *) { --bound; }

public:
    BoundView view;
    int bound = 0;
};

class IncompleteForm : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *) { return nullptr; }
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *) {}
};

const QString Fields = u"fields"_s;
const QString Source = u"source"_s;
const QString Keys = u"keys"_s;
const QString Labels = u"labels"_s;

class KTFieldDetailBinderTests : public testing::Test
{
protected:
    KTFieldDetailBinderTests()
    {
        binder = std::make_unique<KTFieldDetailBinder>(&form);
        binder->setFieldsBindingName(Fields);
        binder->setValueSourceBindingName(Source);
        binder->setFieldDetailValuesBindingName(Keys);
        binder->addFieldDependentBindingName(Keys, u"key"_s);
        binder->addFieldDependentBindingName(Labels, BoundView::Label);
    }

    /// Makes the list of the library these fields.
    void setFields(const QList<ObservedRecord *> &fields)
    {
        QVariantList list;
        for (ObservedRecord *const field : fields)
            list += QVariant::fromValue(field);
        library.setList(list);
    }
    void bindFields() { binder->bind(Fields, &library, u"list"_s); }
    void bindAll()
    {
        binder->bind(Source, &sourceHolder, u"next"_s);
        bindFields();
        binder->bind(Keys, &library, u"list.any"_s);
        binder->bind(Labels, &library, u"list.name"_s);
        form.takeLog();
    }
    static QStringList lines(const char16_t *text)
    {
        return QString::fromUtf16(text).split(u", "_s);
    }

    ObservedRecord library, sourceHolder, record{u"Ada"_s, 36};
    ObservedRecord a{u"A"_s}, b{u"B"_s}, c{u"C"_s};
    Form form;
    std::unique_ptr<KTFieldDetailBinder> binder;
};
} // namespace

TEST_F(KTFieldDetailBinderTests, AnEmptyCollectionTellsOnce)
{
    bindFields();
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, added, rearranged, scroll on"));
    EXPECT_TRUE(form.views.empty());
}

TEST_F(KTFieldDetailBinderTests, MakesADetailObjectForEachField)
{
    setFields({&a, &b});
    bindFields();
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, create A, bound A A, create B, "
                                    u"bound B B, added, rearranged, scroll on"));
}

TEST_F(KTFieldDetailBinderTests, FieldsThatStayKeepTheirs)
{
    setFields({&a, &b});
    bindFields();
    BoundView *const viewOfB = form.view(u"B"_s);
    form.takeLog();
    setFields({&b, &c});
    EXPECT_EQ(form.takeLog(), lines(u"destroy A, removed, create C, bound C C, added, rearranged, "
                                    u"scroll on"));
    EXPECT_EQ(form.view(u"B"_s), viewOfB);
    setFields({&c, &b});
    EXPECT_EQ(form.takeLog(), lines(u"removed, added, rearranged, scroll on"));
}

TEST_F(KTFieldDetailBinderTests, ReplacingAllTurnsScrollingOff)
{
    setFields({&a});
    bindFields();
    form.takeLog();
    setFields({&c});
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, destroy A, removed, create C, bound C C, added, "
                                    u"rearranged, scroll on"));
}

TEST_F(KTFieldDetailBinderTests, BindsLabelsToEachField)
{
    bindAll();
    setFields({&a, &b});
    EXPECT_EQ(form.view(u"A"_s)->label(), QVariant(u"A"_s));
    b.setName(u"Bee"_s);
    EXPECT_EQ(form.view(u"B"_s)->label(), QVariant(u"Bee"_s));
}

TEST_F(KTFieldDetailBinderTests, BindsFieldsThatAreThereAlready)
{
    setFields({&a});
    bindFields();
    binder->bind(Labels, &library, u"list.name"_s);
    EXPECT_EQ(form.view(u"A"_s)->label(), QVariant(u"A"_s));
}

TEST_F(KTFieldDetailBinderTests, OtherPathsAreBoundToTheirOwnObject)
{
    bindAll();
    binder->bind(Labels, &record, u"name"_s);
    setFields({&a, &b});
    record.setName(u"Common"_s);
    EXPECT_EQ(form.view(u"A"_s)->label(), QVariant(u"Common"_s));
    EXPECT_EQ(form.view(u"B"_s)->label(), QVariant(u"Common"_s));
    // The same object, and a path that only begins alike.
    library.setProperty("listener", u"x"_s);
    binder->bind(Labels, &library, u"listener"_s);
    EXPECT_EQ(form.view(u"A"_s)->label(), QVariant(u"x"_s));
}

TEST_F(KTFieldDetailBinderTests, ShowsTheValuesOfTheSource)
{
    sourceHolder.setNext(&record);
    a.setAny(u"name"_s);
    b.setAny(u"number"_s);
    bindAll();
    setFields({&a, &b, &c});
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(u"Ada"_s));
    EXPECT_EQ(form.view(u"B"_s)->value(), QVariant(36));
    // A field without a key stays unbound.
    EXPECT_EQ(form.view(u"C"_s)->valueBinder.observedObject(), nullptr);
    form.view(u"B"_s)->type(37);
    EXPECT_EQ(record.number(), 37);
    ObservedRecord other(u"Bob"_s, 1);
    sourceHolder.setNext(&other);
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(u"Bob"_s));
    EXPECT_EQ(binder->valueSourceObject(), &sourceHolder);
    EXPECT_EQ(binder->valueSourceKeyPath(), u"next"_s);
}

TEST_F(KTFieldDetailBinderTests, PassesKeysThroughTheirTransformer)
{
    sourceHolder.setNext(&record);
    a.setAny(QVariantList{u"name"_s});
    bindAll();
    binder->bind(Keys, &library, u"list.any"_s,
                 NSBindingOptions::withTransformer(KTSingleObjectFilter::valueTransformer()));
    setFields({&a});
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(u"Ada"_s));
}

TEST_F(KTFieldDetailBinderTests, PassesValuesThroughATransformerWhereThePredicateSaysSo)
{
    sourceHolder.setNext(&record);
    a.setAny(u"number"_s);
    b.setAny(u"number"_s);
    binder->setFieldDetailValuesValueTransformer(KTBaseValueTransformer::valueTransformer(),
                                                 NSPredicate::predicateWithFormat(u"row == 2"));
    bindAll();
    setFields({&a, &b});
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(36));
    EXPECT_EQ(form.view(u"B"_s)->value(), QVariant(37U));
    binder->setFieldDetailValuesValueTransformer(KTBaseValueTransformer::valueTransformer());
    setFields({&c});
    setFields({&a});
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(37U));
}

TEST_F(KTFieldDetailBinderTests, DependentBindingsNeedTheFields)
{
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(binder->bind(Labels, &library, u"list.name"_s),
                      NSInternalInconsistencyException,
                      u"labels binding is only valid when fields binding is set."_s);
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:144"));
}

TEST_F(KTFieldDetailBinderTests, FieldsNeedAnObjectAndAPath)
{
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(binder->bind(Fields, nullptr, u"list"_s), NSInternalInconsistencyException,
                      u"Invalid parameter not satisfying: observableController != "
                      "nil"_s);
        EXPECT_RAISES(binder->bind(Fields, &library, QString()), NSInternalInconsistencyException,
                      u"Invalid parameter not satisfying: [keyPath length] > 0"_s);
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:120"));
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:121"));
    EXPECT_THROW(binder->bind(Fields, &library, u"none"_s), NSException);
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(KTFieldDetailBinderTests, OwnersMustAnswer)
{
    IncompleteForm incomplete;
    QObject nothing;
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(KTFieldDetailBinder{&nothing}, NSInternalInconsistencyException,
                      u"Owner does not respond to selector "
                      "\"createNewFieldDetailObjectForField:\""_s);
        EXPECT_RAISES(KTFieldDetailBinder{&incomplete}, NSInternalInconsistencyException,
                      u"Owner does not respond to selector "
                      "\"fieldDetailObjectWasBound:toField:\""_s);
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:44"));
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:45"));
}

TEST_F(KTFieldDetailBinderTests, OwnersMayHaveOnlyWhatIsRequired)
{
    PlainForm plain;
    KTFieldDetailBinder other(&plain);
    other.setFieldsBindingName(Fields);
    setFields({&a});
    other.bind(Fields, &library, u"list"_s);
    EXPECT_EQ(plain.bound, 1);
    setFields({});
    EXPECT_EQ(plain.bound, 0);
}

TEST_F(KTFieldDetailBinderTests, OtherKindsOfChangesAreNotSupported)
{
    bindFields();
    form.takeLog();
    const QString output = testing_support::standardErrorOf([&] {
        for (const NSKeyValueChangeKind kind :
             {NSKeyValueChangeInsertion, NSKeyValueChangeRemoval, NSKeyValueChangeReplacement})
            EXPECT_RAISES(NSKeyValueObserving::didChange(kind, &library, {0}, u"list"_s),
                          NSInternalInconsistencyException, u"Change type no longer supported"_s);
    });
    for (const char16_t *line : {u":256", u":260", u":264"})
        EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder" + QString::fromUtf16(line)));
    binder->observeValueForKeyPath(u"list"_s, &library,
                                   {NSKeyValueChangeKind(5), {}, {}, {}, false}, Fields);
    binder->observeValueForKeyPath(u"list"_s, &library, {}, u"other"_s);
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(KTFieldDetailBinderTests, KnowsWhichBindingsItHandles)
{
    for (const QString &name : {Fields, Source, Keys, Labels})
        EXPECT_TRUE(binder->willHandleBindingName(name));
    EXPECT_FALSE(binder->willHandleBindingName(u"label"_s));
    binder->bind(u"other"_s, &library, u"list"_s);
    binder->unbind(u"other"_s);
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(KTFieldDetailBinderTests, UnbindingDestroysAllDetailObjects)
{
    setFields({&a, &b});
    bindAll();
    binder->unbind(Fields);
    EXPECT_EQ(form.takeLog(), lines(u"destroy A, destroy B, removed, rearranged"));
    setFields({&c});
    EXPECT_TRUE(form.log.isEmpty());
    EXPECT_EQ(library.receivers(SIGNAL(listChanged())), 0);
    EXPECT_TRUE(binder->_fieldsBindingValue().isEmpty());
    binder->unbind(Fields);
    EXPECT_TRUE(form.log.isEmpty());
    // The list is kept: fields that were shown before the binding ended are taken for shown.
    setFields({&a, &c});
    bindFields();
    EXPECT_EQ(form.takeLog(), lines(u"destroy, removed, create C, bound C C, added, rearranged, "
                                    u"scroll on")
                                  .sliced(1));
}

TEST_F(KTFieldDetailBinderTests, UnbindingADependentBindingLeavesTheDetailObjects)
{
    bindAll();
    setFields({&a});
    binder->unbind(Labels);
    a.setName(u"Still"_s);
    EXPECT_EQ(form.view(u"A"_s)->label(), QVariant(u"Still"_s));
    setFields({&a, &b});
    EXPECT_FALSE(form.view(u"B"_s)->label().isValid());
    binder->unbind(Source);
    EXPECT_EQ(binder->valueSourceObject(), nullptr);
    EXPECT_TRUE(binder->valueSourceKeyPath().isNull());
}

TEST_F(KTFieldDetailBinderTests, TheCollectionMayBeMadeByATransformer)
{
    library.setAny(QVariant::fromValue(&a));
    binder->bind(
        Fields, &library, u"any"_s,
        NSBindingOptions::withTransformer(KTSingleObjectFilter::reversedValueTransformer()));
    EXPECT_NE(form.view(u"A"_s), nullptr);
    // A name is not looked up.
    binder->bind(Fields, &library, u"any"_s,
                 {{NSValueTransformerNameBindingOption, u"KTSingleObjectFilter"_s}});
    EXPECT_TRUE(form.views.empty());
}

TEST_F(KTFieldDetailBinderTests, TheCollectionMayBeASet)
{
    library.setAny(QVariant::fromValue(NSSet{QVariant::fromValue(&a), QVariant::fromValue(&b)}));
    binder->bind(Fields, &library, u"any"_s, {});
    EXPECT_EQ(form.views.size(), 2U);
    library.setAny(QVariant::fromValue(NSSet{QVariant::fromValue(&b)}));
    EXPECT_EQ(form.views.size(), 1U);
    EXPECT_NE(form.view(u"B"_s), nullptr);
}

TEST_F(KTFieldDetailBinderTests, WhatIsNoFieldIsPassedOver)
{
    bindFields();
    form.takeLog();
    library.setList({1, u"x"_s, QVariant::fromValue(&a), QVariant(), QVariantMap{{u"name"_s, 1}}});
    EXPECT_EQ(form.views.size(), 1U);
    library.setList({});
    EXPECT_TRUE(form.views.empty());
}

TEST_F(KTFieldDetailBinderTests, TakesTheSameFieldTwice)
{
    bindAll();
    setFields({&a, &a});
    EXPECT_EQ(form.views.size(), 2U);
    form.takeLog();
    setFields({&a});
    EXPECT_EQ(form.takeLog(), lines(u"removed, added, rearranged, scroll on"));
    setFields({});
    EXPECT_EQ(form.takeLog().count(u"destroy A"_s), 2);
    EXPECT_TRUE(form.views.empty());
    EXPECT_EQ(a.receivers(SIGNAL(nameChanged())), 0);
    setFields({&a, &b, &a});
    binder->unbind(Fields);
    EXPECT_TRUE(form.views.empty());
}

TEST_F(KTFieldDetailBinderTests, AFieldWithAnUnknownKeyHidesNoOther)
{
    sourceHolder.setNext(&record);
    a.setAny(u"name"_s);
    b.setAny(u"nothing"_s);
    c.setAny(u"number"_s);
    bindAll();
    setFields({&a, &b, &c});
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, create A, bound A A, create B, "
                                    u"bound B B, create C, bound C C, added, rearranged, "
                                    u"scroll on"));
    EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(u"Ada"_s));
    EXPECT_EQ(form.view(u"B"_s)->label(), QVariant(u"B"_s));
    EXPECT_FALSE(form.view(u"B"_s)->value().isValid());
    EXPECT_EQ(form.view(u"C"_s)->value(), QVariant(36));
    setFields({&a, &c});
    EXPECT_EQ(form.takeLog(), lines(u"destroy B, removed, added, rearranged, scroll on"));
    EXPECT_EQ(form.views.size(), 2U);
}

TEST_F(KTFieldDetailBinderTests, BindingRaisesWhatAFieldHasRaisedWhenAllIsDone)
{
    sourceHolder.setNext(&record);
    setFields({&a, &b});
    bindFields();
    b.setProperty("title", u"B"_s);
    // A lacks the key, and B has its label all the same.
    EXPECT_THROW(binder->bind(Labels, &library, u"list.title"_s), NSException);
    EXPECT_EQ(form.view(u"B"_s)->label(), QVariant(u"B"_s));
}

TEST_F(KTFieldDetailBinderTests, TheValueSourceMayBeAnObjectItself)
{
    for (const QString &path : {QString(), u""_s}) {
        binder->bind(Source, &record, path);
        bindFields();
        binder->bind(Keys, &library, u"list.any"_s);
        a.setAny(u"name"_s);
        setFields({&a});
        EXPECT_EQ(form.view(u"A"_s)->value(), QVariant(u"Ada"_s));
        form.view(u"A"_s)->type(u"Eve"_s);
        EXPECT_EQ(record.name(), u"Eve"_s);
        record.setName(u"Ada"_s);
        setFields({});
    }
}

TEST_F(KTFieldDetailBinderTests, NamesThatAreNotSetHandleNothing)
{
    KTFieldDetailBinder other(&form);
    other.setFieldsBindingName(Fields);
    for (const QString &name : {QString(), u""_s}) {
        EXPECT_FALSE(other.willHandleBindingName(name));
        other.bind(name, &library, u"list"_s);
        EXPECT_EQ(other.valueSourceObject(), nullptr);
    }
}

TEST_F(KTFieldDetailBinderTests, ManyFieldsAreTakenAwayInLinearTime)
{
    sourceHolder.setNext(&record);
    bindAll();
    const auto millisecondsToTakeAway = [&](int count) {
        std::vector<std::unique_ptr<ObservedRecord>> fields;
        QVariantList list;
        for (int index = 0; index < count; ++index) {
            fields.push_back(std::make_unique<ObservedRecord>(QString::number(index)));
            fields.back()->setAny(u"name"_s);
            list += QVariant::fromValue(fields.back().get());
        }
        library.setList(list);
        const std::vector<std::unique_ptr<BoundView>> views = std::exchange(form.views, {});
        const std::clock_t start = std::clock();
        library.setList({});
        return 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC;
    };
    // Eight times as many take a good deal less than 64 times as long.
    const double few = std::max(millisecondsToTakeAway(2'500), millisecondsToTakeAway(2'500));
    const double many = std::min(millisecondsToTakeAway(20'000), millisecondsToTakeAway(20'000));
    EXPECT_LT(many, 24 * few + 20);
}

TEST_F(KTFieldDetailBinderTests, FieldsMayGoBeforeTheyAreTakenAway)
{
    bindAll();
    auto field = std::make_unique<ObservedRecord>(u"Gone"_s);
    setFields({field.get(), &a});
    form.takeLog();
    field.reset();
    library.setList({QVariant::fromValue(&a)});
    EXPECT_EQ(form.takeLog(), lines(u"destroy Gone, removed, added, rearranged, scroll on"));
}

TEST_F(KTFieldDetailBinderTests, OwnersMayMakeNothing)
{
    form.makesNothing = true;
    bindAll();
    setFields({&a});
    EXPECT_EQ(form.takeLog(),
              lines(u"scroll off, removed, create A, added, rearranged, scroll on"));
    setFields({});
    EXPECT_FALSE(form.takeLog().contains(u"destroy A"_s));
}

TEST_F(KTFieldDetailBinderTests, OwnersMayDeleteDetailObjectsThemselves)
{
    bindAll();
    setFields({&a});
    form.views.clear();
    form.takeLog();
    setFields({&b});
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, create B, bound B B, added, rearranged, "
                                    u"scroll on"));
}

TEST_F(KTFieldDetailBinderTests, EitherSideMayGoFirst)
{
    bindAll();
    setFields({&a});
    binder.reset();
    EXPECT_EQ(form.views.size(), 0U);
    EXPECT_EQ(library.receivers(SIGNAL(listChanged())), 0);

    auto owner = std::make_unique<Form>();
    auto observed = std::make_unique<ObservedRecord>();
    KTFieldDetailBinder other(owner.get());
    other.setFieldsBindingName(Fields);
    observed->setList({QVariant::fromValue(&a)});
    other.bind(Fields, observed.get(), u"list"_s);
    owner.reset();
    observed->setList({QVariant::fromValue(&b)});
    observed.reset();
    other.unbind(Fields);
    EXPECT_TRUE(other._fieldsBindingValue().isEmpty());
}

TEST_F(KTFieldDetailBinderTests, NoObserverIsLeftBehind)
{
    sourceHolder.setNext(&record);
    a.setAny(u"name"_s);
    bindAll();
    setFields({&a});
    EXPECT_GT(record.receivers(SIGNAL(nameChanged())), 0);
    EXPECT_GT(a.receivers(SIGNAL(nameChanged())), 0);
    setFields({});
    EXPECT_EQ(record.receivers(SIGNAL(nameChanged())), 0);
    EXPECT_EQ(a.receivers(SIGNAL(nameChanged())), 0);
}

#include "KTFieldDetailBinderTests.moc"
