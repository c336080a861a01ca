#include "NSSearchPath.h"

#include <QDir>
#include <QFile>

namespace {
/// An environment variable that names an absolute path; nil otherwise. Relative paths count as
/// unset, as the XDG rules say.
QString absolutePathIn(const char *variable)
{
    const QString path = QFile::decodeName(qgetenv(variable));
    return path.startsWith(u'/') ? path : QString();
}

QString applicationSupportFolder()
{
    const QString data = absolutePathIn("XDG_DATA_HOME");
    if (!data.isNull())
        return QDir::cleanPath(data);
    const QString home = NSHomeDirectory();
    return home.isNull() ? QString() : QDir::cleanPath(home + u"/.local/share");
}

QString withTilde(const QString &path)
{
    const QString home = NSHomeDirectory();
    return !home.isNull() && path.startsWith(QString(home + u'/'))
               ? QString(u'~' + path.mid(home.size()))
               : path;
}
} // namespace

QString NSHomeDirectory()
{
    const QString home = absolutePathIn("HOME");
    return home.isNull() ? home : QDir::cleanPath(home);
}

QString NSTemporaryDirectory()
{
    return QDir::tempPath();
}

QStringList NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                unsigned domainMask, bool expandTilde)
{
    const QString support = applicationSupportFolder();
    const bool isKnown =
        directory == NSLibraryDirectory || directory == NSApplicationSupportDirectory;
    if (support.isNull() || !isKnown || !(domainMask & NSUserDomainMask))
        return {};
    const QString folder =
        directory == NSLibraryDirectory ? QString(support + u"/Cobble") : support;
    return {expandTilde ? folder : withTilde(folder)};
}
