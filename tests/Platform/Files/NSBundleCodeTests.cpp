#include <KTUtility/NSBundle>
#include <KTUtility/NSClass>

#include "PlugIns/PlugInSupport.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstring>
#include <link.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
const QString goodClass = u"GoodExporter"_s;

QString goodModule()
{
    return builtModule(u"GoodPlugIn1"_s);
}

/// A bundle whose module is these bytes.
QString bundleWithModule(const QByteArray &bytes)
{
    const QString home = useFreshHome();
    const QString module = home + u"/module"_s;
    writeFile(module, bytes);
    return makeBundle(home, u"Made"_s, information(goodIdentifier, goodClass), module);
}

/// How much of a module is mapped.
qsizetype endOfSegments(const QByteArray &module)
{
    ElfW(Ehdr) header{};
    std::memcpy(&header, module.constData(), sizeof(header));
    qsizetype end = 0;
    for (unsigned index = 0; index < header.e_phnum; ++index) {
        ElfW(Phdr) segment{};
        std::memcpy(&segment, module.constData() + header.e_phoff + index * sizeof(segment),
                    sizeof(segment));
        if (segment.p_type == PT_LOAD)
            end = std::max(end, qsizetype(segment.p_offset + segment.p_filesz));
    }
    return end;
}

void setMode(const QString &path, mode_t mode)
{
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0) << path.toStdString();
}

/// The paths of what was opened by descriptor, as the loader keeps them, in order.
QList<QByteArray> modulesLoadedByDescriptor()
{
    QList<QByteArray> paths;
    dl_iterate_phdr(
        [](dl_phdr_info *module, size_t, void *list) {
            const QByteArray path(module->dlpi_name);
            const QByteArray start = "/proc/" + QByteArray::number(::getpid()) + "/fd/";
            if (path.startsWith(start))
                static_cast<QList<QByteArray> *>(list)->append(path);
            return 0;
        },
        &paths);
    return paths;
}

/// Why the code of a bundle cannot be loaded.
QString loadError(const QString &bundlePath)
{
    NSBundle bundle(bundlePath);
    QString error;
    EXPECT_FALSE(bundle.load(&error));
    EXPECT_FALSE(bundle.isLoaded());
    EXPECT_FALSE(error.isNull());
    EXPECT_FALSE(bundle.load());
    EXPECT_EQ(bundle.principalClass(), nullptr);
    return error;
}
} // namespace

TEST(NSBundleCode, EntriesOfAFolderAreFoundByTypeInOrder)
{
    const QString folder = useFreshHome() + u"/entries"_s;
    for (const char16_t *name : {u"b.bundle", u"a.b.bundle", u"C.bundle", u"ä.bundle"})
        QDir().mkpath(folder + u'/' + QString::fromUtf16(name) + u"/inner.bundle");
    for (const char16_t *name : {u"file.bundle", u".bundle", u"x.Bundle", u"bundle", u"x.bundles"})
        writeFile(folder + u'/' + QString::fromUtf16(name), "");
    QFile::link(u"/nowhere"_s, folder + u"/link.bundle");

    QStringList names;
    for (const QString &path : NSBundle::pathsForResourcesOfType(u"bundle"_s, folder)) {
        EXPECT_TRUE(path.startsWith(folder + u'/'));
        names += path.mid(folder.size() + 1);
    }
    const QStringList expected = {u"C.bundle"_s,    u"a.b.bundle"_s,  u"b.bundle"_s,
                                  u"file.bundle"_s, u"link.bundle"_s, u"ä.bundle"_s};
    EXPECT_EQ(names, expected);
}

TEST(NSBundleCode, WhatIsNoFolderHasNoEntries)
{
    const QString home = useFreshHome();
    writeFile(home + u"/file", "");
    for (const QString &folder : {QString(home + u"/none"), QString(home + u"/file")})
        EXPECT_TRUE(NSBundle::pathsForResourcesOfType(u"bundle"_s, folder).isEmpty());
    for (const QString &text : hostileTexts()) {
        EXPECT_TRUE(NSBundle::pathsForResourcesOfType(u"bundle"_s, text).isEmpty());
        EXPECT_TRUE(NSBundle::pathsForResourcesOfType(u"no such" + text, home).isEmpty());
    }
}

