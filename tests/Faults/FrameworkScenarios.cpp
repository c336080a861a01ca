// What the framework writes.

#include "FaultScenario.h"

#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTLogger>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/KTPlugInManager>
#include <KTUtility/NSUserDefaults>

#include <QDir>
#include <QImage>

using namespace Qt::StringLiterals;

using testing_support::LoopbackServer;
using testing_support::writeFile;

namespace {
class LoggerSettings : public FaultScenario
{
public:
    explicit LoggerSettings(const QString & /*home*/) { _logger.setLevelOfComponent(2, kLog_Undo); }
    Answer act() override
    {
        const bool isSaved = _logger.setLevelOfComponent(4, kLog_ImportDialog);
        // What cannot be read back leaves every component off.
        EXPECT_EQ(_logger.levelOfComponent(kLog_Undo), _logger.components() ? 2 : 0);
        return {isSaved, {}};
    }
    Answer seenAfter(const Answer &told) override
    {
        _logger.loadConfigFile(_logger.userFile());
        EXPECT_EQ(_logger.levelOfComponent(kLog_Undo), 2);
        EXPECT_EQ(_logger.levelOfComponent(kLog_ImportDialog), told.isDone ? 4 : 0);
        return told;
    }

private:
    KTLogger _logger;
};

class PlugInDefaults : public FaultScenario
{
public:
    explicit PlugInDefaults(const QString & /*home*/)
    {
        EXPECT_TRUE(_manager.pluginDefaultsSetObject(1, u"kept"_s));
    }
    Answer act() override { return {_manager.pluginDefaultsSetObject(7, u"number"_s), {}}; }

protected:
    KTPlugInManager &manager() { return _manager; }

private:
    KTPlugInManager _manager;
};

/// What was removed stays so, also while its file cannot be.
class PlugInDefaultsRemoved : public PlugInDefaults
{
public:
    using PlugInDefaults::PlugInDefaults;
    Answer act() override
    {
        NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
        defaults->removePersistentDomainForName(u"org.cobble.Cobble.plugins"_s);
        EXPECT_FALSE(manager().pluginDefaultsObjectForKey(u"kept"_s).isValid());
        return {defaults->synchronize(), {}};
    }
};

const QString Added = u"org.example.two"_s;

class PlugInEnabled : public FaultScenario
{
public:
    explicit PlugInEnabled(const QString & /*home*/)
    {
        _manager.setEnabledKey(u"enabled"_s);
        EXPECT_TRUE(_manager.setEnabledForPlugin(true, u"org.example.one"_s));
    }
    Answer act() override
    {
        // What could not be written is kept in memory; a second time would list it twice.
        if (_manager.isPluginEnabled(Added))
            return {NSUserDefaults::standardUserDefaults()->synchronize(), {}};
        return {_manager.setEnabledForPlugin(true, Added), {}};
    }

private:
    KTPlugInManager _manager;
};

/// A bundle with a file in its media folder, and things to store.
class BundleScenario : public FaultScenario
{
public:
    explicit BundleScenario(const QString &home)
        : _home(home), _bundle(QString(home + u"/things.cobbledb"))
    {
        EXPECT_TRUE(_bundle.buildDatabaseBundleOnDisk());
        writeFile(_bundle.databaseFilePath(), "records");
        writeFile(_bundle.mediaFolderPath() + u"/photo.0.jpg", "old");
        writeFile(path(u"photo.jpg"), QByteArray(200'000, 'p'));
        writeFile(path(u"notes.rtfd/text.rtf"), "text");
        writeFile(path(u"notes.rtfd/pictures/one.png"), "one");
    }

protected:
    QString path(QStringView name) const { return QString(_home + u'/' + name); }
    const KTDatabaseBundle &bundle() const { return _bundle; }

    /// What a path that may be nil says.
    static Answer answerFor(const QString &stored) { return {!stored.isNull(), {}}; }

private:
    QString _home;
    KTDatabaseBundle _bundle;
};

class MediaCopy : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        return answerFor(bundle().copyFilePathToMediaFolderAndReturnMediaPath(path(u"photo.jpg")));
    }
};

class MediaFolderCopy : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        return answerFor(bundle().copyFilePathToMediaFolderAndReturnMediaPath(path(u"notes.rtfd")));
    }
};

class MediaOfURL : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        const auto url = bundle().storeFileFromURL(*NSURL::fileURLWithPath(path(u"photo.jpg")));
        return {url.has_value(), {}};
    }
};

class MediaPicture : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        QImage picture(20, 20, QImage::Format_RGB32);
        picture.fill(QColor(10, 20, 30));
        return answerFor(bundle().saveTIFFImageToMediaFolderAndReturnMediaPath(picture));
    }
};

class MediaDownload : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        const auto url = NSURL::URLWithString(_server.url(u"/pic.jpg"_s));
        return answerFor(bundle().downloadHttpFileToBundleAndReturnPath(*url));
    }

private:
    LoopbackServer _server;
};

/// Names of files without a bundle, beside their originals.
class MungerCopy : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        return answerFor(
            KTMediaFilenameMunger::copyFileToDbAndReturnDBStoredName(path(u"photo.jpg")));
    }
};

class MediaRemoved : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override { return {bundle().deleteFileFromMediaFolder(u"photo.0.jpg"_s), {}}; }
};

class PreUpgradeCopy : public BundleScenario
{
public:
    using BundleScenario::BundleScenario;
    Answer act() override
    {
        _copy = bundle().moveDatabaseToPreUpgradePath();
        return {};
    }
    Answer seenAfter(const Answer & /*told*/) override { return {QDir(_copy).exists(), {}}; }
    bool canBeTriedAgain() const override { return bundle().doesExist(); }
    /// The bundle that could not be copied is whole in its backup.
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        FileState backedUp;
        for (auto file = before.begin(); file != before.end(); ++file) {
            QString name = file.key();
            if (name.startsWith(u"things.cobbledb"))
                name.insert(6, u'1').insert(7, u"Backup"_s);
            backedUp.insert(name, *file);
        }
        return now == before || now == backedUp;
    }

private:
    QString _copy;
};

class NewBundle : public FaultScenario
{
public:
    explicit NewBundle(const QString &home) : _bundle(QString(home + u"/things.cobbledb")) {}
    Answer act() override { return {_bundle.buildDatabaseBundleOnDisk(), {}}; }
    /// Folders stay that were made before one could not be made; the next attempt uses them.
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        const QStringList names = now.keys();
        return std::all_of(names.begin(), names.end(), [&before](const QString &name) {
            return before.contains(name) ||
                   (name.startsWith(u"things.cobbledb/") && name.endsWith(u'/'));
        });
    }

private:
    KTDatabaseBundle _bundle;
};
} // namespace

QList<FaultRow> frameworkScenarios()
{
    return {
        faultRow<LoggerSettings>("LoggerSettings"),
        faultRow<PlugInDefaults>("PlugInDefaults"),
        faultRow<PlugInDefaultsRemoved>("PlugInDefaultsRemoved"),
        faultRow<PlugInEnabled>("PlugInEnabled"),
        faultRow<MediaCopy>("MediaCopy"),
        faultRow<MediaFolderCopy>("MediaFolderCopy"),
        faultRow<MediaOfURL>("MediaOfURL"),
        faultRow<MediaPicture>("MediaPicture"),
        faultRow<MediaDownload>("MediaDownload"),
        faultRow<MungerCopy>("MungerCopy"),
        faultRow<MediaRemoved>("MediaRemoved"),
        faultRow<PreUpgradeCopy>("PreUpgradeCopy"),
        faultRow<NewBundle>("NewBundle"),
    };
}
