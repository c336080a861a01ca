#include <KTUtility/KTFieldDetailBinder>
#include <KTUtility/KTFieldDetailCallbacks>

#include <KTUtility/NSException>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// What is made for fields, written down by functions of an object.
class KTFieldDetailCallbacksTests : public testing::Test
{
protected:
    KTFieldDetailCallbacks callbacks()
    {
        return {.create = [this](QObject *field) { return make(field); },
                .wasBound = [this](QObject *detail,
                                   QObject *) { log += u"bound " + detail->objectName(); },
                .willBeDestroyed =
                    [this](QObject *detail) { log += u"destroy " + detail->objectName(); },
                .finishedAdding = [this] { log += u"added"_s; },
                .finishedRemoving = [this] { log += u"removed"_s; },
                .finishedRearrange = [this] { log += u"rearranged"_s; },
                .setAutoScrollToInsertedObject =
                    [this](bool scrolls) { log += scrolls ? u"scroll on"_s : u"scroll off"_s; }};
    }
    QObject *make(QObject *field)
    {
        views.push_back(std::make_unique<BoundView>());
        views.back()->setObjectName(static_cast<ObservedRecord *>(field)->name());
        log += u"create " + views.back()->objectName();
        return views.back().get();
    }
    void bindFields(KTFieldDetailBinder *binder)
    {
        binder->setFieldsBindingName(u"fields"_s);
        binder->bind(u"fields"_s, &library, u"list"_s);
    }
    void setField(ObservedRecord *field)
    {
        library.setList(field ? QVariantList{QVariant::fromValue(field)} : QVariantList());
    }

    ObservedRecord library, a{u"A"_s}, b{u"B"_s};
    std::vector<std::unique_ptr<BoundView>> views;
    QStringList log;
    std::unique_ptr<QObject> context = std::make_unique<QObject>();
};
} // namespace

TEST_F(KTFieldDetailCallbacksTests, AreCalledInPlaceOfMethods)
{
    setField(&a);
    KTFieldDetailBinder binder(context.get(), callbacks());
    bindFields(&binder);
    EXPECT_EQ(log.join(u", "_s), u"scroll off, removed, create A, bound A, added, rearranged, "
                                 u"scroll on"_s);
    log.clear();
    setField(&b);
    EXPECT_EQ(log.join(u", "_s), u"scroll off, destroy A, removed, create B, bound B, added, "
                                 u"rearranged, scroll on"_s);
    log.clear();
    binder.unbind(u"fields"_s);
    EXPECT_EQ(log.join(u", "_s), u"destroy B, removed, rearranged"_s);
}

TEST_F(KTFieldDetailCallbacksTests, AreNotCalledOnceTheObjectIsGone)
{
    setField(&a);
    KTFieldDetailBinder binder(context.get(), callbacks());
    bindFields(&binder);
    log.clear();
    context.reset();
    setField(&b);
    binder.unbind(u"fields"_s);
    EXPECT_EQ(log, QStringList());
    EXPECT_EQ(views.size(), 1);
}

TEST_F(KTFieldDetailCallbacksTests, OnlyTheFirstIsNeeded)
{
    setField(&a);
    KTFieldDetailBinder binder(context.get(),
                               {.create = [this](QObject *field) { return make(field); }});
    bindFields(&binder);
    setField(nullptr);
    EXPECT_EQ(log, QStringList{u"create A"_s});
    testing_support::standardErrorOf([&] {
        EXPECT_THROW(KTFieldDetailBinder(context.get(), KTFieldDetailCallbacks()), NSException);
    });
}

TEST_F(KTFieldDetailCallbacksTests, AnExceptionOutOfASignalIsLogged)
{
    KTFieldDetailCallbacks failing = callbacks();
    failing.wasBound = [](QObject *, QObject *) { throw 5; };
    KTFieldDetailBinder binder(context.get(), failing);
    bindFields(&binder);
    const QString console = testing_support::standardErrorOf([&] { setField(&a); });
    EXPECT_TRUE(
        console.contains(u"*** exception in an observer of the key list: unknown exception"))
        << console.toStdString();
    EXPECT_EQ(log.constLast(), u"scroll on"_s);
}
