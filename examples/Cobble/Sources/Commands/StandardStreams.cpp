#include "StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

DescriptorStream::DescriptorStream(int descriptor)
{
    // Unbuffered: the stream has a buffer of its own.
    if (_file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered))
        _stream.setDevice(&_file);
}

Outcome<> DescriptorStream::finish()
{
    _stream.flush();
    const bool isWritten = _stream.device() && _stream.status() == QTextStream::Ok &&
                           _file.error() == QFileDevice::NoError;
    return isWritten ? Outcome<>() : Failure{_file.errorString()};
}

void reserveStandardDescriptors()
{
    // The lowest free number is what open() gives. A descriptor for reading rejects writing.
    int descriptor = 0;
    while (descriptor >= STDIN_FILENO && descriptor <= STDERR_FILENO)
        descriptor = ::open("/dev/null", O_RDONLY);
    if (descriptor > STDERR_FILENO)
        ::close(descriptor);
}

Outcome<QByteArray> readStandardInput()
{
    QFile input;
    if (!input.open(STDIN_FILENO, QIODevice::ReadOnly, QFileDevice::DontCloseHandle))
        return Failure{input.errorString()};
    const QByteArray bytes = input.readAll();
    return input.error() == QFileDevice::NoError ? Outcome<QByteArray>(bytes)
                                                 : Failure{input.errorString()};
}
