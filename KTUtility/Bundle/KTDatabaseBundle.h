#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSURL.h>

#include <QString>
#include <QVariant>

#include <optional>

class QImage;

/// Where the database lies on the disk, and how the files that belong to its records (pictures,
/// documents, downloads) are stored beside it.
///
/// A bundle is a folder "name.cobbledb":
///
///     Contents/Resources/Database    the file of the database engine
///     Contents/Resources/Media/      media files, side by side
///
/// Records refer to a media file by its URL, "cobblemedia://My%20photo.0.jpg", which holds only the
/// file's name, so that the bundle can be moved. Stored names carry a number before the extension:
/// the first copy of "photo.jpg" is "photo.0.jpg", the next one "photo.1.jpg".
///
/// A bundle object is a value that holds a path: it may describe a bundle that does not exist yet,
/// and nothing is kept between calls. No method raises; failures are nil or false. Files come into
/// the media folder whole or not at all and never take the place of others, also if several
/// processes store the same name at the same moment. A media name that is empty, ".", "..", or
/// holds "/" or NUL is rejected by everything that reads, writes or deletes by it.
///
/// Use KTMediaFilenameMunger instead where records hold paths.
///
/// \code
/// const KTDatabaseBundle bundle = KTDatabaseBundle::defaultDatabaseBundle();
/// bundle.buildDatabaseBundleOnDisk();
/// const std::optional<NSURL> url =
///     bundle.storeFileFromURL(*NSURL::fileURLWithPath(u"/tmp/My photo.jpg"_s));
/// url->absoluteString();                 // "cobblemedia://My%20photo.0.jpg"
/// bundle.filePathFromMediaUrl(*url);     // "…/cobble.cobbledb/Contents/Resources/Media/My photo…"
/// \endcode
class KTUTILITY_EXPORT KTDatabaseBundle
{
public:
    // --- Where bundles are

    /// The extension of bundles, "cobbledb".
    static QString databaseBundleFileType();
    /// The folder "Cobble" (or what the application has told KTApplication) in the user's Application
    /// Support folder, or in the folder for temporary files if there is none. Both are made if missing, one level each; a folder that cannot be
    /// made shows in what is done with it later.
    static QString cobbleSupportFolder();
    /// The name of the bundle that an application starts with, "cobble". A subclass may have its
    /// own; see factoryDefaultDatabaseBundle().
    static QString factoryDefaultDatabaseBundleName();

    /// The bundle that an application starts with.
    /// \tparam Bundle the class whose factoryDefaultDatabaseBundleName() counts.
    template<typename Bundle = KTDatabaseBundle>
    static Bundle factoryDefaultDatabaseBundle()
    {
        return Bundle(pathInSupportFolder(Bundle::factoryDefaultDatabaseBundleName()));
    }
    /// The bundle "cobble.cobbledb", deliberately also for subclasses with another factory name.
    template<typename Bundle = KTDatabaseBundle>
    static Bundle defaultDatabaseBundleForDeployment()
    {
        return Bundle(pathInSupportFolder(KTDatabaseBundle::factoryDefaultDatabaseBundleName()));
    }
    /// The bundle whose path the user has set under KTDefaultDatabaseBundlePath, else the
    /// factory's. Whether it exists is not looked at. For the main thread, as user defaults are.
    template<typename Bundle = KTDatabaseBundle>
    static Bundle defaultDatabaseBundle()
    {
        return Bundle(
            chosenBundlePath(pathInSupportFolder(Bundle::factoryDefaultDatabaseBundleName())));
    }
    /// The bundle at a path.
    template<typename Bundle = KTDatabaseBundle>
    static Bundle databaseBundleWithBundlePath(const QString &path)
    {
        return Bundle(path);
    }

    /// Makes a folder, but not those on the way to it, unless something is there already.
    /// \return whether anything, be it a file, is there now.
    static bool _ensureDirectoryExistsAtPath(const QString &path);

    // --- The bundle

    /// \param bundlePath the absolute path of the bundle folder. A bundle at nil does not exist,
    /// its paths are nil, and it stores nothing.
    explicit KTDatabaseBundle(const QString &bundlePath);

    /// The path of the bundle folder, as it was given.
    const QString &bundlePath() const { return _bundlePath; }
    /// The path of the database file in the bundle.
    QString databaseFilePath() const;
    /// The path of the folder that holds the media files.
    QString mediaFolderPath() const;
    /// The path of the folder "Contents".
    QString _contentsFolderPath() const;
    /// The path of the folder "Contents/Resources".
    QString _resourcesFolderPath() const;

