#include "KTMediaNames_p.h"

#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QFile>

#include <climits>

bool KTMediaNames::isFileName(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') &&
           !name.contains(QChar(u'\0'));
}

bool KTMediaNames::isTooLong(const QString &path)
{
    return QFile::encodeName(NSString::lastPathComponent(path)).size() > NAME_MAX;
}

QString KTMediaNames::pathByAddingExtComment(const QString &path, const QString &comment)
{
    const QString base = NSString::stringByDeletingPathExtension(path);
    return NSString::stringByAppendingPathExtension(
        NSString::stringByAppendingPathExtension(base, comment), NSString::pathExtension(path));
}

QString KTMediaNames::pathByRemovingExtComment(const QString &path)
{
    QString base = path;
    for (int time = 0; time < 3; ++time)
        base = NSString::stringByDeletingPathExtension(base);
    return NSString::stringByAppendingPathExtension(base, NSString::pathExtension(path));
}
