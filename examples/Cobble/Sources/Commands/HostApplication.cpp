#include "HostApplication.h"

#include "Text/PrintableText.h"

#include <KTUtility/KTLogger>

#include <QApplication>

#include <algorithm>
#include <exception>
#include <span>
#include <string_view>

namespace {
constexpr const char *PlatformVariable = "QT_QPA_PLATFORM";

bool isDrawingCommand(std::string_view name)
{
    return name == "window" || name == "gallery";
}

bool asksForPictures(std::span<char *const> arguments)
{
    return std::any_of(arguments.begin(), arguments.end(), [](std::string_view argument) {
        return argument == "--screenshot" || argument.starts_with("--screenshot=");
    });
}

/// The ways to a display, in the order in which Qt is to try them. It ends the process if none
/// works, so that the last one always does.
QByteArray platformsFor(std::span<char *const> arguments)
{
    if (asksForPictures(arguments))
        return "offscreen";
    QByteArray platforms;
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms += "xcb;";
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        platforms += "wayland;";
    return platforms + "offscreen";
}

/// Goes on after a mistake in what one event does; it is reported and logged.
class DesktopQtApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception &failure) {
            qWarning("cobble: %s", failure.what());
            KTLog(kLog_Lifecycle, 1, u"exception in an event: %s", failure.what());
            return false;
        }
    }
};

QtMessageHandler &otherHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

/// Passes on what Qt and plug-ins report, in which texts from files may stand. Windows that nobody
/// sees cannot be raised and so on, of which nobody needs to be informed.
void passMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool isOfNoUse =
        isWithoutDisplay() && message.startsWith(u"This plugin does not support");
    if (!isOfNoUse && otherHandler())
        otherHandler()(type, context, printableText(message));
}
} // namespace

void passMessagesAsPrintable()
{
    const QtMessageHandler before = qInstallMessageHandler(passMessage);
    if (before != passMessage)
        otherHandler() = before;
}

std::unique_ptr<QCoreApplication> makeHostApplication(int &argc, char **argv)
{
    const std::span<char *const> arguments(argv, size_t(argc));
    passMessagesAsPrintable();
    if (argc < 2 || !isDrawingCommand(arguments[1]))
        return std::make_unique<QCoreApplication>(argc, argv);
    if (!qEnvironmentVariableIsSet(PlatformVariable))
        qputenv(PlatformVariable, platformsFor(arguments));
    return std::make_unique<DesktopQtApplication>(argc, argv);
}

bool isWithoutDisplay()
{
    return QGuiApplication::platformName() == u"offscreen";
}
