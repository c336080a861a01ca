#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <memory>

class NSClass;

/// A folder that holds a program or a plug-in and what belongs to it:
/// "X.app/Contents/{Info.plist,Linux/x,…}".
///
/// Copies are the same bundle: they share whether its code is loaded. A bundle made anew from the
/// same path reads its information again and loads its code by itself.
///
/// \code
/// NSBundle::mainBundle().bundleIdentifier();    // "org.cobble.Cobble"
///
/// NSBundle plugIn(u"/opt/Cobble/PlugIns/CSV.bundle"_s);
/// QString error;
/// if (const NSClass *exporterClass = plugIn.principalClass(&error))
///     std::unique_ptr<QObject> exporter = exporterClass->newInstance();
/// \endcode
class KTUTILITY_EXPORT NSBundle
{
public:
    /// The bundle at a folder; a folder without Contents/Info.plist is one without information.
    explicit NSBundle(const QString &path);

    /// The bundle of the running program: the "X.app" folder whose Contents/Linux holds the
    /// executable; for other programs, the folder of the executable.
    static const NSBundle &mainBundle();
    /// The bundle folder to which an executable belongs; see mainBundle().
    static QString bundlePathForExecutable(const QString &executable);

    /// The bundle of the framework: the "KTUtility.framework" folder that holds this library, as in
    /// an application, or that lies beside it, as in /usr/lib. Its resources are found wherever the
    /// installed tree is moved to.
    static const NSBundle &frameworkBundle();
    /// The framework folder that belongs to a library file; see frameworkBundle().
    static QString frameworkPathForLibrary(const QString &library);

    /// A text in the user's language: the translation of \a key in the context \a table
    /// (QCoreApplication::translate), or in the context "Localizable" if \a table is nil. Without a
    /// translation it is \a value, or the key itself if \a value is empty. Translations belong to
    /// the program, so that all bundles answer alike.
    QString localizedStringForKey(const QString &key, const QString &value = {},
                                  const QString &table = {}) const;

    /// The path of a file in the bundle's resources (Contents/Resources, or Resources of a
    /// framework); nil if there is none.
    QString pathForResource(const QString &name, const QString &ofType) const;

    /// The path of the bundle's folder.
    const QString &bundlePath() const { return _path; }
    /// What Contents/Info.plist says; empty if it cannot be read.
    const QVariantMap &infoDictionary() const { return _information; }
    /// CFBundleIdentifier; nil if there is none.
    QString bundleIdentifier() const;

    /// The entries of a folder whose names end with "." and \a type, as paths in the order of their
    /// names; folders in it are not entered. A folder that cannot be read has none.
    static QStringList pathsForResourcesOfType(const QString &type, const QString &inDirectory);

    // --- Code. For the main thread.

    /// NSPrincipalClass: the name of the class that the bundle is entered by; nil if there is none.
    QString principalClassName() const;
    /// The file that holds the code: what CFBundleExecutable names, else the bundle's own name
    /// without extension; "name" or "libname.so" in Contents/Linux, Contents, or the bundle itself,
    /// the first that exists. Nil if there is none.
    QString executablePath() const;

    /// Loads the code. Code that others (the world) may change is rejected: neither the file nor a
    /// folder from its own up to the one that holds the bundle may be writable by them. The file
    /// is mapped into the process: replace it by renaming another onto it, never write into it.
    /// \param error receives why it cannot be loaded; may be null.
    /// \return whether it is loaded, now or already.
    bool load(QString *error = nullptr);
    /// Whether the code is loaded.
    bool isLoaded() const;
    /// Gives the code back. It stays in the process, so that what was made of it lives on, but the
    /// bundle's classes are found again only by loading it.
    void unload();

    /// A class of the bundle's code by name, loading it if need be.
    /// \param error receives why there is none; may be null.
    /// \return null if the code cannot be loaded or registers no class of that name. What is
    /// returned stays valid, even after unload().
    const NSClass *classNamed(const QString &name, QString *error = nullptr);
    /// The class that principalClassName() names; see classNamed().
    const NSClass *principalClass(QString *error = nullptr);

private:
    struct Code;

    QString textForKey(const QString &key) const;
    QString executableName() const;
    QString openCode();

    QString _path;
    QVariantMap _information;
    std::shared_ptr<Code> _code;
};

/// The reverse-DNS name of the host, after which its settings files are named: what it has told
/// KTApplication, else the main bundle's identifier, else the desktop file name that the application has set, else "org.cobble.Cobble".
/// Names that cannot be a file name are passed over.
KTUTILITY_EXPORT QString NSHostIdentifier();
