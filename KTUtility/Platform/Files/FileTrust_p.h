#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <sys/stat.h>
#include <unistd.h>

// Whose word a file is: whether anybody but the user and the administrator could have written it, or
// could put another one in its place.

namespace KTPrivate::FileTrust {
/// Why a file or folder must not be trusted, as "is writable by others"; nil if it may. It has to
/// belong to the user or to root, and nobody else may write it; the group may if it is root's or
/// the user's own, as each user has one on Debian.
KTUTILITY_EXPORT QString rejectionOf(const struct stat &status, uid_t user = ::geteuid());

/// Why what is found at a path must not be trusted, beginning with the path of what is wrong; nil if
/// it may. That looks at the file, and at all folders and links that the system passes on its way
/// there, up to the user's own: his home folder and $XDG_DATA_HOME. Outside of these it looks up to
/// the first folder that holds this library, too; who may write there has other ways.
KTUTILITY_EXPORT QString rejectionOfPath(const QString &path, uid_t user = ::geteuid());
} // namespace KTPrivate::FileTrust
