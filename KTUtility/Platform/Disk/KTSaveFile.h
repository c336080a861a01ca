#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QSaveFile>

/// A file that readers see whole: the old bytes until the new ones are on the disk, then these.
///
/// Use it for every file that somebody would miss; not for logs, which are appended to. It is a
/// QSaveFile of which three things are settled:
/// - it never writes in place;
/// - the new file has the old one's permissions, which are asked for before anything is written.
///   QSaveFile asks later, and takes an answer that fails for "nobody may read this";
/// - the bytes are on the disk before the new file takes the old one's place, and the folder is
///   flushed behind it.
///
/// \code
/// KTSaveFile file(u"/tmp/report.csv"_s);
/// if (!file.open(QIODevice::WriteOnly) || file.write("a,b\n") < 0 || !file.commit())
///     qWarning("%s", qPrintable(file.errorString()));
/// \endcode
class KTUTILITY_EXPORT KTSaveFile : public QSaveFile
{
public:
    /// A file that takes the place of the one at \a path once it is committed.
    explicit KTSaveFile(const QString &path);

    /// Opens a new file beside the old one.
    /// \return false, with a reason in errorString(), if that cannot be made, if there is an old
    /// file that may not be written, or if its permissions cannot be found out.
    bool open(OpenMode mode) override;

    /// Lets the new file take the old one's place when its bytes are on the disk.
    /// \return false, with a reason in errorString(), if the old file stays.
    [[nodiscard]] bool commit();

private:
    bool fail(int error);
};
