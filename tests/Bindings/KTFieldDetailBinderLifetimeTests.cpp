// Owners, detail objects, fields and binders that end each other while they are called.

#include <KTUtility/KTFieldDetailBinder>
#include <KTUtility/NSArrayController>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
const QString Fields = u"fields"_s;
const QString Labels = u"labels"_s;
const QString List = u"list"_s;
const QString ListNames = u"list.name"_s;

/// An owner that does what a test wants as soon as it is called with some method.
class ActingForm : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *field)
    {
        views.push_back(std::make_unique<BoundView>());
        BoundView *const view = views.back().get();
        view->setObjectName(static_cast<ObservedRecord *>(field)->name());
        act("create");
        return view;
    }
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *, QObject *) { act("bound"); }
    Q_INVOKABLE void fieldDetailObjectWillBeDestroyed(QObject *detail)
    {
        std::erase_if(views, [&](const auto &view) { return view.get() == detail; });
        act("destroy");
    }
    Q_INVOKABLE void fieldDetailObjectsFinishedAdding() { act("added"); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRemoving() { act("removed"); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRearrange() { act("rearranged"); }
    Q_INVOKABLE void setAutoScrollToInsertedObject(bool scrolls)
    {
        act(scrolls ? "scroll on" : "scroll off");
    }

    /// Has something done once, at the next call of a method.
    void at(const char *method, std::function<void()> action)
    {
        _method = method;
        _action = std::move(action);
    }
    bool hasActed() const { return !_action; }
    QString shown() const
    {
        QStringList names;
        for (const auto &view : views)
            names += view->label().toString();
        names.sort();
        return names.join(QString());
    }

    std::vector<std::unique_ptr<BoundView>> views;

private:
    void act(const char *method)
    {
        if (!_action || _method != method)
            return;
        const auto action = std::exchange(_action, nullptr);
        action();
    }

    std::string _method;
    std::function<void()> _action;
};

const std::vector<const char *> Methods{"create",  "bound",      "destroy",    "added",
                                        "removed", "rearranged", "scroll off", "scroll on"};

/// A library with two fields that a form shows.
struct Scene
{
    Scene()
    {
        binder->setFieldsBindingName(Fields);
        binder->addFieldDependentBindingName(Labels, BoundView::Label);
        setFields({&a, &b});
        bind();
    }

    void bind()
    {
        binder->bind(Fields, model.get(), List);
        binder->bind(Labels, model.get(), ListNames);
    }
    void setFields(const QList<ObservedRecord *> &fields) const
    {
        QVariantList list;
        for (ObservedRecord *const field : fields)
            list += QVariant::fromValue(field);
        model->setList(list);
    }

    ObservedRecord a{u"A"_s}, b{u"B"_s}, c{u"C"_s}, d{u"D"_s};
    std::unique_ptr<ObservedRecord> model = std::make_unique<ObservedRecord>();
    std::unique_ptr<ActingForm> form = std::make_unique<ActingForm>();
    std::unique_ptr<KTFieldDetailBinder> binder = std::make_unique<KTFieldDetailBinder>(form.get());
};
} // namespace

TEST(KTFieldDetailBinderLifetime, TheBinderMayBeDeletedInEachOfItsCalls)
{
    for (const char *const method : Methods) {
        Scene scene;
        scene.form->at(method, [&] { scene.binder.reset(); });
        scene.setFields({&scene.c, &scene.d});
        EXPECT_TRUE(scene.form->hasActed()) << method;
        EXPECT_FALSE(scene.binder) << method;
        EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, TheFieldsMayBeUnboundInEachOfTheCalls)
{
    for (const char *const method : Methods) {
        Scene scene;
        scene.form->at(method, [&] { scene.binder->unbind(Fields); });
        scene.setFields({&scene.c, &scene.d});
        EXPECT_TRUE(scene.form->hasActed()) << method;
        EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0) << method;
        scene.setFields({&scene.a});
        EXPECT_TRUE(scene.binder->_fieldsBindingValue().isEmpty());
    }
}

