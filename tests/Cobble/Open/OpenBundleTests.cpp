#include "Open/OpenBundle.h"

#include "../Library/InterruptedChange.h"
#include "../Window/WindowSupport.h"

#include "Journal/StepStack.h"
#include "Open/OpenLibrary.h"
#include "Open/StoredRecord.h"

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueObserving>

#include <QFile>

#include <functional>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
/// Does something when a value has changed.
class ValueFollower : public NSKeyValueObserver
{
public:
    explicit ValueFollower(const std::function<void()> &perform) : _perform(perform) {}
    void observeValueForKeyPath(const QString &, QObject *, const NSKeyValueChange &,
                                const QString &) override
    {
        wasTold = true;
        _perform();
    }

    bool wasTold = false;

private:
    std::function<void()> _perform;
};

class OpenBundleTests : public HostWindowTest
{
protected:
    void importMany()
    {
        QByteArray rows = "Name\n";
        for (int number = 0; number < 3000; ++number)
            rows += "somebody " + QByteArray::number(number) + '\n';
        import(u"Many.csv"_s, rows);
    }
    /// Changes the first record of a library.
    static Outcome<> rename(OpenBundle &opened, const QString &library, const QString &name)
    {
        const Outcome<Library> found = opened.store()->libraryNamed(library);
        return opened.change({StepKinds::Edit, {}},
                             [&](StepRecorder &step) { return step.update(*found, 1, 0, name); });
    }
};
} // namespace

TEST_F(OpenBundleTests, LookingChangesNothing)
{
    import(u"Things.csv"_s, Things);
    const QJsonObject before = tree.contents();
    OpenBundle opened(bundle);
    EXPECT_EQ((*opened.open(u"Things"_s))->recordCount(), 4);
    opened.reload();
    EXPECT_EQ(opened.libraries().size(), 1);
    EXPECT_EQ(tree.contents(), before);
    EXPECT_TRUE(rename(opened, u"Things"_s, u"Eve"_s));
    EXPECT_EQ(stored(1, 0), u"Eve"_s);
}

TEST_F(OpenBundleTests, AnInterruptedChangeIsTakenBackWhenSomethingIsWritten)
{
    importMany();
    InterruptedChange::leaveIn(bundle, u"kt_many"_s, u"kt_name"_s);
    const QJsonObject before = tree.contents();
    OpenBundle opened(bundle);
    ASSERT_TRUE(opened.errorText().isNull()) << opened.errorText().toStdString();
    const auto library = opened.open(u"Many"_s);
    ASSERT_TRUE(library);
    EXPECT_EQ((*library)->text(*(*library)->record(1), 0), u"somebody 0"_s);
    EXPECT_EQ(tree.contents(), before);
    // What was shown is a copy, behind which others may have written.
    EXPECT_TRUE(rename(opened, u"Many"_s, u"Eve"_s).reason().contains(u"another program"));
    turn();
    EXPECT_TRUE(rename(opened, u"Many"_s, u"Eve"_s));
    EXPECT_EQ(stored(1, 0, u"Many"_s), u"Eve"_s);
    EXPECT_EQ(stored(2, 0, u"Many"_s), u"somebody 1"_s);
}

TEST_F(OpenBundleTests, ForgottenStepsTakeNoFilesOfOtherFoldersAlong)
{
    import(u"Things.csv"_s, Things);
    OpenBundle opened(bundle);
    for (const bool isOwnFolder : {true, false}) {
        testing_support::writeFile(bundle.mediaFolderPath() + u"/a.0.png", "picture");
        ASSERT_TRUE(rename(opened, u"Things"_s, u"cobblemedia://a.0.png"_s));
        ASSERT_TRUE(opened.play(opened.lastStep()->number, StepPlayer::Direction::Undo));
        const QString documents = tree.path(u"documents"_s);
        if (!isOwnFolder) {
            // The folder has become one of the user's, where a file happens to have the name.
            ASSERT_TRUE(QFile::rename(bundle.mediaFolderPath(), documents));
            ASSERT_TRUE(QFile::link(documents, bundle.mediaFolderPath()));
        }
        ASSERT_TRUE(rename(opened, u"Things"_s, isOwnFolder ? u"Eve"_s : u"Fay"_s));
        EXPECT_EQ(QFile::exists(bundle.mediaFolderPath() + u"/a.0.png"), !isOwnFolder);
    }
}

