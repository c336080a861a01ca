#include "NSBundle.h"

#include "NSPathUtilities.h"
#include "NSPropertyListSerialization.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <dlfcn.h>

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

namespace {
/// The file that a function of this library was loaded from.
QString libraryPath()
{
    Dl_info information{};
    const auto *const address = reinterpret_cast<const void *>(&libraryPath);
    if (dladdr(address, &information) == 0 || !information.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(information.dli_fname)).canonicalFilePath();
}
} // namespace

const NSBundle &NSBundle::frameworkBundle()
{
    static const NSBundle bundle(NSString::stringByDeletingLastPathComponent(libraryPath()));
    return bundle;
}

QString NSBundle::localizedStringForKey(const QString &key, const QString &value,
                                        const QString &table) const
{
    const QByteArray context = table.isNull() ? QByteArray("Localizable") : table.toUtf8();
    const QByteArray source = key.toUtf8();
    const QString text = QCoreApplication::translate(context.constData(), source.constData());
    return text == key && !value.isEmpty() ? value : text;
}

QString NSBundle::pathForResource(const QString &name, const QString &ofType) const
{
    const QString file = ofType.isEmpty() ? name : QString(name + u'.' + ofType);
    for (const QStringView folder : {u"/Contents/Resources/", u"/Resources/"}) {
        const QString path = _path + folder + file;
        if (QFileInfo(path).isFile())
            return path;
    }
    return {};
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
