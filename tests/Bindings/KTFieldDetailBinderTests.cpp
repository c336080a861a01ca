#include <KTUtility/KTFieldDetailBinder>

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTSingleObjectFilter>
#include <KTUtility/NSException>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {
/// A form that makes a view for each field, and writes down what it is told.
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
    Q_INVOKABLE void fieldDetailObjectsFinishedAdding() { log += QStringLiteral("added"); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRemoving() { log += QStringLiteral("removed"); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRearrange() { log += QStringLiteral("rearranged"); }
    Q_INVOKABLE void setAutoScrollToInsertedObject(bool scrolls)
    {
        log += scrolls ? QStringLiteral("scroll on") : QStringLiteral("scroll off");
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

const QString Fields = QStringLiteral("fields");
const QString Source = QStringLiteral("source");
const QString Keys = QStringLiteral("keys");
const QString Labels = QStringLiteral("labels");

class FieldDetailBinder : public testing::Test
{
protected:
    FieldDetailBinder()
    {
        binder = std::make_unique<KTFieldDetailBinder>(&form);
        binder->setFieldsBindingName(Fields);
        binder->setValueSourceBindingName(Source);
        binder->setFieldDetailValuesBindingName(Keys);
        binder->addFieldDependentBindingName(Keys, QStringLiteral("key"));
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
    void bindFields() { binder->bind(Fields, &library, QStringLiteral("list")); }
    void bindAll()
    {
        binder->bind(Source, &sourceHolder, QStringLiteral("next"));
        bindFields();
        binder->bind(Keys, &library, QStringLiteral("list.any"));
        binder->bind(Labels, &library, QStringLiteral("list.name"));
        form.takeLog();
    }
    static QStringList lines(const char16_t *text)
    {
        return QString::fromUtf16(text).split(QStringLiteral(", "));
    }

    ObservedRecord library, sourceHolder, record{QStringLiteral("Ada"), 36};
    ObservedRecord a{QStringLiteral("A")}, b{QStringLiteral("B")}, c{QStringLiteral("C")};
    Form form;
    std::unique_ptr<KTFieldDetailBinder> binder;
};
} // namespace

TEST_F(FieldDetailBinder, AnEmptyCollectionTellsOnce)
{
    bindFields();
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, added, rearranged, scroll on"));
    EXPECT_TRUE(form.views.empty());
}

TEST_F(FieldDetailBinder, MakesADetailObjectForEachField)
{
    setFields({&a, &b});
    bindFields();
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, create A, bound A A, create B, "
                                    u"bound B B, added, rearranged, scroll on"));
}

TEST_F(FieldDetailBinder, FieldsThatStayKeepTheirs)
{
    setFields({&a, &b});
    bindFields();
    BoundView *const viewOfB = form.view(QStringLiteral("B"));
    form.takeLog();
    setFields({&b, &c});
    EXPECT_EQ(form.takeLog(), lines(u"destroy A, removed, create C, bound C C, added, rearranged, "
                                    u"scroll on"));
    EXPECT_EQ(form.view(QStringLiteral("B")), viewOfB);
    setFields({&c, &b});
    EXPECT_EQ(form.takeLog(), lines(u"removed, added, rearranged, scroll on"));
}

TEST_F(FieldDetailBinder, ReplacingAllTurnsScrollingOff)
{
    setFields({&a});
    bindFields();
    form.takeLog();
    setFields({&c});
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, destroy A, removed, create C, bound C C, added, "
                                    u"rearranged, scroll on"));
}

TEST_F(FieldDetailBinder, BindsLabelsToEachField)
{
    bindAll();
    setFields({&a, &b});
    EXPECT_EQ(form.view(QStringLiteral("A"))->label(), QVariant(QStringLiteral("A")));
    b.setName(QStringLiteral("Bee"));
    EXPECT_EQ(form.view(QStringLiteral("B"))->label(), QVariant(QStringLiteral("Bee")));
}