TEST_F(OpenBundleTests, ForgottenStepsLeaveFilesThatATextElsewhereNames)
{
    tree.add(u"a.png"_s, "picture");
    tree.add(u"Pictures.csv"_s, "Name,Photo\nAnn,a.png\nBob,a.png\n");
    tree.add(u"Notes.csv"_s, "Note\ncobblemedia://a.0.png\none\ntwo\n");
    for (const QString &name : {u"Pictures.csv"_s, u"Notes.csv"_s})
        ASSERT_EQ(runInProcess({u"import"_s, tree.path(name), u"--bundle"_s, bundle.bundlePath()})
                      .exitCode,
                  0);
    OpenBundle opened(bundle);
    ASSERT_TRUE(opened.play(1, StepPlayer::Direction::Undo));
    const auto names = [this] { return QDir(bundle.mediaFolderPath()).entryList(QDir::Files); };
    EXPECT_EQ(names(), QStringList({u"a.0.png"_s, u"a.1.png"_s}));
    const auto notes = *opened.open(u"Notes"_s);
    ASSERT_TRUE(notes->removeRecords(RecordIds{notes->recordIds()->back()}));
    EXPECT_EQ(names(), QStringList(u"a.0.png"_s));
}

TEST_F(OpenBundleTests, SaysWhyABundleIsNotOpened)
{
    import(u"Things.csv"_s, Things);
    QDir(bundle.mediaFolderPath()).removeRecursively();
    tree.add(u"documents/diary"_s);
    ASSERT_TRUE(QFile::link(tree.path(u"documents"_s), bundle.mediaFolderPath()));
    const OpenBundle opened(bundle);
    EXPECT_EQ(opened.store(), nullptr);
    EXPECT_EQ(opened.errorText(), u"a folder of the bundle is a link, which leads out of it"_s);
    EXPECT_TRUE(opened.libraries().isEmpty());
}

