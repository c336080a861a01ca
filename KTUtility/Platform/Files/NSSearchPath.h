#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

/// The standard folders that can be asked for, with the platform's numbers.
enum NSSearchPathDirectory {
    /// The application's own folder in the Application Support folder: what it has told
    /// KTApplication, else "Cobble". Preferences, logs, plug-ins and the database lie in it.
    NSLibraryDirectory = 5,
    /// $XDG_DATA_HOME, else ".local/share" in the home folder (XDG Base Directory rules). Qt's folder
    /// for tests instead, while QStandardPaths::setTestModeEnabled() is on.
    NSApplicationSupportDirectory = 14,
};

/// Where to look, as bits. Only the user's own folders exist here.
enum NSSearchPathDomainMask : unsigned {
    NSUserDomainMask = 1, ///< the user's own folders
};

/// The home folder of the user: $HOME, if that is an absolute path; else nil.
KTUTILITY_EXPORT QString NSHomeDirectory();
/// The folder for temporary files of this process's user, which nobody else can read or write:
/// $TMPDIR (or /tmp) if that is his alone, else "Cobble-<user number>" in it (or the name of the
/// application's own folder). Where somebody else has something of that name, each process has a folder of its own, and removes it at its end unless
/// something is in it.
KTUTILITY_EXPORT QString NSTemporaryDirectory();

/// The folders for a purpose, the first being the one to use. They need not exist. The environment
/// is read at each call.
/// \param expandTilde whether a "~" stands for the home folder in the result; without, folders in
/// the home folder are given with it.
/// \return no folders if the environment names neither a data folder nor a home folder, or if
/// \a domainMask does not hold NSUserDomainMask.
///
/// \code
/// NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, NSUserDomainMask, true);
///     // ("/home/ada/.local/share/Cobble")
/// \endcode
KTUTILITY_EXPORT QStringList NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                                 unsigned domainMask,
                                                                 bool expandTilde);