TEST_F(FieldDetailBinder, BindsFieldsThatAreThereAlready)
{
    setFields({&a});
    bindFields();
    binder->bind(Labels, &library, QStringLiteral("list.name"));
    EXPECT_EQ(form.view(QStringLiteral("A"))->label(), QVariant(QStringLiteral("A")));
}

TEST_F(FieldDetailBinder, OtherPathsAreBoundToTheirOwnObject)
{
    bindAll();
    binder->bind(Labels, &record, QStringLiteral("name"));
    setFields({&a, &b});
    record.setName(QStringLiteral("Common"));
    EXPECT_EQ(form.view(QStringLiteral("A"))->label(), QVariant(QStringLiteral("Common")));
    EXPECT_EQ(form.view(QStringLiteral("B"))->label(), QVariant(QStringLiteral("Common")));
    // The same object, and a path that only begins alike.
    library.setProperty("listener", QStringLiteral("x"));
    binder->bind(Labels, &library, QStringLiteral("listener"));
    EXPECT_EQ(form.view(QStringLiteral("A"))->label(), QVariant(QStringLiteral("x")));
}

TEST_F(FieldDetailBinder, ShowsTheValuesOfTheSource)
{
    sourceHolder.setNext(&record);
    a.setAny(QStringLiteral("name"));
    b.setAny(QStringLiteral("number"));
    bindAll();
    setFields({&a, &b, &c});
    EXPECT_EQ(form.view(QStringLiteral("A"))->value(), QVariant(QStringLiteral("Ada")));
    EXPECT_EQ(form.view(QStringLiteral("B"))->value(), QVariant(36));
    // A field without a key stays unbound.
    EXPECT_EQ(form.view(QStringLiteral("C"))->valueBinder.observedObject(), nullptr);
    form.view(QStringLiteral("B"))->type(37);
    EXPECT_EQ(record.number(), 37);
    ObservedRecord other(QStringLiteral("Bob"), 1);
    sourceHolder.setNext(&other);
    EXPECT_EQ(form.view(QStringLiteral("A"))->value(), QVariant(QStringLiteral("Bob")));
    EXPECT_EQ(binder->valueSourceObject(), &sourceHolder);
    EXPECT_EQ(binder->valueSourceKeyPath(), QStringLiteral("next"));
}

TEST_F(FieldDetailBinder, KeysThroughTheirTransformer)
{
    sourceHolder.setNext(&record);
    a.setAny(QVariantList{QStringLiteral("name")});
    bindAll();
    binder->bind(Keys, &library, QStringLiteral("list.any"),
                 NSBindingOptions::withTransformer(KTSingleObjectFilter::valueTransformer()));
    setFields({&a});
    EXPECT_EQ(form.view(QStringLiteral("A"))->value(), QVariant(QStringLiteral("Ada")));
}

TEST_F(FieldDetailBinder, ValuesThroughATransformerWhereThePredicateSaysSo)
{
    sourceHolder.setNext(&record);
    a.setAny(QStringLiteral("number"));
    b.setAny(QStringLiteral("number"));
    binder->setFieldDetailValuesValueTransformer(KTBaseValueTransformer::valueTransformer(),
                                                 NSPredicate::predicateWithFormat(u"row == 2"));
    bindAll();
    setFields({&a, &b});
    EXPECT_EQ(form.view(QStringLiteral("A"))->value(), QVariant(36));
    EXPECT_EQ(form.view(QStringLiteral("B"))->value(), QVariant(37U));
    binder->setFieldDetailValuesValueTransformer(KTBaseValueTransformer::valueTransformer());
    setFields({&c});
    setFields({&a});
    EXPECT_EQ(form.view(QStringLiteral("A"))->value(), QVariant(37U));
}

TEST_F(FieldDetailBinder, DependentBindingsNeedTheFields)
{
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(binder->bind(Labels, &library, QStringLiteral("list.name")),
                      NSInternalInconsistencyException,
                      QStringLiteral("labels binding is only valid when fields binding is set."));
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:144"));
}