TEST(NSBundleCode, TheExecutableIsLookedForInThreeFoldersUnderTwoNames)
{
    const QString bundle =
        makeBundle(useFreshHome(), u"Probe"_s, information(goodIdentifier, goodClass), QString());
    const QStringList inOrderOfPreference = {u"/Contents/Linux/Code"_s,
                                             u"/Contents/Linux/libCode.so"_s,
                                             u"/Contents/Code"_s,
                                             u"/Contents/libCode.so"_s,
                                             u"/Code"_s,
                                             u"/libCode.so"_s};
    for (const char16_t *other :
         {u"/Contents/Linux/Code.so", u"/Contents/MacOS/Code", u"/Contents/Linux/Probe"})
        writeFile(bundle + QString::fromUtf16(other), "");
    EXPECT_TRUE(NSBundle(bundle).executablePath().isNull());
    for (auto place = inOrderOfPreference.rbegin(); place != inOrderOfPreference.rend(); ++place) {
        writeFile(bundle + *place, "");
        EXPECT_EQ(NSBundle(bundle).executablePath(), bundle + *place);
    }
}

TEST(NSBundleCode, WithoutANameTheExecutableIsNamedAfterTheBundle)
{
    const QString bundle = makeBundle(useFreshHome(), u"My.Own"_s,
                                      {{u"CFBundleIdentifier"_s, goodIdentifier}}, QString());
    const QString executable = bundle + u"/Contents/Linux/libMy.Own.so";
    writeFile(executable, "");
    EXPECT_EQ(NSBundle(bundle).executablePath(), executable);
    EXPECT_EQ(NSBundle(bundle + u'/').executablePath().isNull(), false);
}

TEST(NSBundleCode, NamesThatLeaveTheBundleNameNoExecutable)
{
    for (const QString &name :
         {u"../Linux/Code"_s, u"/bin/ls"_s, u".."_s, u"."_s, u"Linux/Code"_s}) {
        QVariantMap entries = information(goodIdentifier, goodClass);
        entries.insert(u"CFBundleExecutable"_s, name);
        const QString bundle = makeBundle(useFreshHome(), u"Leaving"_s, entries, goodModule());
        EXPECT_TRUE(NSBundle(bundle).executablePath().isNull());
        EXPECT_TRUE(loadError(bundle).contains(u"there is no executable"));
    }
}

TEST(NSBundleCode, AFolderIsNoExecutable)
{
    const QString bundle =
        makeBundle(useFreshHome(), u"Folder"_s, information(goodIdentifier, goodClass), QString());
    QDir().mkpath(bundle + u"/Contents/Linux/Code");
    EXPECT_TRUE(NSBundle(bundle).executablePath().isNull());
}

TEST(NSBundleCode, TheBuildMakesBundles)
{
    NSBundle bundle(builtFolder() + u"/GoodPlugIn1.bundle");
    EXPECT_EQ(bundle.bundleIdentifier(), goodIdentifier);
    EXPECT_EQ(bundle.principalClassName(), goodClass);
    EXPECT_EQ(bundle.executablePath(), goodModule());
    EXPECT_EQ(contentsOf(bundle.pathForResource(u"Hello"_s, u"txt"_s)), "Hello from a plug-in.\n");
    QString error;
    EXPECT_NE(bundle.principalClass(&error), nullptr) << error.toStdString();
}

