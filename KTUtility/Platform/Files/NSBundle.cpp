#include "NSBundle.h"

#include "Module_p.h"
#include "NSFileManager.h"
#include "NSPathUtilities.h"
#include "NSPropertyListSerialization.h"
#include "ProgramIdentity_p.h"
#include <KTUtility/Platform/Classes/NSClass.h>

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <dirent.h>
#include <dlfcn.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

/// The code, null while it is not loaded; shared by the copies of a bundle.
struct NSBundle::Code
{
    std::unique_ptr<Module> module;
};

NSBundle::NSBundle(const QString &path) : _path(path), _code(std::make_shared<Code>())
{
    if (!path.isEmpty())
        _information = NSDictionary::dictionaryWithContentsOfFile(path + u"/Contents/Info.plist")
                           .value_or(QVariantMap());
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
        bundlePathForExecutable(QFile::symLinkTarget(u"/proc/self/exe"_s)));
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

QString NSBundle::frameworkPathForLibrary(const QString &library)
{
    const QString folder = NSString::stringByDeletingLastPathComponent(library);
    return NSString::pathExtension(folder) == u"framework"
               ? folder
               : NSString::stringByAppendingPathComponent(folder, u"KTUtility.framework"_s);
}

const NSBundle &NSBundle::frameworkBundle()
{
    static const NSBundle bundle(frameworkPathForLibrary(libraryPath()));
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

/// A text of the information; nil if it is missing, empty, or something else.
QString NSBundle::textForKey(const QString &key) const
{
    const QVariant value = _information.value(key);
    const bool isText = value.typeId() == QMetaType::QString && !value.toString().isEmpty();
    return isText ? value.toString() : QString();
}

QString NSBundle::bundleIdentifier() const
{
    return textForKey(u"CFBundleIdentifier"_s);
}

QString NSBundle::principalClassName() const
{
    return textForKey(u"NSPrincipalClass"_s);
}

QStringList NSBundle::pathsForResourcesOfType(const QString &type, const QString &inDirectory)
{
    QStringList paths;
    if (!NSFileManager::fileExistsAtPath(inDirectory))
        return paths;
    // Whatever has the name counts: what it is shows when it is opened.
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(
        ::opendir(QFile::encodeName(inDirectory).constData()), ::closedir);
    while (const dirent *const entry = folder ? ::readdir(folder.get()) : nullptr) {
        const QString name = QFile::decodeName(entry->d_name);
        if (NSString::pathExtension(name) == type)
            paths += NSString::stringByAppendingPathComponent(inDirectory, name);
    }
    paths.sort();
    return paths;
}

// --- Code ---------------------------------------------------------------------------------------

QString NSBundle::executableName() const
{
    const QString named = textForKey(u"CFBundleExecutable"_s);
    if (!named.isNull())
        return canNameFile(named) ? named : QString();
    return NSString::stringByDeletingPathExtension(NSString::lastPathComponent(_path));
}

QString NSBundle::executablePath() const
{
    const QString name = executableName();
    if (name.isEmpty())
        return {};
    for (const QStringView folder : {u"/Contents/Linux/", u"/Contents/", u"/"}) {
        for (const QString &file : {name, QString(u"lib" + name + u".so")}) {
            const QString path = _path + folder + file;
            bool isFolder = false;
            if (NSFileManager::fileExistsAtPath(path, &isFolder) && !isFolder)
                return path;
        }
    }
    return {};
}

/// Loads the code; why it cannot be loaded, or nil.
QString NSBundle::openCode()
{
    QString error;
    _code->module = Module::open(executablePath(), _path, &error);
    return error;
}

bool NSBundle::load(QString *error)
{
    const QString failure = isLoaded() ? QString() : openCode();
    if (error)
        *error = failure;
    return isLoaded();
}

bool NSBundle::isLoaded() const
{
    return _code->module != nullptr;
}

void NSBundle::unload()
{
    _code->module.reset();
}

const NSClass *NSBundle::classNamed(const QString &name, QString *error)
{
    if (!load(error))
        return nullptr;
    const NSClass *const found = _code->module->classNamed(name);
    if (!found && error)
        *error = executablePath() + u" registers no class "_s + name;
    return found;
}

const NSClass *NSBundle::principalClass(QString *error)
{
    return classNamed(principalClassName(), error);
}

QString NSHostIdentifier()
{
    // Settings files are named after the host, so that its name must be usable as a file name.
    for (const QString &name :
         {ProgramIdentity::givenIdentifier(), NSBundle::mainBundle().bundleIdentifier(),
          QGuiApplication::desktopFileName()}) {
        if (canNameFile(name))
            return name;
    }
    return u"org.cobble.Cobble"_s;
}
