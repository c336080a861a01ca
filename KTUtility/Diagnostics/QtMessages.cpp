#include "QtMessages_p.h"

#include "KTLogger.h"
#include "LogComponents_p.h"
#include <KTUtility/Platform/Diagnostics/NSLog.h>

#include <QLoggingCategory>
#include <QScopedValueRollback>

#include <atomic>
#include <map>
#include <memory>

using namespace KTPrivate;

namespace {
std::atomic<bool> isHandedOver = false;
/// The handler that was there before ours; null while ours is not there.
std::atomic<QtMessageHandler> formerHandler = nullptr;
/// The one that was there before ours came for the first time: a handler that was put before ours
/// and that ours has been put before again may hand on to ours.
std::atomic<QtMessageHandler> firstHandler = nullptr;
std::atomic<const QLoggingCategory *> chosenCategory = nullptr;

/// Whether a message of this thread is on its way from one side to the other.
thread_local bool isOnItsWay = false;

/// How many times a message of this thread was handed on, if the handlers form a circle.
thread_local int timesHandedOn = 0;

/// The messages up to this level are no details.
constexpr int HighestInformation = 4;

int levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return 4;
    case QtInfoMsg:
        return 3;
    case QtWarningMsg:
        return 2;
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    return 1;
}

/// Hands a message of Qt to the shared logger.
/// \return false if its category is off there.
bool handToLogger(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QString component = QString::fromUtf8(context.category ? context.category : "default");
    LogComponents::declare(component);
    KTLogger *const logger = KTLogger::sharedLogger();
    if (!logger->shouldLogComponent(component, levelOf(type)))
        return false;
    logger->logComponent(component, levelOf(type), context.file, context.line, u"%@", message);
    return true;
}

/// Who has a message after ours: at the second time nobody that ours has had it from.
QtMessageHandler nextHandler()
{
    switch (timesHandedOn) {
    case 0:
        return formerHandler;
    case 1:
        return firstHandler;
    default:
        return nullptr;
    }
}

void handOn(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QtMessageHandler next = nextHandler();
    const QScopedValueRollback<int> counted(timesHandedOn, timesHandedOn + 1);
    // There is none in another thread, while ours is being put there or taken away.
    if (next)
        next(type, context, message);
    else
        NSLogText(message);
}

void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    bool isTaken = false;
    if (isHandedOver && !isOnItsWay) {
        const QScopedValueRollback<bool> onItsWay(isOnItsWay, true);
        isTaken = handToLogger(type, context, message);
    }
    // Qt ends the program after a fatal one: that is to be seen at once.
    if (!isTaken || type == QtFatalMsg)
        handOn(type, context, message);
}

/// Puts our handler before whatever is there now: another one may have been put there, or ours taken
/// away, by somebody else.
void installHandler()
{
    const QtMessageHandler before = qInstallMessageHandler(handle);
    if (before == handle)
        return;
    if (!firstHandler)
        firstHandler = before;
    formerHandler = before;
}

/// Puts the former handler back, unless somebody has put another one before ours: then ours stays
/// behind that, and hands on everything.
void restoreFormerHandler()
{
    const QtMessageHandler installed = qInstallMessageHandler(formerHandler);
    if (installed != handle)
        qInstallMessageHandler(installed);
    else
        // A handler that hands on to ours may still be there.
        formerHandler = formerHandler == firstHandler ? nullptr : firstHandler.load();
}

/// A category of a name, which stays, since messages in other threads may be using it.
const QLoggingCategory *categoryNamed(const QByteArray &name)
{
    struct Named
    {
        explicit Named(const QByteArray &text) : name(text), category(name.constData()) {}
        QByteArray name;
        QLoggingCategory category;
    };
    static auto *const known = new std::map<QByteArray, std::unique_ptr<Named>>;
    std::unique_ptr<Named> &named = (*known)[name];
    if (!named)
        named = std::make_unique<Named>(name);
    return &named->category;
}
} // namespace

void QtMessages::setHandedToLogger(bool isHanded)
{
    if (isHanded) {
        // Made before Qt's messages lead to it: it may cause some itself.
        KTLogger::sharedLogger();
        installHandler();
    }
    isHandedOver = isHanded;
    if (!isHanded && formerHandler)
        restoreFormerHandler();
}

bool QtMessages::areHandedToLogger()
{
    return isHandedOver;
}

void QtMessages::setCategory(const QByteArray &category)
{
    chosenCategory = category.isEmpty() ? nullptr : categoryNamed(category);
}

QByteArray QtMessages::category()
{
    const QLoggingCategory *const chosen = chosenCategory;
    return chosen ? QByteArray(chosen->categoryName()) : QByteArray();
}

bool QtMessages::take(QStringView component, int level, std::string_view fileName, int lineNumber,
                      QStringView message)
{
    const QLoggingCategory *const chosen = chosenCategory;
    if (!chosen || isOnItsWay)
        return false;
    const QScopedValueRollback<bool> onItsWay(isOnItsWay, true);
    const QByteArray file(fileName.data(), qsizetype(fileName.size()));
    const QMessageLogger logger(file.constData(), lineNumber, nullptr, chosen->categoryName());
    const QByteArray text = '[' + component.toUtf8() + "] " + message.toUtf8();
    if (level > HighestInformation && chosen->isDebugEnabled())
        logger.debug("%s", text.constData());
    else if (level <= HighestInformation && chosen->isInfoEnabled())
        logger.info("%s", text.constData());
    return true;
}