TEST(NSBundleCode, LoadingFindsClassesAndUnloadingTakesThemOutOfReach)
{
    NSBundle bundle(makeGoodBundle(useFreshHome()));
    const NSBundle copy = bundle;
    EXPECT_FALSE(bundle.isLoaded());
    QString error = u"old"_s;
    EXPECT_TRUE(bundle.load(&error));
    EXPECT_TRUE(error.isNull());
    EXPECT_TRUE(bundle.load());
    EXPECT_TRUE(bundle.isLoaded());
    EXPECT_TRUE(copy.isLoaded());

    const NSClass *const found = bundle.principalClass();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->name(), goodClass);
    EXPECT_EQ(bundle.classNamed(goodClass), found);
    EXPECT_EQ(bundle.classNamed(u"Other"_s, &error), nullptr);
    EXPECT_EQ(error, bundle.executablePath() + u" registers no class Other");

    bundle.unload();
    EXPECT_FALSE(bundle.isLoaded());
    EXPECT_FALSE(copy.isLoaded());
    bundle.unload();
    // The code stays, and loading finds it again.
    EXPECT_NE(found->newInstance().get(), nullptr);
    EXPECT_EQ(bundle.principalClass(), found);
}

// The examples of the headers of NSBundle and NSClass.
TEST(NSBundleCode, IsUsedLikeThis)
{
    NSBundle plugIn(makeGoodBundle(useFreshHome()));
    QString error;
    std::unique_ptr<QObject> exporter;
    if (const NSClass *exporterClass = plugIn.principalClass(&error))
        exporter = exporterClass->newInstance();
    ASSERT_NE(exporter.get(), nullptr) << error.toStdString();

    const NSClass *exporterClass = plugIn.classNamed(u"GoodExporter"_s);
    ASSERT_NE(exporterClass, nullptr);
    EXPECT_TRUE(exporterClass->conformsToProtocol(NSProtocol::of<TestExporter>()));
    EXPECT_NE(qobject_cast<TestExporter *>(exporterClass->newInstance().get()), nullptr);
}

TEST(NSBundleCode, TwoBundlesMayHoldClassesOfTheSameName)
{
    const QString home = useFreshHome();
    NSBundle first(makeGoodBundle(home, u"One"_s, 1));
    NSBundle second(makeGoodBundle(home, u"Two"_s, 2));
    const NSClass *const firstClass = first.principalClass();
    const NSClass *const secondClass = second.principalClass();
    ASSERT_NE(firstClass, nullptr);
    ASSERT_NE(secondClass, nullptr);
    EXPECT_NE(firstClass, secondClass);
    const std::unique_ptr<QObject> firstObject = firstClass->newInstance();
    const std::unique_ptr<QObject> secondObject = secondClass->newInstance();
    // Neither sees the other's version or count.
    EXPECT_EQ(qobject_cast<TestExporter *>(firstObject.get())->fileType(), u"1/1");
    EXPECT_EQ(qobject_cast<TestExporter *>(secondObject.get())->fileType(), u"2/1");
}

TEST(NSBundleCode, AFileThatWasReplacedIsOtherCode)
{
    const QString home = useFreshHome();
    QSet<const NSClass *> classes;
    for (const int version : {1, 2, 1, 2}) {
        NSBundle bundle(makeGoodBundle(home, u"Good"_s, version));
        const NSClass *const found = bundle.principalClass();
        ASSERT_NE(found, nullptr);
        const std::unique_ptr<QObject> object = found->newInstance();
        EXPECT_EQ(qobject_cast<TestExporter *>(object.get())->fileType(),
                  QString::number(version) + u"/1");
        classes.insert(found);
    }
    EXPECT_EQ(classes.size(), 4);
}

TEST(NSBundleCode, ThePathThatTheLoaderKnowsStaysThatOfTheCode)
{
    const QString home = useFreshHome();
    const qsizetype before = modulesLoadedByDescriptor().size();
    for (const int version : {1, 2}) {
        NSBundle bundle(makeGoodBundle(home, u"Good"_s, version));
        ASSERT_NE(bundle.principalClass(), nullptr);
        // Others may come to be opened in its place.
        std::vector<std::unique_ptr<QFile>> others;
        for (int number = 0; number < 20; ++number) {
            others.push_back(std::make_unique<QFile>(u"/dev/null"_s));
            ASSERT_TRUE(others.back()->open(QIODevice::ReadOnly));
        }
        const QList<QByteArray> paths = modulesLoadedByDescriptor();
        ASSERT_EQ(paths.size(), before + version);
        const QByteArray path = paths.last();
        const QByteArray code = contentsOf(builtModule(u"GoodPlugIn" + QString::number(version)));
        EXPECT_EQ(contentsOf(QString::fromLatin1(path)), code);
    }
}

