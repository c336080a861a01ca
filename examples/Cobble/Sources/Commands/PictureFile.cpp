#include "PictureFile.h"

#include <KTUtility/KTSaveFile>

#include <QImageWriter>

Outcome<> writePicture(const QImage &image, const QString &path)
{
    KTSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return Failure{file.errorString()};
    QImageWriter writer(&file, "png");
    if (!writer.write(image))
        return Failure{writer.errorString()};
    return file.commit() ? Outcome<>() : Failure{file.errorString()};
}
