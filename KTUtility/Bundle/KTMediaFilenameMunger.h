#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSURL.h>

#include <QString>

/// Media files named by paths, for hosts that store paths and not media URLs (which are
/// KTDatabaseBundle's business).
///
/// The stored name of a file is its path with an instance number before the extension: the first
/// copy of "photo.jpg" is "photo.0.jpg". A copy is made beside the file. A second variant of a
/// stored file may lie beside it under the comment "orig", "photo.0.orig.jpg"; the two are one
/// item. Nothing here has state, and nothing raises.
///
/// All methods report to kLog_MediaFilenames at level 4. Files come into a folder whole or not at
/// all, and never take the place of another one, also if several processes store the same name at
/// the same moment. Paths whose last component is no name of a file (none, ".", "..") are neither
/// read, written nor deleted.
///
/// \code
/// using Munger = KTMediaFilenameMunger;
/// const QString stored = Munger::copyFileToDbAndReturnDBStoredName(folder + u"/photo.jpg");
/// // folder + "/photo.0.jpg"
/// Munger::originalFileNameFromDBStoredName(stored);    // folder + "/photo.jpg"
/// Munger::fileToLoadFromDBStoredName(stored);          // stored, as it exists
/// Munger::deleteFileByDBStoredName(stored);
/// \endcode
class KTUTILITY_EXPORT KTMediaFilenameMunger
{
public:
    KTMediaFilenameMunger() = delete;

    // --- Names

    /// The path of a stored file: the name itself.
    static QString pathRelativeToDBStore(const QString &storedName);
    /// The stored name that the next copy of a file gets; see
    /// nextInstanceNumberForOriginalFilename().
    static QString makeDBStoredNamefromOriginalFileName(const QString &originalName);
    /// The name without its comments; see stringByRemovingExtComment().
    static QString originalFileNameFromDBStoredName(const QString &storedName);
    /// The path with a comment before its extension: "a/b.jpg" and "2" give "a/b.2.jpg", "photo"
    /// and "0" give "photo.0".
    /// \return nil if the path is empty or "/".
    static QString stringByAddingExtComment(const QString &path, const QString &inputComment);
    /// The path without its last three extensions, but with its own again: "a.0.orig.jpg" and
    /// "a.0.jpg" give "a.jpg". Deliberate: "my.photo.0.jpg" gives "my.jpg".
    static QString stringByRemovingExtComment(const QString &path);
    /// A number that no copy of the file has in the file's folder. It is not always the smallest:
    /// with many copies, gaps are not looked for.
    /// \return −1 if there is none.
    static int nextInstanceNumberForOriginalFilename(const QString &originalName);

    // --- Files

    /// The path of the file to open: the stored file if it exists, else its "orig" variant, else
    /// nil.
    static QString fileToLoadFromDBStoredName(const QString &storedName);
    /// Copies a file or folder beside itself, with its permissions.
    /// \return the stored name; nil if there is nothing at \a source or it cannot be copied.
    static QString copyFileToDbAndReturnDBStoredName(const QString &source);
    /// Deletes a stored file and its "orig" variant, as far as they exist.
    static void deleteFileByDBStoredName(const QString &storedName);
    /// Downloads a file into the current folder of the process, waiting up to 5 seconds.
    /// \param url a URL whose scheme is exactly "http".
    /// \return the path of the file, which is its stored name; nil if it could not be had or
    /// written, or if the URL names no file.
    static QString downloadHttpFileToBundleAndReturnPath(const NSURL &url);
};