TEST(NSBundleCode, TheSameFileIsTheSameCode)
{
    const QString path = makeGoodBundle(useFreshHome());
    NSBundle first(path);
    NSBundle second(path);
    EXPECT_EQ(first.principalClass(), second.principalClass());
    first.unload();
    EXPECT_TRUE(second.isLoaded());
}

TEST(NSBundleCode, WhatOthersMayWriteIsNotLoaded)
{
    const QString folder = useFreshHome() + u"/folder"_s;
    const QString path = makeGoodBundle(folder);
    const QStringList places = {folder,
                                path,
                                QString(path + u"/Contents"),
                                QString(path + u"/Contents/Linux"),
                                QString(path + u"/Contents/Linux/Code"),
                                QString(path + u"/Contents/Info.plist")};
    for (const QString &place : places) {
        setMode(place, 0777);
        EXPECT_EQ(loadError(path), place + u" is writable by others");
        setMode(place, 0755);
    }
    // A sticky bit keeps others from removing, not from adding.
    setMode(folder, 01777);
    EXPECT_EQ(loadError(path), folder + u" is writable by others");
    setMode(folder, 0755);
    EXPECT_TRUE(NSBundle(path).load());
}

TEST(NSBundleCode, WhoMayExchangeAFolderOfPlugInsHasNoCodeLoaded)
{
    const QString home = useFreshHome();
    const QString support = home + u"/.local/share/Cobble"_s;
    const QString path = makeGoodBundle(support + u"/PlugIns/Exporters"_s);
    for (const QString &place : {QString(support + u"/PlugIns"), support,
                                 QString(home + u"/.local/share"), QString(home + u"/.local")}) {
        setMode(place, 0777);
        EXPECT_EQ(loadError(path), place + u" is writable by others");
        setMode(place, 0755);
    }
    EXPECT_TRUE(NSBundle(path).load());
}

