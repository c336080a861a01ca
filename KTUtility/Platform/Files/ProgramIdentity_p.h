#pragma once

// Private to the library. Whose program it is, for all that is named after it.

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

namespace KTPrivate {
/// What a program has said of itself; KTApplication describes it.
struct KTUTILITY_EXPORT ProgramIdentity
{
    QString identifier;
    QString folder;
    QString logFile;
    QStringList plugInFolders;
    QStringList logComponents;
    bool showsBuiltInComponents = false;

    /// What the program has said; null as long as it has said nothing.
    static const ProgramIdentity *current();

    /// Makes it the program's, for the rest of the process.
    /// \return why that cannot be; nil if it is the program's now.
    static QString setCurrent(const ProgramIdentity &identity);

    /// Why a program cannot be called that; nil if it can.
    QString rejection() const;

    // --- What is named after the program. Who asks has used its name, which cannot change then.

    /// The folder of the user's data that the program has; "Cobble" if it has said nothing.
    static QString folderName();
    /// The log file in it; "cobble.log" if it has said nothing.
    static QString logFileName();
    /// The identifier; nil if it has said nothing.
    static QString givenIdentifier();

    friend bool operator==(const ProgramIdentity &, const ProgramIdentity &) = default;
};

/// Whether a text can be the name of a file, also with a suffix: it has at most 223 bytes and no
/// control characters.
KTUTILITY_EXPORT bool canNameFile(const QString &name);
} // namespace KTPrivate
