#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSFileHandle.h>

#include <QByteArrayView>
#include <QString>

#include <atomic>

namespace KTPrivate {
/// The log file: a write call a line, without buffering, from any thread.
///
/// A line that the disk does not take is lost; where half of it was taken, the next one starts
/// anew.
class KTUTILITY_EXPORT LogFile
{
public:
    /// Makes the file at \a path, or empties the one that is there. Where that is not possible,
    /// lines are lost.
    explicit LogFile(const QString &path);

    /// Writes a line, which ends with a line feed.
    void writeLine(QByteArrayView line);

private:
    bool endTornLine();

    NSFileHandle _handle;
    // Whether the last line may have stopped half-way, on a full disk.
    std::atomic<bool> _isLineTorn = false;
};
} // namespace KTPrivate
