// What the host writes: imports, exports and single records.

#include "Export/LibraryExport.h"
#include "FaultScenario.h"
#include "Import/ImportFile.h"
#include "Journal/ChangeJournal.h"
#include "Library/LibraryStore.h"
#include "PlugIns/PlugIns.h"

#include "support/TestSupport.h"

#include <KTUtility/NSPathUtilities>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using testing_support::writeFile;

namespace {
const QString MediaList = u"things.cobbledb/Contents/Resources/ImportedMedia"_s;
const QString MediaFolder = u"things.cobbledb/Contents/Resources/Media/"_s;
const QByteArray People = "Name,Picture\nAnn,a.png\nBob,b.png\nCay,\n";

/// A bundle that gets libraries.
class LibraryScenario : public FaultScenario
{
public:
    explicit LibraryScenario(const QString &home)
        : _home(home), _bundle(QString(home + u"/things.cobbledb"))
    {
        // Plug-ins keep settings, too.
        const PlugIns plugIns;
        writeFile(path(u"People.csv"), People);
        writeFile(path(u"Others.csv"), "Name,Picture\nDan,a.png\n");
        writeFile(path(u"a.png"), "picture a");
        writeFile(path(u"b.png"), QByteArray(100'000, 'b'));
    }

    /// Whoever writes to the database next takes back what an unfinished change left in it.
    void settle() override
    {
        const auto store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing);
        if (store && (*store)->beginChange())
            (*store)->rollback();
    }

protected:
    QString path(QStringView name) const { return QString(_home + u'/' + name); }
    const KTDatabaseBundle &bundle() const { return _bundle; }

    Outcome<StoredImport> import(const QString &file, bool replaces = false,
                                 const std::function<bool(qint64 row)> &goesOn = {}) const
    {
        ImportRequest request;
        request.path = path(file);
        request.libraryName = u"People"_s;
        request.replaces = replaces;
        request.bundle = _bundle;
        if (file.endsWith(u".csv"))
            request.mediaHeaders = {u"Picture"_s};
        Outcome<ImportFile> read = ImportFile::read(request);
        if (!read)
            return read.failure();
        if (goesOn)
            read->settings.progress = [goesOn](qint64 row, qint64) { return goesOn(row); };
        return read->store(request, 100);
    }

    std::unique_ptr<LibraryStore> openStore() const
    {
        auto store = LibraryStore::open(_bundle, LibraryStore::Mode::Existing);
        EXPECT_TRUE(store) << store.reason().toStdString();
        return std::move(store).valueOr(nullptr);
    }

private:
    QString _home;
    KTDatabaseBundle _bundle;
};

/// An import. Pictures that cannot be found are listed; then the import is done without them.
class ImportScenario : public LibraryScenario
{
public:
    using LibraryScenario::LibraryScenario;

    bool canBeTriedAgain() const override { return !_isPartial; }
    /// Media that could not be removed are in a list for the next import.
    bool isAsAfter(const FileState &now, const FileState &after) const override
    {
        FileState rest = now;
        const QList<QByteArray> lines = rest.take(MediaList).split('\n');
        for (const QByteArray &url : lines) {
            const QString file = MediaFolder + NSString::lastPathComponent(QString::fromUtf8(url));
            if (!after.contains(file))
                rest.remove(file);
        }
        return rest == after;
    }
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        return _isPartial ? isWholeWithoutPictures(now) : now == before;
    }

protected:
    Answer answerFor(const Outcome<StoredImport> &outcome)
    {
        _isPartial = outcome && !outcome->values.unread.isEmpty();
        if (!_isPartial)
            return {bool(outcome), outcome.reason()};
        return {false, outcome->values.unread.first().reason};
    }

private:
    /// All records are there, and exactly the files that they name.
    bool isWholeWithoutPictures(const FileState &now) const
    {
        const auto store = openStore();
        if (!store)
            return false;
        const auto library = store->libraryNamed(u"People"_s);
        const auto used = store->usedMedia();
        if (!library || !used || store->recordCount(*library).valueOr(0) == 0)
            return false;
        QSet<QString> named;
        for (const QString &url : *used) {
            if (url.startsWith(u"cobblemedia:"))
                named += NSString::lastPathComponent(url);
        }
        const QStringList files =
            QDir(bundle().mediaFolderPath()).entryList(QDir::Files | QDir::Hidden);
        return named == QSet<QString>(files.begin(), files.end()) && !now.contains(MediaList) &&
               !now.contains(u"things.cobbledb.lock"_s);
    }