    /// Whether there is a folder at the bundle's path.
    bool doesExist() const;
    /// Whether none of the bundle's own folders is a link, so that what is done in the bundle stays
    /// in it. Ask that of a bundle that may come from elsewhere before files are stored or deleted
    /// in it. The bundle's path itself may be a link.
    /// \return true also for folders that are not there; false if one cannot be looked at.
    bool isSelfContained() const;
    /// Makes the folders of the bundle, not the database file. The folder that the bundle lies in
    /// must exist.
    /// \param sender is ignored; it lets a menu item call this.
    /// \return whether all of them exist now.
    bool buildDatabaseBundleOnDisk(const QVariant &sender = {}) const;
    /// Removes the bundle with all that it holds.
    /// \param sender is ignored.
    /// \return false if something is left; a bundle that does not exist is a success.
    bool removeDatabaseBundleOnDisk(const QVariant &sender = {}) const;
    /// Puts the bundle aside before an upgrade: moves it to "name1Backup.cobbledb" and copies that
    /// to "name_PreUpgrade.cobbledb", with " 2", " 3" and so on if these exist. Nothing is left at
    /// the bundle's own path then.
    /// \return the path of the second one, also if a step failed.
    QString moveDatabaseToPreUpgradePath() const;

    // --- Names of media files

    /// The path or name with a comment before its extension: "a/b.jpg" and "2" give "a/b.2.jpg".
    /// \return nil if the path is empty or "/".
    QString filePathByAddingExtComment(const QString &path, const QString &comment) const;
    /// The path or name without its last three extensions, but with its own again: "photo.3.jpg"
    /// gives "photo.jpg". Deliberate: "my.photo.3.jpg" gives "my.jpg".
    QString filePathByRemovingExtComment(const QString &path) const;
    /// The number that the next copy of a file gets; only the last component of \a path counts.
    /// Numbers 0 to 3 are tried one by one, then 4, 8, 16… up to a free one, and from there the
    /// halves down to one that is taken; the next free number above that is it. Gaps further below
    /// stay.
    /// \return −1 if no number is free.
    int nextInstanceNumberForFilePath(const QString &path) const;
    /// The file name with that number.
    QString fileNameWithMediaInstanceNumber(const QString &fileName) const;

    // --- Storing

    /// Copies a file, or a folder with all that it holds.
    /// \return the path of the copy; nil if there is no source or it cannot be copied.
    QString copyFilePathToMediaFolderAndReturnMediaPath(const QString &path) const;
    /// Downloads over plain http, for five seconds at most while the caller waits. What the server
    /// says of success is not looked at. Reports to kLog_MediaFilenames.
    /// \return the path of the file; nil for all schemes but "http" in lower case, without an
    /// answer, and if the file cannot be written.
    QString downloadHttpFileToBundleAndReturnPath(const NSURL &url) const;
    /// Writes a picture as TIFF, named after the program's text "iSight Picture".
    /// \return the path of the file, nil if the picture is empty or cannot be written.
    QString saveTIFFImageToMediaFolderAndReturnMediaPath(const QImage &image) const;
    /// Copies what a "file" URL names, or downloads an "http" URL.
    /// \return the media URL; nothing for other schemes and after failures.
    std::optional<NSURL> storeFileFromURL(const NSURL &url) const;

    // --- Media URLs

    /// Whether the scheme is "cobblemedia", in lower case.
    bool isMediaURL(const NSURL &url) const;
    /// The media URL of the file whose name is the last component of \a path.
    /// \return nothing if the media folder has no such file.
    std::optional<NSURL> mediaUrlFromFilePath(const QString &path) const;
    /// The path that a media URL stands for. Whether there is a file is not looked at.
    /// \return nil for other URLs, and for names that are rejected.
    QString filePathFromMediaUrl(const NSURL &url) const;

    /// Whether anything of that name is in the media folder.
    bool isFileNameInMediaFolder(const QString &fileName) const;
    /// Removes a file, or a folder with all that it holds.
    /// \return false if it is not there or not removed.
    bool deleteFileFromMediaFolder(const QString &fileName) const;

    // --- Other names for the last three

    /// The same as isFileNameInMediaFolder().
    bool isFilenameInBundle(const QString &fileName) const;
    /// The same as filePathFromMediaUrl().
    QString filepathFromBundleURL(const NSURL &url) const;
    /// The same as deleteFileFromMediaFolder().
    bool deleteFileFromBundle(const QString &fileName) const;

private:
    static QString pathInSupportFolder(const QString &name);
    static QString chosenBundlePath(const QString &factoryPath);
    QString mediaPath(const QString &name) const;
    static std::optional<NSURL> mediaURLNamed(const QString &name);

    QString _bundlePath;
};

/// The key of the user defaults that holds the path of the bundle to open.
KTUTILITY_EXPORT extern const QString KTDefaultDatabaseBundlePath;
