#include "NSBundle.h"

#include "NSPathUtilities.h"
#include "NSPropertyListSerialization.h"

#include <QFile>
#include <QGuiApplication>

namespace {
/// Settings files are named after the host, so that its name must be usable as a file name.
bool canNameFile(const QString &name)
{
    return !name.isEmpty() && name != u"." && name != u".." && name.isValidUtf16() &&
           !name.contains(u'/') && !name.contains(QChar(u'\0'));
}
} // namespace

NSBundle::NSBundle(const QString &path)
    : _path(path)
    , _information(
          NSDictionary::dictionaryWithContentsOfFile(
              NSString::stringByAppendingPathComponent(path, QStringLiteral("Contents/Info.plist")))
              .value_or(QVariantMap()))
{
}

QString NSBundle::bundlePathForExecutable(const QString &executable)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(executable);
    const QString contents = NSString::stringByDeletingLastPathComponent(folder);
    const QString bundle = NSString::stringByDeletingLastPathComponent(contents);
    const bool isBundle = NSString::lastPathComponent(folder) == u"Linux" &&
                          NSString::lastPathComponent(contents) == u"Contents" &&
                          NSString::pathExtension(bundle) == u"app";
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
    const QVariant identifier = _information.value(QStringLiteral("CFBundleIdentifier"));
    const bool isText = identifier.typeId() == QMetaType::QString;
    return isText && !identifier.toString().isEmpty() ? identifier.toString() : QString();
}

QString NSHostIdentifier()
{
    for (const QString &name :
         {NSBundle::mainBundle().bundleIdentifier(), QGuiApplication::desktopFileName()}) {
        if (canNameFile(name))
            return name;
    }
    return QStringLiteral("org.cobble.Cobble");
}