    bool _isPartial = false;
};

class ImportIntoNewBundle : public ImportScenario
{
public:
    using ImportScenario::ImportScenario;
    Answer act() override { return answerFor(import(u"People.csv"_s)); }
};

class ImportIntoBundle : public ImportScenario
{
public:
    explicit ImportIntoBundle(const QString &home) : ImportScenario(home)
    {
        EXPECT_TRUE(import(u"Others.csv"_s));
    }
    Answer act() override { return answerFor(import(u"People.csv"_s)); }
};

class ImportThatReplaces : public ImportIntoBundle
{
public:
    using ImportIntoBundle::ImportIntoBundle;
    Answer act() override { return answerFor(import(u"People.csv"_s, true)); }
    bool canBeTriedAgain() const override { return true; }
    /// The old records keep their pictures until all new ones are there.
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        return now == before;
    }
};

/// The import before was killed when it had stored one file and half of another one.
class ImportAfterKilledOne : public ImportIntoBundle
{
public:
    explicit ImportAfterKilledOne(const QString &home) : ImportIntoBundle(home)
    {
        writeFile(bundle().mediaFolderPath() + u"/left.0.png", "left");
        writeFile(bundle()._resourcesFolderPath() + u"/ImportedMedia",
                  "cobblemedia://left.0.png\n");
        writeFile(bundle().mediaFolderPath() + u"/.cobble-12ab", "half");
    }
    /// Where no lock could be made the half file may be somebody's, and is left to the next import.
    bool isAsAfter(const FileState &now, const FileState &after) const override
    {
        FileState rest = now;
        rest.remove(QString(MediaFolder + u".cobble-12ab"));
        return ImportIntoBundle::isAsAfter(rest, after);
    }
    /// What was left may be removed before the import fails, and its name with it.
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        return cleaned(now) == cleaned(before) || ImportIntoBundle::isAsBefore(now, before);
    }

private:
    static FileState cleaned(FileState state)
    {
        state.remove(QString(MediaFolder + u"left.0.png"));
        state.remove(QString(MediaFolder + u".cobble-12ab"));
        state.remove(MediaList);
        return state;
    }
};

/// A scenario that compares what is there now without what a function leaves out.
template<typename Scenario, FileState (*Without)(FileState)>
class Overlooking : public Scenario
{
public:
    using Scenario::Scenario;

    bool isAsAfter(const FileState &now, const FileState &after) const override
    {
        return Scenario::isAsAfter(Without(now), after);
    }
    bool isAsBefore(const FileState &now, const FileState &before) const override
    {
        return Scenario::isAsBefore(Without(now), before);
    }
};

/// The database has been read: a journal that is still there has nothing that it would need. It
/// stays where taking a change back failed, until the next change.
FileState withoutIdleJournal(FileState state)
{
    state.remove(u"things.cobbledb/Contents/Resources/Database-journal"_s);
    return state;
}

/// What is left in the temporary folder is the system's to clear.
FileState withoutTemporaryFiles(FileState state)
{
    state.removeIf(
        [](const auto &file) { return file.key().startsWith(u"tmp/") && file.key().size() > 4; });
    return state;
}

/// Cancelled when it has stored a file. What the one before had left is removed all the same.
class ImportThatIsCancelled : public Overlooking<ImportAfterKilledOne, withoutIdleJournal>
{
public:
    using Overlooking::Overlooking;
    Answer act() override
    {
        const auto outcome = import(u"People.csv"_s, false, [](qint64 row) { return row < 3; });
        return {outcome.isCancelled(), outcome.reason()};
    }
};

class ImportVCards : public Overlooking<ImportScenario, withoutTemporaryFiles>
{
public:
    explicit ImportVCards(const QString &home) : Overlooking(home)
    {
        writeFile(path(u"People.vcf"),
                  "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann\r\nPHOTO;ENCODING=b;TYPE=PNG:" +
                      QByteArray("picture").toBase64() + "\r\nEND:VCARD\r\n");
    }
    Answer act() override { return answerFor(import(u"People.vcf"_s)); }
};

