#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Disk/NSFileHandle.h>

#include <QByteArrayView>
#include <QString>

#include <atomic>

namespace KTPrivate {
/// The log file: a write call a line, without buffering, from any thread and any number of
/// processes. Each line is put at the end of the file, also after somebody emptied it.
///
/// A line that the disk does not take is lost; where half of it was taken, the next one starts
/// anew.
class KTUTILITY_EXPORT LogFile
{
public:
    /// What becomes of the lines of the last session.
    enum class Start { Emptied, Kept };

    /// Makes the file at \a path, or opens the one that is there. It is emptied, unless \a start says
    /// otherwise, or another log that is open writes into it, in this process or another one. Where
    /// opening is not possible, lines are lost.
    explicit LogFile(const QString &path, Start start = Start::Emptied);

    /// Writes a line, which ends with a line feed.
    void writeLine(QByteArrayView line);

private:
    bool endTornLine();

    NSFileHandle _handle;
    // Whether the last line may have stopped half-way, on a full disk.
    std::atomic<bool> _isLineTorn = false;
};
} // namespace KTPrivate
