#pragma once

#include "Text/Outcome.h"

#include <QFile>
#include <QTextStream>

/// A text stream in UTF-8 on an open descriptor that says at the end whether everything arrived.
///
/// \code
/// DescriptorStream output(STDOUT_FILENO);
/// output.stream() << "done\n";
/// if (const Outcome<> written = output.finish(); !written)
///     complain(written.reason());    // "No space left on device"
/// \endcode
class DescriptorStream
{
public:
    /// A stream on \a descriptor, which stays open when the stream is destroyed.
    explicit DescriptorStream(int descriptor);

    QTextStream &stream() { return _stream; }
    /// Writes what is still buffered. It fails, with the system's reason, if anything could not be
    /// written.
    Outcome<> finish();

private:
    QFile _file;
    QTextStream _stream;
};

/// Makes sure that the descriptors 0 to 2 are taken, so that no file opened later gets the number
/// of a closed standard stream and with it the program's output. Writing to one that was closed
/// fails afterwards, as before.
void reserveStandardDescriptors();

/// All that the standard input gives, to its end.
Outcome<QByteArray> readStandardInput();