class Export : public LibraryScenario
{
public:
    Export(const QString &home, const QString &name) : LibraryScenario(home), _name(name)
    {
        EXPECT_TRUE(import(u"People.csv"_s));
        writeFile(path(name), "old");
    }
    Answer act() override
    {
        const auto store = LibraryStore::open(bundle(), LibraryStore::Mode::Existing);
        if (!store)
            return {false, store.reason()};
        const auto library = (*store)->libraryNamed(u"People"_s);
        if (!library)
            return {false, library.reason()};
        const auto count = LibraryExport::run(**store, *library, path(_name));
        return {bool(count), count.reason()};
    }

private:
    QString _name;
};

class ExportToCSV : public Export
{
public:
    explicit ExportToCSV(const QString &home) : Export(home, u"out.csv"_s) {}
};

class ExportToJSON : public Export
{
public:
    explicit ExportToJSON(const QString &home) : Export(home, u"out.json"_s) {}
};

class SingleRecords : public LibraryScenario
{
public:
    explicit SingleRecords(const QString &home) : LibraryScenario(home)
    {
        EXPECT_TRUE(import(u"People.csv"_s));
    }
    Answer act() override
    {
        const auto store = LibraryStore::open(bundle(), LibraryStore::Mode::Existing);
        if (!store)
            return {false, store.reason()};
        const auto library = (*store)->libraryNamed(u"People"_s);
        if (!library)
            return {false, library.reason()};
        const Outcome<> changed = changeRecords(**store, *library);
        return {bool(changed), changed.reason()};
    }

private:
    static Outcome<> changeRecords(LibraryStore &store, const Library &library)
    {
        return store.beginChange()
            .andThen([&] { return store.update(library, 1, 0, u"Eve"_s); })
            .andThen([&] { return store.removeRecord(library, 2); })
            .andThen([&] { return store.commit(); });
    }
};
/// A step of the journal that changes, adds and removes records, and gives the library a field.
class JournalStep : public LibraryScenario
{
public:
    explicit JournalStep(const QString &home) : LibraryScenario(home)
    {
        EXPECT_TRUE(import(u"People.csv"_s));
    }
    Answer act() override
    {
        const auto store = LibraryStore::open(bundle(), LibraryStore::Mode::Existing);
        if (!store)
            return {false, store.reason()};
        const auto library = (*store)->libraryNamed(u"People"_s);
        if (!library)
            return {false, library.reason()};
        return perform(**store, *library);
    }

protected:
    virtual Answer perform(LibraryStore &store, const Library &library)
    {
        const auto made = ChangeJournal(store).make(
            {StepKinds::Edit, {}}, [&](StepRecorder &step) { return change(step, library); });
        return {bool(made), made.reason()};
    }
    static Outcome<> change(StepRecorder &step, const Library &library)
    {
        return step.update(library, 1, 0, u"Eve"_s)
            .andThen([&] {
                return step.insertWithId(library, 9, {u"Dan"_s, u""_s});
            })
            .andThen([&] { return step.remove(library, 2); })
            .andThen([&]() -> Outcome<> {
                const auto wider = step.addField(library, {});
                return wider ? Outcome<>() : wider.failure();
            });
    }
};

class JournalUndo : public JournalStep
{
public:
    explicit JournalUndo(const QString &home) : JournalStep(home)
    {
        const auto store = openStore();
        EXPECT_TRUE(JournalStep::perform(*store, *store->libraryNamed(u"People"_s)).isDone);
    }

protected:
    Answer perform(LibraryStore &store, const Library &) override
    {
        const auto undone = ChangeJournal(store).undo(2);
        return {bool(undone), undone.reason()};
    }
};
} // namespace

QList<FaultRow> hostScenarios()
{
    QList<FaultRow> rows = {
        faultRow<ImportIntoNewBundle>("ImportIntoNewBundle"),
        faultRow<ImportIntoBundle>("ImportIntoBundle"),
        faultRow<ImportThatReplaces>("ImportThatReplaces"),
        faultRow<ImportAfterKilledOne>("ImportAfterKilledOne"),
        faultRow<ImportThatIsCancelled>("ImportThatIsCancelled"),
        faultRow<ImportVCards>("ImportVCards"),
        faultRow<ExportToCSV>("ExportToCSV"),
        faultRow<ExportToJSON>("ExportToJSON"),
        faultRow<SingleRecords>("SingleRecords"),
        faultRow<JournalStep>("JournalStep"),
        faultRow<JournalUndo>("JournalUndo"),
    };
    for (FaultRow &row : rows)
        row.givesReasons = row.usesDatabase = true;
    return rows;
}
