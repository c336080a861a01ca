#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QVariantMap>

/// A folder that holds a program and what belongs to it: "X.app/Contents/{Info.plist,Linux/x,…}".
///
/// \code
/// NSBundle::mainBundle().bundleIdentifier();    // "org.cobble.Cobble"
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

    /// The bundle of the framework: the "KTUtility.framework" folder that this library lies in.
    static const NSBundle &frameworkBundle();

    /// A text in the user's language: the translation of \a key in the context \a table
    /// (QCoreApplication::translate), or in the context "Localizable" if \a table is nil. Without a
    /// translation it is \a value, or the key itself if \a value is empty. Translations belong to
    /// the program, so that all bundles answer alike.
    QString localizedStringForKey(const QString &key, const QString &value = {},
                                  const QString &table = {}) const;

    /// The path of a file in the bundle's resources (Contents/Resources, or Resources of a
    /// framework); nil if there is none.
    QString pathForResource(const QString &name, const QString &ofType) const;

    const QString &bundlePath() const { return _path; }
    /// What Contents/Info.plist says; empty if it cannot be read.
    const QVariantMap &infoDictionary() const { return _information; }
    /// CFBundleIdentifier; nil if there is none.
    QString bundleIdentifier() const;

private:
    QString _path;
    QVariantMap _information;
};

/// The reverse-DNS name of the host, after which its settings files are named: the main bundle's
/// identifier, else the desktop file name that the application has set, else "org.cobble.Cobble".
/// Names that cannot be a file name are passed over.
KTUTILITY_EXPORT QString NSHostIdentifier();
