#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSURL.h>

#include <QString>

#include <functional>

class KTStagedFile;
class QImage;

namespace KTPrivate {
/// The media folder of a bundle: which names it takes, which number the next copy of a file gets,
/// and how files come into it.
///
/// What comes in gets a numbered name that is free, comes whole or not at all, and never takes the
/// place of something else. A folder at nil takes nothing.
class KTUTILITY_EXPORT MediaFolder
{
public:
    explicit MediaFolder(const QString &path);

    /// The path of a file in the folder; nil for names that could lead out of it.
    QString pathOf(const QString &name) const;
    /// The number that the next copy of a file gets; −1 if none is free, 0 for names that are
    /// rejected: of these there is no copy.
    int nextInstanceNumber(const QString &name) const;

    // Each gives the path of the new file; nil if there is none.

    /// Copies a file, or a folder with all that it holds.
    QString copyFile(const QString &source) const;
    /// Downloads what an "http" URL names. Reports to kLog_MediaFilenames.
    QString download(const NSURL &url) const;
    /// Writes a picture as TIFF, named after the program's text "iSight Picture".
    QString saveTIFFImage(const QImage &image) const;

private:
    QString numberedPath(const QString &name) const;
    QString store(const QString &name, const std::function<bool(KTStagedFile &)> &fill) const;
    QString store(const std::function<QString()> &target,
                  const std::function<bool(KTStagedFile &)> &fill) const;

    QString _path;
};
} // namespace KTPrivate
