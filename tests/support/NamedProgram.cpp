// A program of somebody else, which says who it is and does what it is told: its steps are a JSON
// array, its argument. What it has found out goes to its output.

#include <KTUtility/KTApplication>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogger>
#include <KTUtility/KTPlugInManager>
#include <KTUtility/NSBundle>
#include <KTUtility/NSException>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSSearchPath>
#include <KTUtility/NSUserDefaults>

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QMenu>
#include <QStandardPaths>

#include <cstdio>

KT_LOG_COMPONENT(lcImport, "Import")
KT_LOG_COMPONENT(lcSync, "Sync");
KT_LOG_COMPONENT(lcImportAgain, "Import")

Q_LOGGING_CATEGORY(books, "expenses.books")

using namespace Qt::StringLiterals;

namespace {
QStringList textsIn(const QJsonValue &value)
{
    return value.toVariant().toStringList();
}

KTApplication::Identity identityIn(const QJsonObject &given)
{
    return {.identifier = given.value(u"identifier"_s).toString(),
            .folder = given.value(u"folder"_s).toString(),
            .logFile = given.value(u"logFile"_s).toString(),
            .plugInFolders = textsIn(given.value(u"plugInFolders"_s)),
            .logComponents = textsIn(given.value(u"logComponents"_s)),
            .logMenu = given.value(u"showsBuiltIn"_s).toBool()
                           ? KTApplication::LogMenu::BuiltInAndOwnComponents
                           : KTApplication::LogMenu::OwnComponents};
}

/// \return why it was rejected; nil if it was not.
QString setIdentity(const QJsonObject &given)
{
    try {
        KTApplication::setIdentity(identityIn(given));
    } catch (const NSException &exception) {
        return exception.reason();
    }
    return {};
}

QStringList menuTitles()
{
    QMenu menu;
    KTLogger::sharedLogger()->populateComponentLoggingMenu(menu.menuAction());
    QStringList titles;
    const QList<QAction *> items = menu.actions();
    for (const QAction *const item : items.mid(7))
        titles += NSMenuItem::title(item);
    return titles;
}

void saySomethingInQt()
{
    qCDebug(books, "a debug\nmessage");
    qCWarning(books, "a warning");
    qInfo("an information");
}

/// Speaks in categories whose names no file can hold.
void speakUnspeakably()
{
    const QLoggingCategory control("a\x01"
                                   "b");
    const QLoggingCategory empty("");
    qCWarning(control, "a warning");
    qCWarning(empty, "a warning");
}

/// Repeats on the console what a capture has caught of Qt's messages.
void captureQt()
{
    KTLogCapture capture(QString::fromLatin1(books().categoryName()), 2);
    saySomethingInQt();
    for (const KTLogCapture::Entry &entry : capture.entries())
        std::fprintf(stderr, "caught %s\n",
                     qUtf8Printable(entry.component + u": " + entry.message));
}

/// Does what one word says.
void perform(const QString &step)
{
    if (step == u"testMode")
        QStandardPaths::setTestModeEnabled(true);
    else if (step == u"useSettings")
        NSUserDefaults::standardUserDefaults()->setInteger(5, u"rows"_s);
    else if (step == u"raise levels")
        KTLogger::sharedLogger()->setLevelOfComponent(7, lcImport);
    else if (step == u"switch off")
        KTLogger::sharedLogger()->clearAllLoggingState(nullptr);
    else if (step == u"log")
        KTLog(lcImport, 4, u"%@ at work", NSHostIdentifier());
    else if (step == u"log details")
        KTLog(lcImport, 7, u"details");
    else if (step == u"follow Qt")
        KTLogger::setForwardsQtCategories(true);
    else if (step == u"do not follow Qt")
        KTLogger::setForwardsQtCategories(false);
    else if (step == u"log in Qt")
        KTLogger::setQtCategory("expenses.log");
    else if (step == u"hear Qt")
        KTLogger::sharedLogger()->setLevelOfComponent(4,
                                                      QString::fromLatin1(books().categoryName()));
    else if (step == u"capture Qt")
        captureQt();
    else if (step == u"speak unspeakably")
        speakUnspeakably();
    else if (step == u"speak in Qt")
        saySomethingInQt();
}

QJsonObject facts()
{
    KTPlugInManager manager(nullptr);
    manager.setSearchFolder(u"Exporters"_s);
    const std::optional<KTApplication::Identity> identity = KTApplication::identity();
    return {{u"identifier"_s, NSHostIdentifier()},
            {u"folder"_s, identity ? identity->folder : QString()},
            {u"logFile"_s, identity ? identity->logFile : QString()},
            {u"library"_s,
             NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true)
                 .join(u'|')},
            {u"levels"_s, KTLogger::sharedLogger()->configFilePath()},
            {u"searchFolders"_s, QJsonArray::fromStringList(manager.searchFolders())},
            {u"menu"_s, QJsonArray::fromStringList(menuTitles())},
            {u"importLevel"_s, KTLogger::sharedLogger()->levelOfComponent(lcImportAgain)}};
}
} // namespace

int main(int argc, char *argv[])
{
    const QByteArray steps = argc > 1 ? argv[1] : "[]";
    const QJsonArray given = QJsonDocument::fromJson(steps).array();
    QJsonArray rejections;
    for (const QJsonValue &step : given) {
        if (step.isObject())
            rejections += setIdentity(step.toObject());
        else
            perform(step.toString());
    }
    argc = 1;
    const QApplication application(argc, argv);
    QJsonObject found = facts();
    found.insert(u"rejections"_s, rejections);
    std::puts(QJsonDocument(found).toJson(QJsonDocument::Compact).constData());
    return 0;
}
