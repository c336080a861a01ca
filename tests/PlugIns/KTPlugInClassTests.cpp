#include <KTUtility/KTPlugInClass>

#include "PlugIns/Modules/TestExporter.h"
#include "support/TestSupport.h"

#include <KTUtility/NSBundle>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// Keeps what its class was notified of in the "events" of the last update handler.
class Told : public QObject, public TestExporter
{
public:
    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler)
    {
        handler = updateHandler;
        addEvent(handler, u"did load " + bundle.bundlePath());
    }
    static void pluginWillUnload() { addEvent(handler, u"will unload"_s); }
    static void pluginDidUnload() { addEvent(handler, u"did unload"_s); }
    QString fileType() const override { return u"told"_s; }

    static inline QObject *handler = nullptr;
};

/// Does not want to be notified about loading.
class Untold : public QObject
{
public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
};
} // namespace

TEST(KTPlugInClass, ForwardsToTheClassMethods)
{
    const KTPlugInClassOf<Told, TestExporter> told(u"Told"_s);
    const KTPlugInClass &classObject = told;
    EXPECT_TRUE(classObject.respondsToPluginDidLoadBundle());
    QObject host;
    useFreshHome();
    classObject.pluginDidLoadBundle(NSBundle(u"/x.bundle"_s), &host);
    classObject.pluginWillUnload();
    classObject.pluginDidUnload();
    const QStringList expected = {u"did load /x.bundle"_s, u"will unload"_s, u"did unload"_s};
    EXPECT_EQ(host.property("events").toStringList(), expected);
    Told::handler = nullptr;
}

TEST(KTPlugInClass, IsAClassAsAnyOther)
{
    const KTPlugInClassOf<Told, TestExporter> told(u"Told"_s);
    const NSClass &classObject = told;
    EXPECT_EQ(classObject.name(), u"Told"_s);
    EXPECT_TRUE(classObject.conformsToProtocol(NSProtocol::of<TestExporter>()));
    EXPECT_FALSE(classObject.conformsToProtocol(NSProtocol::of<TestImporter>()));
    EXPECT_NE(dynamic_cast<Told *>(classObject.newInstance().get()), nullptr);
}

TEST(KTPlugInClass, WhatIsOptionalMayBeLeftOut)
{
    const KTPlugInClassOf<Untold> untold(u"Untold"_s);
    const KTPlugInClass &classObject = untold;
    EXPECT_FALSE(classObject.respondsToPluginDidLoadBundle());
    QObject host;
    classObject.pluginDidLoadBundle(NSBundle(u"/x.bundle"_s), &host);
    EXPECT_FALSE(host.property("events").isValid());
    EXPECT_FALSE(classObject.conformsToProtocol(NSProtocol::of<TestExporter>()));
}
