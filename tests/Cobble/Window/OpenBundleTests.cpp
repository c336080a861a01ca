#include "Window/OpenBundle.h"

#include "../Library/InterruptedChange.h"
#include "WindowSupport.h"

#include "Window/OpenLibrary.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
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
        return opened.change([&] { return opened.store()->update(*found, 1, 0, name); });
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
    EXPECT_EQ((*library)->text(*(*library)->records().first().value<StoredRecord *>(), 0),
              u"somebody 0"_s);
    EXPECT_EQ(tree.contents(), before);
    // What was shown is a copy, behind which others may have written.
    EXPECT_TRUE(rename(opened, u"Many"_s, u"Eve"_s).reason().contains(u"another program"));
    turn();
    EXPECT_TRUE(rename(opened, u"Many"_s, u"Eve"_s));
    EXPECT_EQ(stored(1, 0, u"Many"_s), u"Eve"_s);
    EXPECT_EQ(stored(2, 0, u"Many"_s), u"somebody 1"_s);
}

TEST_F(OpenBundleTests, RecordsTakeNoFilesOfOtherFoldersAlong)
{
    tree.add(u"a.png"_s, "picture");
    tree.add(u"Pictures.csv"_s, "Name,Photo\nAnn,a.png\nBob,a.png\n");
    ASSERT_EQ(runInProcess({u"import"_s, tree.path(u"Pictures.csv"_s), u"--media"_s, u"Photo"_s,
                            u"--bundle"_s, bundle.bundlePath()})
                  .exitCode,
              0);
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Pictures"_s);
    const auto removeFirst = [&library] {
        return library->removeRecords({library->records().first().value<StoredRecord *>()});
    };
    EXPECT_TRUE(removeFirst());
    const QStringList left = QDir(bundle.mediaFolderPath()).entryList(QDir::Files);
    ASSERT_EQ(left.size(), 1);
    // The folder has become one of the user's, where a file happens to have the name.
    const QString documents = tree.path(u"documents"_s);
    ASSERT_TRUE(QFile::rename(bundle.mediaFolderPath(), documents));
    ASSERT_TRUE(QFile::link(documents, bundle.mediaFolderPath()));
    const Outcome<> removed = removeFirst();
    EXPECT_EQ(QDir(documents).entryList(QDir::Files), left);
    EXPECT_TRUE(removed) << removed.reason().toStdString();
}

TEST_F(OpenBundleTests, RecordsLeaveFilesThatATextElsewhereNames)
{
    tree.add(u"a.png"_s, "picture");
    tree.add(u"Pictures.csv"_s, "Name,Photo\nAnn,a.png\nBob,a.png\n");
    tree.add(u"Notes.csv"_s, "Note\ncobblemedia://a.0.png\none\ntwo\n");
    for (const QString &name : {u"Pictures.csv"_s, u"Notes.csv"_s})
        ASSERT_EQ(runInProcess({u"import"_s, tree.path(name), u"--bundle"_s, bundle.bundlePath()})
                      .exitCode,
                  0);
    OpenBundle opened(bundle);
    const auto library = *opened.open(u"Pictures"_s);
    for (int count = 0; count < 2; ++count)
        ASSERT_TRUE(library->removeRecords({library->records().first().value<StoredRecord *>()}));
    EXPECT_EQ(QDir(bundle.mediaFolderPath()).entryList(QDir::Files), QStringList(u"a.0.png"_s));
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
