#include "WindowCommand.h"

#include "HostApplication.h"
#include "Library/BundleOption.h"
#include "OptionNames.h"
#include "PictureFile.h"
#include "UserSettings.h"
#include "Window/DesktopApplication.h"
#include "Window/MainWindow.h"
#include "Window/MainWindowController.h"
#include "Window/WindowPicture.h"

#include <QApplication>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {
const QString SheetOption = u"sheet"_s;
const QString SearchOption = u"search"_s;

/// What may lie over the window in a picture, by its name.
const QList<std::pair<QString, void (MainWindowController::*)(QAction *)>> &sheets()
{
    static const QList<std::pair<QString, void (MainWindowController::*)(QAction *)>> known = {
        {u"import"_s, &MainWindowController::importFile},
        {u"export"_s, &MainWindowController::exportFile},
        {u"about"_s, &MainWindowController::showAbout},
    };
    return known;
}

Outcome<> checkSheet(const QCommandLineParser &parser)
{
    QStringList names;
    for (const auto &[known, open] : sheets())
        names += known;
    const QString name = parser.value(SheetOption);
    if (!parser.isSet(SheetOption) || names.contains(name))
        return {};
    return Failure{u"no sheet '%1'; there are %2"_s.arg(name, names.join(u", "_s))};
}

Outcome<> checkWindow(const QCommandLineParser &parser)
{
    if (parser.positionalArguments().size() > 1)
        return Failure{u"window takes the name of one library"_s};
    if (parser.isSet(ScreenshotOption) && parser.value(ScreenshotOption).isEmpty())
        return Failure{u"--screenshot needs the name of a file"_s};
    return checkSheet(parser).andThen([&] { return BundleOption::check(parser); }).andThen([&] {
        return UserSettings::checkLocale(parser);
    });
}

/// Lays the sheet that was asked for over the window.
Outcome<> openSheet(MainWindowController *window, const QCommandLineParser &parser)
{
    for (const auto &[sheet, open] : sheets()) {
        if (sheet == parser.value(SheetOption))
            (window->*open)(nullptr);
    }
    if (parser.isSet(SheetOption) && !WindowPicture::hasSheet(window->mainWindow()))
        return Failure{u"there is nothing to %1"_s.arg(parser.value(SheetOption))};
    return {};
}

/// Brings the window into the state that was asked for.
Outcome<> prepare(MainWindowController *window, const QCommandLineParser &parser)
{
    const QString name = parser.positionalArguments().value(0);
    const Outcome<> opened = name.isNull() ? Outcome<>() : window->openLibrary(name);
    if (!opened)
        return opened;
    window->mainWindow()->search()->setText(parser.value(SearchOption));
    window->search();
    return openSheet(window, parser);
}

ExitCode savePicture(MainWindowController *window, const QString &path, CommandContext &context)
{
    // Sheets are laid out when they have been shown.
    QCoreApplication::processEvents();
    while (window->records()->isArranging())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const Outcome<> written = writePicture(WindowPicture::of(window->mainWindow()), path);
    return written ? ExitCode::Success : context.fail(path, written.reason());
}

ExitCode waitForEnd(const DesktopApplication &application)
{
    QObject::connect(&application, &DesktopApplication::lastWindowClosed, qApp,
                     &QCoreApplication::quit, Qt::QueuedConnection);
    return QApplication::exec() == 0 ? ExitCode::Success : ExitCode::Failure;
}

ExitCode runWindow(const QCommandLineParser &parser, CommandContext &context)
{
    const bool isPicture = parser.isSet(ScreenshotOption);
    if (!qobject_cast<QApplication *>(qApp) || (isWithoutDisplay() && !isPicture))
        return context.fail(u"window"_s, u"there is no display; --screenshot FILE draws the "
                                         "window without one"_s);
    const LocaleScope scope(UserSettings::localeIn(parser));
    DesktopApplication application(BundleOption::bundleIn(parser), context.logger());
    application.setRemembers(!isPicture);
    application.newWindow();
    MainWindowController *const window = application.windows().first();
    const Outcome<> prepared = prepare(window, parser);
    if (!prepared)
        return context.fail(application.bundle()->bundle().bundlePath(), prepared.reason());
    return isPicture ? savePicture(window, parser.value(ScreenshotOption), context)
                     : waitForEnd(application);
}
} // namespace

ExitCode runWindowCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    for (const auto &[option, value] :
         {std::pair(ScreenshotOption, u"FILE"), std::pair(SheetOption, u"NAME"),
          std::pair(SearchOption, u"TEXT")})
        parser.addOption({option, QString(), QString::fromUtf16(value)});
    BundleOption::add(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkWindow, runWindow);
}
