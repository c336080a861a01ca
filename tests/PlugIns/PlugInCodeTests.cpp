#include <KTUtility/PlugIns/PlugInCode_p.h>

#include <KTUtility/KTPlugInClass>
#include <KTUtility/NSBundle>

#include "support/TestSupport.h"

#include <stdexcept>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// What the classes below do when they are called: nothing, or throw.
enum class Behaviour { Returns, ThrowsException, ThrowsNumber };
Behaviour behaviour = Behaviour::Returns;
QStringList events;

void act(const QString &event)
{
    events += event;
    if (behaviour == Behaviour::ThrowsException)
        throw std::runtime_error("nö paper");
    if (behaviour == Behaviour::ThrowsNumber)
        throw 42;
}

/// Is notified of everything.
class Told : public QObject
{
public:
    Told() { act(u"made"_s); }
    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *coordinator)
    {
        act(u"did load "_s + bundle.bundlePath() + (coordinator ? u" for "_s : QString()) +
            (coordinator ? coordinator->objectName() : QString()));
    }
    static void pluginWillUnload() { act(u"will unload"_s); }
    static void pluginDidUnload() { act(u"did unload"_s); }
};

/// Does not want to be notified about loading.
class Untold : public QObject
{
public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
};

/// Is merely registered.
class Plain : public QObject
{
};

/// Cannot be made without being told what of.
class Unmakable : public QObject
{
public:
    explicit Unmakable(int) {}
};

using PlainClass = NSClassOf<NSClass, Plain>;

class PlugInCodeTests : public testing::Test
{
protected:
    PlugInCodeTests()
    {
        host.setObjectName(u"host"_s);
        events.clear();
    }
    ~PlugInCodeTests() override { behaviour = Behaviour::Returns; }

    const KTPlugInClassOf<Told> told{u"Told"_s};
    const KTPlugInClassOf<Untold> untold{u"Untold"_s};
    const PlainClass plain{u"Plain"_s};
    const NSBundle bundle{u"/x.bundle"_s};
    QObject host;
    QString error;
};
} // namespace

TEST_F(PlugInCodeTests, AClassIsNotifiedBeforeItsInstanceIsMade)
{
    EXPECT_NE(PlugInCode::newInstance(told, bundle, &host, &error), nullptr);
    EXPECT_EQ(events, (QStringList{u"did load /x.bundle for host"_s, u"made"_s}));
    EXPECT_TRUE(error.isNull());
}

TEST_F(PlugInCodeTests, ThereNeedBeNobodyToReportTo)
{
    EXPECT_NE(PlugInCode::newInstance(told, bundle, nullptr, &error), nullptr);
    EXPECT_EQ(events.first(), u"did load /x.bundle");
}

TEST_F(PlugInCodeTests, AClassThatCannotBeNotifiedIsMadeAllTheSame)
{
    EXPECT_NE(PlugInCode::newInstance(untold, bundle, &host, &error), nullptr);
    EXPECT_NE(PlugInCode::newInstance(plain, bundle, &host, &error), nullptr);
    EXPECT_TRUE(events.isEmpty());
    EXPECT_TRUE(error.isNull());
}

TEST_F(PlugInCodeTests, WhatCannotBeMadeIsNoInstance)
{
    const NSClassOf<NSClass, Unmakable> unmakable(u"Unmakable"_s);
    EXPECT_EQ(PlugInCode::newInstance(unmakable, bundle, &host, &error), nullptr);
    EXPECT_TRUE(error.isNull()) << "nothing was thrown";
}

TEST_F(PlugInCodeTests, WhatIsThrownBecomesAText)
{
    struct Row
    {
        Behaviour behaviour;
        QString failure;
    };
    const Row rows[] = {
        {Behaviour::ThrowsException, u"threw nö paper"_s},
        {Behaviour::ThrowsNumber, u"threw something that is no std::exception"_s},
    };
    for (const Row &row : rows) {
        behaviour = row.behaviour;
        EXPECT_EQ(PlugInCode::newInstance(told, bundle, &host, &error), nullptr);
        EXPECT_EQ(error, QString(u"Told " + row.failure));
        EXPECT_EQ(PlugInCode::tellDidLoad(told, bundle, &host),
                  QString(u"pluginDidLoadBundle " + row.failure));
        EXPECT_EQ(PlugInCode::tellWillUnload(&told), QString(u"Told " + row.failure));
        EXPECT_EQ(PlugInCode::tellDidUnload(&told), QString(u"Told " + row.failure));
    }
    // One that throws when it is notified is not made.
    EXPECT_FALSE(events.contains(u"made"_s));
}

TEST_F(PlugInCodeTests, NothingIsSaidIfNothingGoesWrong)
{
    EXPECT_TRUE(PlugInCode::tellDidLoad(told, bundle, &host).isNull());
    EXPECT_TRUE(PlugInCode::tellWillUnload(&told).isNull());
    EXPECT_TRUE(PlugInCode::tellDidUnload(&told).isNull());
    EXPECT_EQ(events,
              (QStringList{u"did load /x.bundle for host"_s, u"will unload"_s, u"did unload"_s}));
}

TEST_F(PlugInCodeTests, LoadingNeedsAClassThatCanBeNotified)
{
    EXPECT_TRUE(PlugInCode::canTellDidLoad(told));
    for (const NSClass *other :
         {static_cast<const NSClass *>(&untold), static_cast<const NSClass *>(&plain)}) {
        EXPECT_FALSE(PlugInCode::canTellDidLoad(*other));
        EXPECT_TRUE(PlugInCode::tellDidLoad(*other, bundle, &host).isNull());
    }
    EXPECT_TRUE(events.isEmpty());
}

TEST_F(PlugInCodeTests, UnloadingLeavesOtherClassesAlone)
{
    for (const NSClass *other :
         {static_cast<const NSClass *>(&plain), static_cast<const NSClass *>(nullptr)}) {
        EXPECT_TRUE(PlugInCode::tellWillUnload(other).isNull());
        EXPECT_TRUE(PlugInCode::tellDidUnload(other).isNull());
    }
    EXPECT_TRUE(events.isEmpty());
}