TEST_F(FieldDetailBinder, FieldsNeedAnObjectAndAPath)
{
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(binder->bind(Fields, nullptr, QStringLiteral("list")),
                      NSInternalInconsistencyException,
                      QStringLiteral("Invalid parameter not satisfying: observableController != "
                                     "nil"));
        EXPECT_RAISES(binder->bind(Fields, &library, QString()), NSInternalInconsistencyException,
                      QStringLiteral("Invalid parameter not satisfying: [keyPath length] > 0"));
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:120"));
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:121"));
    EXPECT_THROW(binder->bind(Fields, &library, QStringLiteral("none")), NSException);
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(FieldDetailBinder, OwnersMustAnswer)
{
    IncompleteForm incomplete;
    QObject nothing;
    const QString output = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(KTFieldDetailBinder{&nothing}, NSInternalInconsistencyException,
                      QStringLiteral("Owner does not respond to selector "
                                     "\"createNewFieldDetailObjectForField:\""));
        EXPECT_RAISES(KTFieldDetailBinder{&incomplete}, NSInternalInconsistencyException,
                      QStringLiteral("Owner does not respond to selector "
                                     "\"fieldDetailObjectWasBound:toField:\""));
    });
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:44"));
    EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder:45"));
}

TEST_F(FieldDetailBinder, OwnersWithOnlyWhatIsRequired)
{
    PlainForm plain;
    KTFieldDetailBinder other(&plain);
    other.setFieldsBindingName(Fields);
    setFields({&a});
    other.bind(Fields, &library, QStringLiteral("list"));
    EXPECT_EQ(plain.bound, 1);
    setFields({});
    EXPECT_EQ(plain.bound, 0);
}

