#include "NSBundle.h"

#include "NSPathUtilities.h"
#include "NSPropertyListSerialization.h"

#include <QFile>
#include <QGuiApplication>

NSBundle::NSBundle(const QString &path)
    : _path(path)
    , _information(NSDictionary::dictionaryWithContentsOfFile(
                       NSString::stringByAppendingPathComponent(
                           path, QStringLiteral("Contents/Info.plist")))
                       .value_or(QVariantMap()))
{
}

QString NSBundle::bundlePathForExecutable(const QString &executable)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(executable);
    const QString contents = NSString::stringByDeletingLastPathComponent(folder);
    const QString bundle = NSString::stringByDeletingLastPathComponent(contents);
    const bool isBundle = NSString::lastPathComponent(folder) == u"Linux"
        && NSString::lastPathComponent(contents) == u"Contents"
        && NSString::pathExtension(bundle) == u"app";
    return isBundle ? bundle : folder;
}

const NSBundle &NSBundle::mainBundle()
{
    static const NSBundle bundle(
        bundlePathForExecutable(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))));
    return bundle;
}

QString NSBundle::bundleIdentifier() const
{
    const QString identifier =
        _information.value(QStringLiteral("CFBundleIdentifier")).toString();
    return identifier.isEmpty() ? QString() : identifier;
}

QString NSHostIdentifier()
{
    const QString identifier = NSBundle::mainBundle().bundleIdentifier();
    if (!identifier.isNull())
        return identifier;
    const QString desktopFile = QGuiApplication::desktopFileName();
    return desktopFile.isEmpty() ? QStringLiteral("org.cobble.Cobble") : desktopFile;
}
