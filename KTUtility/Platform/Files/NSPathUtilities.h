#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

/// Paths as texts. Nothing here looks at the file system, except that a tilde asks for the home
/// folder. Runs of "/" count as one, and a "/" at the end is dropped first. A nil
/// path gives nil; a component that is appended to nil or "" stands alone.
///
/// \code
/// NSString::lastPathComponent(u"/tmp/photo.0.jpg"_s);             // "photo.0.jpg"
/// NSString::pathExtension(u"/tmp/photo.0.jpg"_s);                 // "jpg"
/// NSString::stringByDeletingPathExtension(u"photo.0.jpg"_s);      // "photo.0"
/// NSString::stringByAppendingPathComponent(u"/tmp"_s, u"a"_s);
///     // "/tmp/a"
/// \endcode
namespace NSString {
/// The components, "/" being the first of an absolute path and the last of one that ends with it.
KTUTILITY_EXPORT QStringList pathComponents(const QString &path);
/// The components joined with "/".
KTUTILITY_EXPORT QString pathWithComponents(const QStringList &components);

/// What stands behind the last "/"; "/" for the root, "" for "".
KTUTILITY_EXPORT QString lastPathComponent(const QString &path);
/// The path without its last component; "/" stays.
KTUTILITY_EXPORT QString stringByDeletingLastPathComponent(const QString &path);
/// The path and one more component with exactly one "/" between; an absolute component is appended
/// all the same. A "/" at the end of the component stays.
KTUTILITY_EXPORT QString stringByAppendingPathComponent(const QString &path,
                                                        const QString &component);

/// What stands behind the last "." of the last component, unless that dot is its first or last
/// character; "" if there is none.
KTUTILITY_EXPORT QString pathExtension(const QString &path);
/// The path without its extension and the dot. A dot at the end is removed, too; ".jpg" and "/"
/// stay.
KTUTILITY_EXPORT QString stringByDeletingPathExtension(const QString &path);
/// The path, a dot and the extension. An empty extension appends nothing.
/// \return nil if the path is "" or "/", or the extension begins with "/".
KTUTILITY_EXPORT QString stringByAppendingPathExtension(const QString &path,
                                                        const QString &extension);

/// The path with "~" at its start replaced by the home folder of the user; "~name" and a missing
/// home leave it as it is.
KTUTILITY_EXPORT QString stringByExpandingTildeInPath(const QString &path);
/// The path with its tilde expanded, and without empty components and "."; ".." takes the component
/// before it away in absolute paths.
KTUTILITY_EXPORT QString stringByStandardizingPath(const QString &path);
} // namespace NSString