TEST_F(FieldDetailBinder, OtherKindsOfChangesAreNotSupported)
{
    bindFields();
    form.takeLog();
    const QString output = testing_support::standardErrorOf([&] {
        for (const NSKeyValueChangeKind kind :
             {NSKeyValueChangeInsertion, NSKeyValueChangeRemoval, NSKeyValueChangeReplacement})
            EXPECT_RAISES(
                NSKeyValueObserving::didChange(kind, &library, {0}, QStringLiteral("list")),
                NSInternalInconsistencyException,
                QStringLiteral("Change type no longer supported"));
    });
    for (const char16_t *line : {u":256", u":260", u":264"})
        EXPECT_TRUE(output.contains(u"Bindings/KTFieldDetailBinder" + QString::fromUtf16(line)));
    binder->observeValueForKeyPath(QStringLiteral("list"), &library,
                                   {NSKeyValueChangeKind(5), {}, {}, {}, false}, Fields);
    binder->observeValueForKeyPath(QStringLiteral("list"), &library, {}, QStringLiteral("other"));
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(FieldDetailBinder, WhichBindingsItHandles)
{
    for (const QString &name : {Fields, Source, Keys, Labels})
        EXPECT_TRUE(binder->willHandleBindingName(name));
    EXPECT_FALSE(binder->willHandleBindingName(QStringLiteral("label")));
    binder->bind(QStringLiteral("other"), &library, QStringLiteral("list"));
    binder->unbind(QStringLiteral("other"));
    EXPECT_TRUE(form.log.isEmpty());
}

TEST_F(FieldDetailBinder, UnbindingDestroysAllDetailObjects)
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

TEST_F(FieldDetailBinder, UnbindingADependentBindingLeavesTheDetailObjects)
{
    bindAll();
    setFields({&a});
    binder->unbind(Labels);
    a.setName(QStringLiteral("Still"));
    EXPECT_EQ(form.view(QStringLiteral("A"))->label(), QVariant(QStringLiteral("Still")));
    setFields({&a, &b});
    EXPECT_FALSE(form.view(QStringLiteral("B"))->label().isValid());
    binder->unbind(Source);
    EXPECT_EQ(binder->valueSourceObject(), nullptr);
    EXPECT_TRUE(binder->valueSourceKeyPath().isNull());
}

TEST_F(FieldDetailBinder, TheCollectionMayBeMadeByATransformer)
{
    library.setAny(QVariant::fromValue(&a));
    binder->bind(
        Fields, &library, QStringLiteral("any"),
        NSBindingOptions::withTransformer(KTSingleObjectFilter::reversedValueTransformer()));
    EXPECT_NE(form.view(QStringLiteral("A")), nullptr);
    // A name is not looked up.
    binder->bind(Fields, &library, QStringLiteral("any"),
                 {{NSValueTransformerNameBindingOption, QStringLiteral("KTSingleObjectFilter")}});
    EXPECT_TRUE(form.views.empty());
}

TEST_F(FieldDetailBinder, WhatIsNoFieldIsPassedOver)
{
    bindFields();
    form.takeLog();
    library.setList({1, QStringLiteral("x"), QVariant::fromValue(&a), QVariant(),
                     QVariantMap{{QStringLiteral("name"), 1}}});
    EXPECT_EQ(form.views.size(), 1U);
    library.setList({});
    EXPECT_TRUE(form.views.empty());
}

TEST_F(FieldDetailBinder, TheSameFieldTwice)
{
    bindAll();
    setFields({&a, &a});
    EXPECT_EQ(form.views.size(), 2U);
    form.takeLog();
    setFields({&a});
    EXPECT_EQ(form.takeLog(), lines(u"removed, added, rearranged, scroll on"));
    setFields({});
    EXPECT_EQ(form.takeLog().count(QStringLiteral("destroy A")), 1);
}

TEST_F(FieldDetailBinder, FieldsMayGoBeforeTheyAreTakenAway)
{
    bindAll();
    auto field = std::make_unique<ObservedRecord>(QStringLiteral("Gone"));
    setFields({field.get(), &a});
    form.takeLog();
    field.reset();
    library.setList({QVariant::fromValue(&a)});
    EXPECT_EQ(form.takeLog(), lines(u"destroy Gone, removed, added, rearranged, scroll on"));
}

TEST_F(FieldDetailBinder, OwnersMayMakeNothing)
{
    form.makesNothing = true;
    bindAll();
    setFields({&a});
    EXPECT_EQ(form.takeLog(),
              lines(u"scroll off, removed, create A, added, rearranged, scroll on"));
    setFields({});
    EXPECT_FALSE(form.takeLog().contains(QStringLiteral("destroy A")));
}

TEST_F(FieldDetailBinder, OwnersMayDeleteDetailObjectsThemselves)
{
    bindAll();
    setFields({&a});
    form.views.clear();
    form.takeLog();
    setFields({&b});
    EXPECT_EQ(form.takeLog(), lines(u"scroll off, removed, create B, bound B B, added, rearranged, "
                                    u"scroll on"));
}

TEST_F(FieldDetailBinder, EitherSideMayGoFirst)
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
    other.bind(Fields, observed.get(), QStringLiteral("list"));
    owner.reset();
    observed->setList({QVariant::fromValue(&b)});
    observed.reset();
    other.unbind(Fields);
    EXPECT_TRUE(other._fieldsBindingValue().isEmpty());
}

TEST_F(FieldDetailBinder, NoObserverIsLeftBehind)
{
    sourceHolder.setNext(&record);
    a.setAny(QStringLiteral("name"));
    bindAll();
    setFields({&a});
    EXPECT_GT(record.receivers(SIGNAL(nameChanged())), 0);
    EXPECT_GT(a.receivers(SIGNAL(nameChanged())), 0);
    setFields({});
    EXPECT_EQ(record.receivers(SIGNAL(nameChanged())), 0);
    EXPECT_EQ(a.receivers(SIGNAL(nameChanged())), 0);
}

#include "KTFieldDetailBinderTests.moc"
