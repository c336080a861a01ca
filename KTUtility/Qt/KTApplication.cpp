#include "KTApplication.h"

#include <KTUtility/Platform/Files/ProgramIdentity_p.h>
#include <KTUtility/Platform/Values/NSException.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// An identity with what was left empty filled in.
ProgramIdentity completed(const KTApplication::Identity &given)
{
    const QString lastPart = given.identifier.section(u'.', -1);
    const QString folder = given.folder.isEmpty() ? lastPart : given.folder;
    const bool showsBuiltIn = given.logMenu == KTApplication::LogMenu::BuiltInAndOwnComponents;
    return {given.identifier,
            folder,
            given.logFile.isEmpty() ? QString(folder.toLower() + u".log") : given.logFile,
            given.plugInFolders,
            given.logComponents,
            showsBuiltIn};
}
} // namespace

void KTApplication::setIdentity(const Identity &identity)
{
    const QString rejection = ProgramIdentity::setCurrent(completed(identity));
    if (!rejection.isNull())
        NSException::raise(NSInvalidArgumentException, rejection);
}

QString KTApplication::reasonToReject(const Identity &identity)
{
    return completed(identity).rejection();
}

std::optional<KTApplication::Identity> KTApplication::identity()
{
    const ProgramIdentity *const program = ProgramIdentity::current();
    if (!program)
        return std::nullopt;
    return Identity{program->identifier,
                    program->folder,
                    program->logFile,
                    program->plugInFolders,
                    program->logComponents,
                    program->showsBuiltInComponents ? LogMenu::BuiltInAndOwnComponents
                                                    : LogMenu::OwnComponents};
}
