// A program of somebody else, built against the installed framework.

#include <KTUtility/KTAssert>
#include <KTUtility/KTLogger>
#include <KTUtility/KTPlugInManager>
#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSString_KTNaming>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
/// What the plug-in calls itself, or why it is not there.
QString greetings()
{
    KTPlugInManager manager;
    const NSBundle bundle(QStringLiteral(PLUGIN_FOLDER));
    manager.registerBundle(bundle);
    const QObject *const plugin =
        manager.loadPluginWithIdentifier(u"org.example.greetings & more"_s);
    const bool hasResource = !bundle.pathForResource(u"main"_s, u"cpp"_s).isNull();
    return plugin && hasResource ? plugin->objectName() : manager.pluginStatus().value(0).lastError;
}
} // namespace

int main()
{
    const QVariantList taken = {QVariantMap{{u"name"_s, u"Field"_s}}};
    const QString name = KTAdditions::uniqueStringWithBase(taken, u"Field"_s);
    KTLogger *logger = KTLogger::sharedLogger();
    logger->setLevelOfComponent(4, kLog_SchemaManager);
    KTLog(kLog_SchemaManager, 4, u"made %@", name);
    KTAssert::KTVerifyCondition(name == u"Field 1", u"unexpected name %@", name);
    std::printf("%s %s %s\n", qPrintable(name), qPrintable(KTAdditions::tableColumnString(name)),
                qPrintable(greetings()));
    return 0;
}
