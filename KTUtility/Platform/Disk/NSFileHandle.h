#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArrayView>

/// A handle on an open file, written without buffering: what writeData() returned from is in the
/// kernel's hands and survives a crash of the process.
///
/// Use it for logs. For files that readers must see whole, use KTSaveFile.
///
/// \code
/// NSFileHandle handle(::open("/tmp/cobble.log", O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
/// handle.writeData("started\n");
/// \endcode
class KTUTILITY_EXPORT NSFileHandle
{
public:
    /// Whether the destructor closes the descriptor.
    enum class Ownership {
        Owned,   ///< it does
        Borrowed ///< it does not: the descriptor is somebody else's
    };

    /// A handle on \a descriptor; one below 0 stands for a file that could not be opened, and
    /// everything written to it is dropped.
    explicit NSFileHandle(int descriptor, Ownership ownership = Ownership::Owned) noexcept;
    ~NSFileHandle();
    NSFileHandle(const NSFileHandle &) = delete;
    NSFileHandle &operator=(const NSFileHandle &) = delete;

    /// The descriptor, below 0 if there is none.
    int fileDescriptor() const noexcept { return _descriptor; }

    /// Writes all bytes at the current position, going on after interruptions and partial writes.
    /// \return false if the system reported an error (disk full, file closed); the rest is dropped.
    bool writeData(QByteArrayView data) noexcept;

    /// Waits until what was written is on the disk, going on after interruptions.
    /// \return false if it may not be there; a file that is to replace another one must not, then.
    bool synchronizeFile() noexcept;

private:
    int _descriptor;
    Ownership _ownership;
};
