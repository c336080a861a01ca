#include "ExportDevice.h"

#include <QFileDevice>

ExportDevice::ExportDevice(QFileDevice *file) : _file(file)
{
    QIODevice::open(WriteOnly | Unbuffered);
}

bool ExportDevice::open(OpenMode /*mode*/)
{
    return false;
}

qint64 ExportDevice::size() const
{
    return _file->size();
}

bool ExportDevice::seek(qint64 position)
{
    return QIODevice::seek(position) && _file->seek(position);
}

qint64 ExportDevice::readData(char * /*data*/, qint64 /*size*/)
{
    return -1;
}

qint64 ExportDevice::writeData(const char *data, qint64 size)
{
    const qint64 written = _file->write(data, size);
    if (written < size)
        setErrorString(_file->errorString());
    return written;
}
