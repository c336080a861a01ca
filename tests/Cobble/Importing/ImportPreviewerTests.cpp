#include "Importing/ImportPreviewer.h"

#include "support/FileTree.h"
#include "support/NoThreads.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
class ImportPreviewerTests : public testing::Test
{
protected:
    ImportPreviewerTests()
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        QObject::connect(&previewer, &ImportPreviewer::shown, &previewer,
                         [this](const ImportPreview &preview) {
                             headers += preview.file.rows->headers().join(u'|');
                         });
        QObject::connect(&previewer, &ImportPreviewer::failed, &previewer,
                         [this](const QString &reason) { reasons += reason; });
    }

    ImportRequest requestFor(const QString &name, const QByteArray &contents) const
    {
        tree.add(name, contents);
        ImportRequest request;
        request.path = tree.path(name);
        request.libraryName = name;
        request.bundle = KTDatabaseBundle(tree.path(u"b.cobbledb"_s));
        return request;
    }
    void wait()
    {
        while (previewer.isBusy())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    FileTree tree;
    ImportPreviewer previewer;
    QStringList headers;
    QStringList reasons;
};
} // namespace

TEST_F(ImportPreviewerTests, ShowsWhatIsAskedFor)
{
    previewer.show(requestFor(u"a.csv"_s, "a,b\n1,2\n"));
    EXPECT_TRUE(previewer.isBusy());
    wait();
    EXPECT_EQ(headers, QStringList(u"a|b"_s));
    EXPECT_EQ(reasons, QStringList());
}

TEST_F(ImportPreviewerTests, ShowsOnlyTheLastOfSeveral)
{
    previewer.show(requestFor(u"a.csv"_s, "a\n" + QByteArray("1\n").repeated(200'000)));
    previewer.show(requestFor(u"b.csv"_s, "b\n1\n"));
    previewer.show(requestFor(u"c.csv"_s, "c\n1\n"));
    wait();
    EXPECT_EQ(headers, QStringList(u"c"_s));
}

TEST_F(ImportPreviewerTests, WhatIsStoppedIsNotShown)
{
    previewer.show(requestFor(u"a.csv"_s, "a\n1\n"));
    previewer.stop();
    wait();
    EXPECT_EQ(headers + reasons, QStringList());
}

TEST_F(ImportPreviewerTests, TellsWhyThereIsNone)
{
    previewer.show(requestFor(u"a.csv"_s, ""));
    wait();
    EXPECT_EQ(reasons, QStringList(u"the file is empty"_s));
}

TEST_F(ImportPreviewerTests, MayGoWhileItWorks)
{
    {
        ImportPreviewer other;
        other.show(requestFor(u"a.csv"_s, "a\n" + QByteArray("1\n").repeated(200'000)));
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(headers + reasons, QStringList());
}

TEST_F(ImportPreviewerTests, TellsThatNoThreadStarts)
{
    {
        const testing_support::NoThreads none;
        previewer.show(requestFor(u"a.csv"_s, "a\n1\n"));
        EXPECT_FALSE(previewer.isBusy());
    }
    ASSERT_EQ(reasons.size(), 1);
    EXPECT_FALSE(reasons.first().isEmpty());
    previewer.show(requestFor(u"b.csv"_s, "b\n1\n"));
    wait();
    EXPECT_EQ(headers, QStringList(u"b"_s));
}

TEST_F(ImportPreviewerTests, NobodyWaitsForAPipe)
{
    for (const QString &name : {u"pipe.csv"_s, u"pipe.vcf"_s, u"pipe"_s}) {
        ImportRequest request = requestFor(u"a.csv"_s, "a\n1\n");
        request.path = tree.path(name);
        request.takesPipes = false;
        ASSERT_EQ(::mkfifo(request.path.toLocal8Bit().constData(), 0600), 0);
        previewer.show(request);
        wait();
    }
    EXPECT_EQ(reasons, QStringList(3, u"is a pipe or a device, not a file"_s));
}