TEST(NSBundleCode, CodeOfSomebodyElseIsNotLoaded)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only an administrator can give files away";
    const QString path = makeGoodBundle(useFreshHome());
    for (const QString &place :
         {QString(path + u"/Contents/Linux/Code"), path, QString(path + u"/Contents/Info.plist")}) {
        const QByteArray name = QFile::encodeName(place);
        ASSERT_EQ(::chown(name.constData(), 54'321, 0), 0);
        EXPECT_EQ(loadError(path), place + u" belongs to somebody else");
        ASSERT_EQ(::chown(name.constData(), 0, 0), 0);
    }
    EXPECT_TRUE(NSBundle(path).load());
}

TEST(NSBundleCode, CodeOutsideOfTheBundleIsNotLoaded)
{
    const QString home = useFreshHome();
    const QString path =
        makeBundle(home, u"Linked"_s, information(goodIdentifier, goodClass), QString());
    ASSERT_TRUE(QFile::link(goodModule(), path + u"/Contents/Linux/Code"));
    EXPECT_EQ(loadError(path), goodModule() + u" lies outside of the bundle");
}

TEST(NSBundleCode, ALinkToABundleIsThatBundle)
{
    const QString home = useFreshHome();
    const QString path = makeGoodBundle(home + u"/real"_s);
    const QString link = home + u"/Link.bundle";
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(NSBundle(link).load());
    setMode(home + u"/real", 0777);
    EXPECT_EQ(loadError(link), home + u"/real is writable by others");
}

TEST(NSBundleCode, ALinkThatOthersMayChangeIsNotFollowed)
{
    const QString home = useFreshHome();
    const QString path = makeGoodBundle(home + u"/real"_s);
    const QString open = home + u"/open";
    const QString link = open + u"/Link.bundle";
    const QString linkToLink = home + u"/Link.bundle";
    ASSERT_TRUE(QDir().mkdir(open) && QFile::link(path, link) && QFile::link(link, linkToLink));
    EXPECT_TRUE(NSBundle(linkToLink).load());
    setMode(open, 0777);
    for (const QString &way : {link, QString(link + u'/'), linkToLink})
        EXPECT_EQ(loadError(way), open + u" is writable by others");
    EXPECT_TRUE(NSBundle(path).load());
}

TEST(NSBundleCode, APipeInPlaceOfTheCodeIsRejectedAtOnce)
{
    const QString path =
        makeBundle(useFreshHome(), u"Pipe"_s, information(goodIdentifier, goodClass), QString());
    const QString pipe = path + u"/Contents/Linux/Code";
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(loadError(path), pipe + u" is not a file");
}

TEST(NSBundleCode, WhatIsNoModuleIsRejected)
{
    QByteArray otherMachine = contentsOf(goodModule());
    otherMachine[EI_NIDENT + 2] = EM_S390;
    QByteArray otherClass = contentsOf(goodModule());
    otherClass[EI_CLASS] = otherClass[EI_CLASS] == ELFCLASS64 ? ELFCLASS32 : ELFCLASS64;
    const QList<QByteArray> files = {QByteArray(),
                                     QByteArray("MZ"),
                                     QByteArray(100'000, 'x'),
                                     QByteArray(ELFMAG),
                                     QByteArray(100'000, '\xFF').prepend(ELFMAG),
                                     otherMachine,
                                     otherClass};
    for (const QByteArray &bytes : files) {
        const QString path = bundleWithModule(bytes);
        const QString error = loadError(path);
        EXPECT_TRUE(error.startsWith(path)) << error.toStdString();
        EXPECT_FALSE(error.contains(u"/proc/")) << error.toStdString();
    }
}

TEST(NSBundleCode, ACutOffModuleIsRejected)
{
    const QByteArray whole = contentsOf(goodModule());
    const qsizetype end = endOfSegments(whole);
    ASSERT_GT(end, 4096);
    ASSERT_GT(whole.size(), end);
    for (const qsizetype size : {qsizetype(70), qsizetype(4096), end - 1, end, whole.size() - 1}) {
        const QString path = bundleWithModule(whole.left(size));
        EXPECT_EQ(loadError(path), QString(path + u"/Contents/Linux/Code is incomplete"));
    }
    EXPECT_TRUE(NSBundle(bundleWithModule(whole)).load());
}

TEST(NSBundleCode, AModuleWithoutASectionTableIsLoaded)
{
    QByteArray module = contentsOf(goodModule());
    module.truncate(endOfSegments(module));
    ElfW(Ehdr) header{};
    std::memcpy(&header, module.constData(), sizeof(header));
    header.e_shoff = 0;
    header.e_shnum = 0;
    header.e_shstrndx = 0;
    std::memcpy(module.data(), &header, sizeof(header));
    EXPECT_TRUE(NSBundle(bundleWithModule(module)).load());
}

TEST(NSBundleCode, AModuleWithoutClassesHasNone)
{
    NSBundle bundle(makeBundle(useFreshHome(), u"Other"_s, information(goodIdentifier, goodClass),
                               builtModule(u"EmptyPlugIn"_s)));
    QString error;
    EXPECT_EQ(bundle.principalClass(&error), nullptr);
    EXPECT_TRUE(bundle.isLoaded());
    EXPECT_EQ(error, bundle.executablePath() + u" registers no class GoodExporter");
}

TEST(NSBundleCode, OnlyTextsNameAClass)
{
    for (const QVariant &value : {QVariant(5), QVariant(u""_s), QVariant(true)}) {
        QVariantMap entries = information(goodIdentifier, goodClass);
        entries.insert(u"NSPrincipalClass"_s, value);
        NSBundle bundle(makeBundle(useFreshHome(), u"Odd"_s, entries, goodModule()));
        EXPECT_TRUE(bundle.principalClassName().isNull());
        EXPECT_EQ(bundle.principalClass(), nullptr);
    }
}

TEST(NSBundleCode, NonsenseHasNoCode)
{
    useFreshHome();
    for (const QString &path : hostileTexts()) {
        NSBundle bundle(path);
        EXPECT_TRUE(bundle.executablePath().isNull());
        EXPECT_TRUE(bundle.infoDictionary().isEmpty());
        EXPECT_FALSE(bundle.load());
    }
}
