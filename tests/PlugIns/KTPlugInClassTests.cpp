#include <KTUtility/KTPlugInClass>

#include "PlugIns/Modules/TestExporter.h"
#include "support/TestSupport.h"

#include <KTUtility/NSBundle>

using namespace testing_support;

namespace {
/// Keeps what its class was told in the "events" of the last update handler.
class Told : public QObject, public TestExporter
{
public:
    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler)
    {
        handler = updateHandler;
        addEvent(handler, u"did load " + bundle.bundlePath());
    }
    static void pluginWillUnload() { addEvent(handler, QStringLiteral("will unload")); }
    static void pluginDidUnload() { addEvent(handler, QStringLiteral("did unload")); }
    QString fileType() const override { return QStringLiteral("told"); }

    static inline QObject *handler = nullptr;
};

/// Wants to be told nothing about loading.
class Untold : public QObject
{
public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
};
} // namespace

TEST(KTPlugInClass, ForwardsToTheClassMethods)
{
    const KTPlugInClassOf<Told, TestExporter> told(QStringLiteral("Told"));
    const KTPlugInClass &classObject = told;
    EXPECT_TRUE(classObject.respondsToPluginDidLoadBundle());
    QObject host;
    useFreshHome();
    classObject.pluginDidLoadBundle(NSBundle(QStringLiteral("/x.bundle")), &host);
    classObject.pluginWillUnload();
    classObject.pluginDidUnload();
    const QStringList expected = {QStringLiteral("did load /x.bundle"),
                                  QStringLiteral("will unload"), QStringLiteral("did unload")};
    EXPECT_EQ(host.property("events").toStringList(), expected);
    Told::handler = nullptr;
}

TEST(KTPlugInClass, IsAClassAsAnyOther)
{
    const KTPlugInClassOf<Told, TestExporter> told(QStringLiteral("Told"));
    const NSClass &classObject = told;
    EXPECT_EQ(classObject.name(), QStringLiteral("Told"));
    EXPECT_TRUE(classObject.conformsToProtocol(NSProtocol::of<TestExporter>()));
    EXPECT_FALSE(classObject.conformsToProtocol(NSProtocol::of<TestImporter>()));
    EXPECT_NE(dynamic_cast<Told *>(classObject.newInstance().get()), nullptr);
}

TEST(KTPlugInClass, WhatIsOptionalMayBeLeftOut)
{
    const KTPlugInClassOf<Untold> untold(QStringLiteral("Untold"));
    const KTPlugInClass &classObject = untold;
    EXPECT_FALSE(classObject.respondsToPluginDidLoadBundle());
    QObject host;
    classObject.pluginDidLoadBundle(NSBundle(QStringLiteral("/x.bundle")), &host);
    EXPECT_FALSE(host.property("events").isValid());
    EXPECT_FALSE(classObject.conformsToProtocol(NSProtocol::of<TestExporter>()));
}