TEST_F(OpenBundleTests, AnUndoThatSomebodyElseHindersCanBeTriedAgain)
{
    import(u"Things.csv"_s, Things);
    OpenBundle opened(bundle);
    StepStack stack([&](qint64 step, StepPlayer::Direction direction) {
        const Outcome<StepEffect> played = opened.play(step, direction);
        return played ? Outcome<>() : Outcome<>(played.failure());
    });
    stack.setReadiness([&] { return opened.checkChange(); });
    ASSERT_TRUE(rename(opened, u"Things"_s, u"Eve"_s));
    stack.add(opened.lastStep()->number, opened.lastStep()->title);
    {
        const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        RecordCursor reading = other->records(*other->libraryNamed(u"Things"_s));
        ASSERT_TRUE(reading.next());
        // To begin is no problem, but to commit is.
        EXPECT_EQ(stack.undo().reason(), u"database is locked"_s);
    }
    EXPECT_EQ(stored(1, 0), u"Eve"_s);
    EXPECT_TRUE(stack.canUndo());
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_TRUE(other->beginChange());
    other->rollback();
    EXPECT_EQ(stack.undo().reason(), QString());
    EXPECT_NE(stored(1, 0), u"Eve"_s);
    EXPECT_EQ(stack.undo().reason(), QString());
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(OpenBundleTests, AnExceptionTakesAChangeBack)
{
    import(u"Things.csv"_s, Things);
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Things"_s);
    const QString key = library->fields().first()->key();
    const auto fail = [&](StepRecorder &step) -> Outcome<> {
        EXPECT_TRUE(step.update(library->definition(), 1, 0, u"half"_s));
        throw NSException(u"Test"_s, u"no"_s);
    };
    EXPECT_THROW((void)opened.change({StepKinds::Edit, {}}, fail), NSException);
    EXPECT_EQ(stored(1, 0), u"Ann"_s);
    EXPECT_THROW((void)library->change([&] {
        library->record(1)->setValueForKey(u"half"_s, key);
        throw NSException(u"Test"_s, u"no"_s);
    }),
                 NSException);
    EXPECT_EQ(library->text(*library->record(1), 0), u"Ann"_s);
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    EXPECT_EQ(other->beginChange().reason(), QString());
    other->rollback();
    EXPECT_TRUE(rename(opened, u"Things"_s, u"whole"_s));
    EXPECT_EQ(stored(1, 0), u"whole"_s);
}

TEST_F(OpenBundleTests, NoticesWhatOthersWriteWhileItFollowsAStep)
{
    import(u"Things.csv"_s, Things);
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Things"_s);
    ASSERT_TRUE(opened.change({StepKinds::Edit, {}}, [&](StepRecorder &step) -> Outcome<> {
        Library pets;
        pets.name = u"Pets"_s;
        pets.fields = library->definition().fields;
        const auto made = step.createLibrary(pets);
        return made ? step.update(library->definition(), 1, 0, u"Eve"_s) : made.failure();
    }));
    QObject::connect(library.get(), &OpenLibrary::manyChanged, library.get(), [&] {
        const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
        EXPECT_TRUE(other->update(library->definition(), 2, 0, u"theirs"_s));
    });
    ASSERT_TRUE(opened.play(opened.lastStep()->number, StepPlayer::Direction::Undo));
    EXPECT_EQ(stored(2, 0), u"theirs"_s);
    EXPECT_TRUE(rename(opened, u"Things"_s, u"Fay"_s).reason().contains(u"another program"));
    turn();
    EXPECT_TRUE(rename(opened, u"Things"_s, u"Fay"_s));
}

TEST_F(OpenBundleTests, WhoFollowsAValueMayReadOtherRecords)
{
    importMany();
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Many"_s);
    RecordIds first(900);
    std::iota(first.begin(), first.end(), 1);
    RecordIds others(2000);
    std::iota(others.begin(), others.end(), 1000);
    library->prepare(first);
    const auto record = library->record(1);
    const QString key = library->fields().first()->key();
    ValueFollower follower([&] { library->prepare(others); });
    NSKeyValueObserving::addObserver(record.get(), &follower, key, 0);
    const auto other = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(other->update(library->definition(), 1, 0, u"Eve"_s));
    ASSERT_TRUE(other->update(library->definition(), 800, 0, u"Fay"_s));
    EXPECT_TRUE(library->refresh(first));
    EXPECT_TRUE(follower.wasTold);
    EXPECT_EQ(library->text(*record, 0), u"Eve"_s);
    EXPECT_EQ(library->text(*library->record(800), 0), u"Fay"_s);
}

TEST_F(OpenBundleTests, NothingIsReadAnewUnderAnImportOrExport)
{
    import(u"Things.csv"_s, Things);
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Things"_s);
    const LibraryStore *const store = opened.store();
    int reloads = 0;
    QObject::connect(&opened, &OpenBundle::librariesChanged, &opened, [&] { ++reloads; });
    import(u"Zoo.csv"_s, "Name\nCat\n");
    // Noticed before it begins, and to be read in the next turn.
    opened.read([](LibraryStore &) {});
    opened.setBusy(true);
    turn();
    EXPECT_EQ(reloads, 0);
    EXPECT_EQ(opened.store(), store);
    EXPECT_TRUE(opened.isCurrent(library));
    opened.setBusy(false);
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(opened.libraries().size(), 2);
    turn();
    EXPECT_EQ(reloads, 1);
}