TEST(KTFieldDetailBinderLifetime, WhatTheOwnerChangesMeanwhileIsShownInTheEnd)
{
    for (const char *const method : Methods) {
        Scene scene;
        scene.form->at(method, [&] { scene.setFields({&scene.b, &scene.d}); });
        scene.setFields({&scene.c, &scene.d});
        EXPECT_TRUE(scene.form->hasActed()) << method;
        EXPECT_EQ(scene.form->shown(), u"BD"_s) << method;
        scene.setFields({});
        EXPECT_TRUE(scene.form->views.empty()) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, ChangesWhileTheFieldsAreUnboundBringNothing)
{
    for (const char *const method : {"destroy", "removed", "rearranged"}) {
        Scene scene;
        scene.form->at(method, [&] { scene.setFields({&scene.c, &scene.d}); });
        scene.binder->unbind(Fields);
        EXPECT_TRUE(scene.form->hasActed()) << method;
        EXPECT_TRUE(scene.form->views.empty()) << method;
        EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, UnbindingInsideOfUnbinding)
{
    for (const char *const method : {"destroy", "removed", "rearranged"}) {
        Scene scene;
        scene.form->at(method, [&] { scene.binder->unbind(Fields); });
        scene.binder->unbind(Fields);
        EXPECT_TRUE(scene.form->views.empty()) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, TheObservedObjectMayGoInEachOfTheCalls)
{
    for (const char *const method : Methods) {
        Scene scene;
        scene.form->at(method, [&] { scene.model.reset(); });
        // Through a copy of the list: the object that holds it is deleted while it says so.
        scene.binder->observeValueForKeyPath(List, scene.model.get(), {}, Fields);
        ObservedRecord *const model = scene.model.get();
        if (model)
            model->setList({QVariant::fromValue(&scene.c)});
        EXPECT_TRUE(scene.form->hasActed()) << method;
        scene.binder.reset();
        EXPECT_TRUE(scene.form->views.empty()) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, TheFieldMayGoWhileItsDetailObjectIsMade)
{
    Scene scene;
    auto field = std::make_unique<ObservedRecord>(u"Short"_s);
    ObservedRecord *const shortLived = field.get();
    scene.form->at("create", [&] { field.reset(); });
    scene.setFields({&scene.a, shortLived});
    EXPECT_TRUE(scene.form->hasActed());
    scene.setFields({&scene.a});
    EXPECT_EQ(scene.form->views.front()->label(), QVariant(u"A"_s));
}

TEST(KTFieldDetailBinderLifetime, ExceptionsOfTheOwnerLeaveTheBinderUsable)
{
    Scene scene;
    scene.form->at("bound", [] { throw std::runtime_error("no"); });
    // A signal says so, which no exception may leave.
    EXPECT_NO_THROW(scene.setFields({&scene.c, &scene.d}));
    EXPECT_TRUE(scene.form->hasActed());
    EXPECT_EQ(scene.form->shown(), u"CD"_s);
    scene.setFields({&scene.a, &scene.b});
    EXPECT_EQ(scene.form->shown(), u"AB"_s);
    scene.form->at("destroy", [] { throw std::runtime_error("no"); });
    EXPECT_THROW(scene.binder->unbind(Fields), std::runtime_error);
    EXPECT_TRUE(scene.form->views.empty());
    EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0);
    scene.bind();
    scene.setFields({&scene.c});
    EXPECT_EQ(scene.form->shown(), u"C"_s);
}

TEST(KTFieldDetailBinderLifetime, NoExceptionLeavesTheDestructor)
{
    for (const char *const method : {"destroy", "removed", "rearranged"}) {
        Scene scene;
        scene.form->at(method, [] { throw std::runtime_error("no"); });
        const QString output = testing_support::standardErrorOf([&] { scene.binder.reset(); });
        EXPECT_TRUE(output.contains(u"no")) << method;
        EXPECT_TRUE(scene.form->views.empty()) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, WhatTheOwnerBindsWhileTheFieldsAreBoundCounts)
{
    for (const char *const method : Methods) {
        Scene scene;
        ObservedRecord second, third;
        second.setList({QVariant::fromValue(&scene.c)});
        third.setList({QVariant::fromValue(&scene.d)});
        scene.form->at(method, [&] {
            scene.binder->bind(Fields, &third, List);
            scene.binder->bind(Labels, &third, ListNames);
        });
        scene.binder->bind(Fields, &second, List);
        EXPECT_TRUE(scene.form->hasActed()) << method;
        EXPECT_EQ(scene.form->shown(), u"D"_s) << method;
        EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0) << method;
        EXPECT_EQ(second.receivers(SIGNAL(listChanged())), 0) << method;
        EXPECT_EQ(third.receivers(SIGNAL(listChanged())), 1) << method;
        scene.binder->unbind(Fields);
        EXPECT_TRUE(scene.form->views.empty()) << method;
        EXPECT_EQ(third.receivers(SIGNAL(listChanged())), 0) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, TheSameObjectMayBeBoundAgainMeanwhile)
{
    for (const char *const method : Methods) {
        Scene scene;
        ObservedRecord second;
        second.setList({QVariant::fromValue(&scene.c)});
        scene.form->at(method, [&] { scene.binder->bind(Fields, &second, List); });
        scene.binder->bind(Fields, &second, List);
        EXPECT_EQ(second.receivers(SIGNAL(listChanged())), 1) << method;
        second.setList({});
        EXPECT_TRUE(scene.form->views.empty()) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, TheBinderMayBeDeletedWhileItIsBoundAgain)
{
    for (const char *const method : {"destroy", "removed", "rearranged"}) {
        Scene scene;
        ObservedRecord second;
        scene.form->at(method, [&] { scene.binder.reset(); });
        scene.binder->bind(Fields, &second, List);
        EXPECT_FALSE(scene.binder) << method;
        EXPECT_TRUE(scene.form->views.empty()) << method;
        EXPECT_EQ(second.receivers(SIGNAL(listChanged())), 0) << method;
    }
}

TEST(KTFieldDetailBinderLifetime, ADetailObjectThatIsMadeAtTheEndIsToldOfIt)
{
    for (const bool isDeleted : {false, true}) {
        Scene scene;
        scene.form->at("create", [&] {
            if (isDeleted)
                scene.binder.reset();
            else
                scene.binder->unbind(Fields);
        });
        scene.setFields({&scene.a, &scene.c});
        EXPECT_TRUE(scene.form->hasActed());
        EXPECT_TRUE(scene.form->views.empty());
    }
}

TEST(KTFieldDetailBinderLifetime, TheTransformerOfTheFieldsMayEndTheBinding)
{
    class Ending : public NSValueTransformer
    {
    public:
        QMetaType transformedValueClass() const override { return {}; }
        bool allowsReverseTransformation() const override { return false; }
        QVariant transformedValue(const QVariant &value) const override
        {
            if (action)
                std::exchange(action, nullptr)();
            return value;
        }
        mutable std::function<void()> action;
    };
    for (const bool isDeleted : {false, true}) {
        Scene scene;
        auto ending = std::make_shared<Ending>();
        scene.binder->bind(Fields, scene.model.get(), List,
                           NSBindingOptions::withTransformer(ending));
        ending->action = [&] {
            if (isDeleted)
                scene.binder.reset();
            else
                scene.binder->unbind(Fields);
        };
        const std::weak_ptr<Ending> left = std::exchange(ending, nullptr);
        scene.setFields({&scene.c});
        EXPECT_TRUE(scene.form->views.empty());
        EXPECT_TRUE(left.expired());
        EXPECT_EQ(scene.model->receivers(SIGNAL(listChanged())), 0);
    }
}

TEST(KTFieldDetailBinderLifetime, BindingAgainWithTheBindersOwnPathAndOptions)
{
    ObservedRecord first(u"A"_s, 1), second(u"B"_s, 2);
    BoundView view;
    const QVariantMap options{{NSValueTransformerNameBindingOption, u"KTBaseValueTransformer"_s}};
    KTPropertyBinder &binder = view.valueBinder;
    binder.bind(NSValueBinding, &first, u"number"_s, options);
    EXPECT_EQ(view.value(), QVariant(2U));
    binder.bind(NSValueBinding, &second, binder.keyPath(), binder.bindingOptions());
    EXPECT_EQ(view.value(), QVariant(3U));
    EXPECT_EQ(binder.keyPath(), u"number"_s);
    EXPECT_EQ(first.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KTFieldDetailBinderLifetime, TheControllerMayGoInItsOwnNotifications)
{
    ObservedRecord record(u"A"_s, 1), other(u"B"_s, 2);
    for (const char16_t *const path :
         {u"content", u"arrangedObjects", u"selection.name", u"selectedObjects"}) {
        auto controller = std::make_unique<NSArrayController>();
        controller->setContent({QVariant::fromValue(&record)});
        controller->setSelectionIndex(0);
        const NSKeyValueObservation observation(
            controller.get(), QString::fromUtf16(path), 0,
            [&](const NSKeyValueChange &) { controller.reset(); });
        controller->addObject(QVariant::fromValue(&other));
        EXPECT_FALSE(controller) << QString::fromUtf16(path).toStdString();
        EXPECT_FALSE(observation.isActive());
        EXPECT_EQ(record.receivers(SIGNAL(nameChanged())), 0);
        EXPECT_EQ(other.receivers(SIGNAL(nameChanged())), 0);
    }
}

#include "KTFieldDetailBinderLifetimeTests.moc"
