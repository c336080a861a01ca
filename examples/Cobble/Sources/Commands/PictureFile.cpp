#include "PictureFile.h"

#include <QImageWriter>
#include <QSaveFile>

Outcome<> writePicture(const QImage &image, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Failure{file.errorString()};
    QImageWriter writer(&file, "png");
    if (!writer.write(image))
        return Failure{writer.errorString()};
    return file.commit() ? Outcome<>() : Failure{file.errorString()};
}
