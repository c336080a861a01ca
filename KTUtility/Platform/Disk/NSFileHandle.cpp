#include "NSFileHandle.h"

#include "FileOperations_p.h"

#include <unistd.h>

using namespace KTPrivate;

NSFileHandle::NSFileHandle(int descriptor, Ownership ownership) noexcept
    : _descriptor(descriptor), _ownership(ownership)
{
}

NSFileHandle::~NSFileHandle()
{
    if (_ownership == Ownership::Owned && _descriptor >= 0)
        ::close(_descriptor);
}

bool NSFileHandle::writeData(QByteArrayView data) noexcept
{
    while (!data.isEmpty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(_descriptor, data.data(), size_t(data.size())); });
        if (written <= 0)
            return false;
        data = data.sliced(written);
    }
    return true;
}

bool NSFileHandle::synchronizeFile() noexcept
{
    return uninterrupted([this] { return ::fsync(_descriptor); }) == 0;
}
