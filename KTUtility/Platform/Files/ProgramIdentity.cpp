#include "ProgramIdentity_p.h"

#include "NSPropertyListSerialization.h"
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <algorithm>
#include <atomic>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// How many bytes the name of a file can have.
constexpr qsizetype MostBytesOfFile = 255;
/// How many of them a name leaves to ".ktlogger.plist" and to what a file that is set aside has
/// behind that.
constexpr qsizetype MostBytesOfSuffix = 32;

/// Never destroyed: objects that are destroyed at the very end ask, too.
std::atomic<const ProgramIdentity *> &identity()
{
    static std::atomic<const ProgramIdentity *> current = nullptr;
    return current;
}

/// What was named after the program first; null if nothing was.
std::atomic<const char *> &firstUse()
{
    static std::atomic<const char *> use = nullptr;
    return use;
}

/// What the program has said, as something is named after it now.
const ProgramIdentity *usedFor(const char *use)
{
    const char *none = nullptr;
    firstUse().compare_exchange_strong(none, use);
    return identity();
}

/// Whether settings and the menu can hold a component's name.
bool canNameComponent(const QString &name)
{
    return !name.isEmpty() && !NSPropertyListSerialization::dataWithPropertyList(name).isNull();
}

QString rejectionOfName(QStringView what, const QString &name)
{
    if (name.isEmpty())
        return NSString::stringWithFormat(u"The %@ is missing.", what);
    if (!canNameFile(name))
        return NSString::stringWithFormat(u"The %@ \"%@\" cannot be the name of a file.", what,
                                          name);
    return {};
}

QString rejectionOfFolders(const QStringList &folders)
{
    const auto isRelative = [](const QString &folder) {
        return !folder.startsWith(u'/') || folder.contains(QChar(u'\0'));
    };
    const auto relative = std::ranges::find_if(folders, isRelative);
    return relative == folders.end()
               ? QString()
               : NSString::stringWithFormat(u"The plug-in folder \"%@\" is no absolute path.",
                                            *relative);
}

QString rejectionOfComponents(const QStringList &names)
{
    const auto impossible = std::ranges::find_if_not(names, canNameComponent);
    return impossible == names.end()
               ? QString()
               : NSString::stringWithFormat(u"\"%@\" cannot be the name of a log component.",
                                            *impossible);
}
} // namespace

bool KTPrivate::canNameFile(const QString &name)
{
    const auto isImpossible = [](QChar unit) {
        return unit == u'/' || unit.category() == QChar::Other_Control;
    };
    return !name.isEmpty() && name != u"." && name != u".." && name.isValidUtf16() &&
           name.toUtf8().size() <= MostBytesOfFile - MostBytesOfSuffix &&
           std::ranges::none_of(name, isImpossible);
}

const ProgramIdentity *ProgramIdentity::current()
{
    return identity();
}

QString ProgramIdentity::rejection() const
{
    for (const QString &each :
         {rejectionOfName(u"identifier", identifier), rejectionOfName(u"folder", folder),
          rejectionOfName(u"log file", logFile), rejectionOfFolders(plugInFolders),
          rejectionOfComponents(logComponents)}) {
        if (!each.isNull())
            return each;
    }
    return {};
}

QString ProgramIdentity::setCurrent(const ProgramIdentity &identity)
{
    const QString rejection = identity.rejection();
    if (!rejection.isNull())
        return rejection;
    const ProgramIdentity *const before = current();
    if (before)
        return *before == identity
                   ? QString()
                   : NSString::stringWithFormat(u"The program is %@ already.", before->identifier);
    if (const char *const use = firstUse())
        return NSString::stringWithFormat(u"It is too late: %s has been asked for already.", use);
    ::identity() = new ProgramIdentity(identity);
    return {};
}

QString ProgramIdentity::folderName()
{
    const ProgramIdentity *const program = usedFor("the program's folder");
    return program ? program->folder : u"Cobble"_s;
}

QString ProgramIdentity::logFileName()
{
    const ProgramIdentity *const program = usedFor("the log file");
    return program ? program->logFile : u"cobble.log"_s;
}

QString ProgramIdentity::givenIdentifier()
{
    const ProgramIdentity *const program = usedFor("the program's identifier");
    return program ? program->identifier : QString();
}
