// A program of somebody else, built against the installed framework.

#include <KTUtility/KTAssert>
#include <KTUtility/KTImageBadger>
#include <KTUtility/KTLogger>
#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/KTMediaFieldSliderCell>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTPlugInManager>
#include <KTUtility/KTStatusHUDController>
#include <KTUtility/KTUtilityVersion>
#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSBundle>
#include <KTUtility/NSString_KTNaming>
#include <KTUtility/NSUserDefaults>

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

static_assert(KTUTILITY_VERSION >= KTUTILITY_VERSION_CHECK(0, 1, 0));

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

/// A phone number in the first set of the framework's patterns.
QString phoneNumber()
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(0);
    return formatter.stringForObjectValue(u"2125550106"_s);
}

/// A setting as it comes back from its file.
QString storedSetting()
{
    NSUserDefaults::standardUserDefaults()->setObject(u"blue"_s, u"color"_s);
    const bool isWritten = NSUserDefaults::standardUserDefaults()->synchronize();
    const NSUserDefaults again(NSHostIdentifier());
    return isWritten ? again.stringForKey(u"color"_s) : u"not written"_s;
}

/// Whether the slider has the framework's picture for its knob.
bool hasKnob()
{
    const KTMediaFieldSlider slider;
    const auto *const cell = dynamic_cast<const KTMediaFieldSliderCell *>(slider.cell());
    return cell && !cell->knobImage().isNull();
}

/// Whether the status display is made as its interface file says.
bool hasStatusDisplay()
{
    KTStatusHUDController controller;
    controller.showStatusWindowWithString(u"Saved"_s, QRectF(0, 0, 400, 300), false);
    return controller.window() && controller.content() && controller.text();
}

/// What of the framework's resources is found where it is installed.
QStringList foundResources()
{
    const QString interface = NSBundle::frameworkBundle().pathForResource(u"StatusHUD"_s, u"ui"_s);
    QStringList found;
    if (!KTImageBadger::badgeWithString(u"12"_s).isNull())
        found += u"badge"_s;
    if (hasKnob())
        found += u"knob"_s;
    if (!interface.isNull() && hasStatusDisplay())
        found += u"display"_s;
    return found;
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QVariantList taken = {QVariantMap{{u"name"_s, u"Field"_s}}};
    const QString name = KTAdditions::uniqueStringWithBase(taken, u"Field"_s);
    KTLogger *logger = KTLogger::sharedLogger();
    logger->setLevelOfComponent(4, kLog_SchemaManager);
    KTLog(kLog_SchemaManager, 4, u"made %@", name);
    KTAssert::KTVerifyCondition(name == u"Field 1", u"unexpected name %@", name);
    std::printf("%s %s %s\n", qPrintable(name), qPrintable(KTAdditions::tableColumnString(name)),
                qPrintable(greetings()));
    std::printf("%s %s\n", qPrintable(phoneNumber()), qPrintable(storedSetting()));
    std::printf("%s\n", qPrintable(foundResources().join(u' ')));
    return 0;
}
