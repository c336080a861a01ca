// Binders whose transformers, owners and observed objects end them while they are called.

#include <KTUtility/KTPropertyBinder>

#include <KTUtility/NSException>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QString Number = u"number"_s;
const QString Extra = u"extra"_s;

/// Does something in the middle of a conversion, and uses itself afterwards.
class Acting : public NSValueTransformer
{
public:
    QMetaType transformedValueClass() const override { return {}; }
    bool allowsReverseTransformation() const override { return true; }
    QVariant transformedValue(const QVariant &value) const override { return act(value); }
    QVariant reverseTransformedValue(const QVariant &value) const override { return act(value); }

    std::function<void()> action;

private:
    QVariant act(const QVariant &value) const
    {
        const std::function<void()> copy = action;
        if (copy)
            copy();
        return _isThere && *_isThere ? value : QVariant(u"gone"_s);
    }

    std::unique_ptr<bool> _isThere = std::make_unique<bool>(true);
};

/// A view that shows a record's number or its dynamic property through a transformer that only the
/// options hold.
struct Scene
{
    explicit Scene(const QString &boundKey) : key(boundKey)
    {
        testing_support::needApplication();
        for (ObservedRecord *const each : {record.get(), other.get()})
            each->setProperty("extra", each->number());
        auto made = std::make_shared<Acting>();
        transformer = made.get();
        view->bind(NSValueBinding, record.get(), key, NSBindingOptions::withTransformer(made));
        left = made;
    }

    void change(int value) const
    {
        if (key == Number)
            record->setNumber(value);
        else
            record->setProperty("extra", value);
    }

    QString key;
    std::unique_ptr<ObservedRecord> record = std::make_unique<ObservedRecord>(u"record"_s, 1);
    std::unique_ptr<ObservedRecord> other = std::make_unique<ObservedRecord>(u"other"_s, 100);
    std::unique_ptr<BoundView> view = std::make_unique<BoundView>();
    Acting *transformer = nullptr;
    std::weak_ptr<Acting> left;
};

struct Ending
{
    const char *name;
    std::function<void(Scene &)> end;
    bool isBoundToOther = false;
};

const std::vector<Ending> &endings()
{
    static const std::vector<Ending> all{
        {"unbind", [](Scene &scene) { scene.view->unbind(NSValueBinding); }},
        {"delete the owner", [](Scene &scene) { scene.view.reset(); }},
        {"delete the observed object", [](Scene &scene) { scene.record.reset(); }},
        {"bind to another object",
         [](Scene &scene) { scene.view->bind(NSValueBinding, scene.other.get(), scene.key, {}); },
         true},
        {"bind to another path",
         [](Scene &scene) {
             scene.view->bind(NSValueBinding, scene.other.get(), u"name.length"_s, {});
         }},
    };
    return all;
}

void expectEnd(const Scene &scene, const Ending &ending)
{
    SCOPED_TRACE(ending.name);
    if (scene.record) {
        EXPECT_EQ(scene.record->receivers(SIGNAL(numberChanged())), 0);
    }
    if (scene.view) {
        EXPECT_NE(scene.view->value(), QVariant(u"gone"_s));
    }
    // Nothing that was meant for the record has come to the other one.
    EXPECT_EQ(scene.other->number(), 100);
    EXPECT_EQ(scene.other->property("extra"), QVariant(100));
    if (ending.isBoundToOther) {
        EXPECT_EQ(scene.view->value(), QVariant(100));
    }
}
} // namespace

TEST(KTPropertyBinderLifetime, TransformersMayEndTheBindingWhenTheValueChanges)
{
    for (const QString &key : {Number, Extra}) {
        for (const Ending &ending : endings()) {
            Scene scene(key);
            scene.transformer->action = [&] { ending.end(scene); };
            scene.change(2);
            expectEnd(scene, ending);
            if (ending.name != std::string("delete the observed object")) {
                EXPECT_TRUE(scene.left.expired()) << ending.name;
            }
        }
    }
}

TEST(KTPropertyBinderLifetime, TransformersMayEndTheBindingOnTheWayBack)
{
    for (const QString &key : {Number, Extra}) {
        for (const Ending &ending : endings()) {
            Scene scene(key);
            scene.transformer->action = [&] { ending.end(scene); };
            scene.view->type(7);
            expectEnd(scene, ending);
        }
    }
}

TEST(KTPropertyBinderLifetime, TransformersMayEndTheBindingThatBegins)
{
    for (const QString &key : {Number, Extra}) {
        for (const Ending &ending : endings()) {
            Scene scene(key);
            scene.view->unbind(NSValueBinding);
            auto transformer = std::make_shared<Acting>();
            Acting &acting = *transformer;
            acting.action = [&] { ending.end(scene); };
            const QVariantMap options = NSBindingOptions::withTransformer(transformer);
            transformer = nullptr;
            scene.view->bind(NSValueBinding, scene.record.get(), key, options);
            expectEnd(scene, ending);
        }
    }
}

TEST(KTPropertyBinderLifetime, SettersOfTheModelMayEndTheBinding)
{
    for (const QString &key : {Number, Extra}) {
        for (const Ending &ending : endings()) {
            Scene scene(key);
            const NSKeyValueObservation observation(
                scene.record.get(), key, 0, [&](const NSKeyValueChange &) { ending.end(scene); });
            scene.view->type(7);
            if (scene.view && scene.record) {
                EXPECT_NE(scene.view->valueBinder.observedObject(), scene.record.get());
            }
            EXPECT_EQ(scene.other->number(), 100);
        }
    }
}

TEST(KTPropertyBinderLifetime, AChangeInsideOfTheTransformerIsWhatIsShown)
{
    for (const QString &key : {Number, Extra}) {
        Scene scene(key);
        scene.transformer->action = [&] {
            scene.transformer->action = nullptr;
            scene.change(3);
        };
        scene.change(2);
        EXPECT_EQ(scene.view->value(), QVariant(3));
    }
}

TEST(KTPropertyBinderLifetime, BindingsThatBeginInsideOfANotificationSeeTheNextChange)
{
    for (const QString &key : {Number, Extra}) {
        Scene scene(key);
        BoundView second;
        scene.transformer->action = [&] {
            scene.transformer->action = nullptr;
            second.bind(NSValueBinding, scene.record.get(), key, {});
            scene.change(3);
        };
        scene.change(2);
        EXPECT_EQ(second.value(), QVariant(3));
    }
}

TEST(KTPropertyBinderLifetime, ADestroyedObjectLeavesTheBinderUnbound)
{
    Scene scene(Number);
    KTPropertyBinder &binder = scene.view->valueBinder;
    scene.record.reset();
    EXPECT_EQ(binder.observedObject(), nullptr);
    EXPECT_TRUE(binder.keyPath().isNull());
    EXPECT_TRUE(binder.bindingOptions().isEmpty());
    EXPECT_EQ(binder.valueTransformer(), nullptr);
    binder.setCurrentValue(5);
}

TEST(KTPropertyBinderLifetime, SomebodyElseMayTakeTheRegistrationBack)
{
    Scene scene(Number);
    NSKeyValueObserving::removeObserver(scene.record.get(), &scene.view->valueBinder, Number);
    scene.change(2);
    EXPECT_EQ(scene.view->value(), QVariant(1));
    scene.view->unbind(NSValueBinding);
    scene.view->bind(NSValueBinding, scene.record.get(), Number, {});
    NSKeyValueObserving::removeObserver(scene.record.get(), &scene.view->valueBinder, Number);
    scene.view.reset();
    EXPECT_EQ(scene.record->receivers(SIGNAL(numberChanged())), 0);
}
