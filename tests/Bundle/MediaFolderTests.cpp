#include <KTUtility/Bundle/MediaFolder_p.h>
#include <KTUtility/KTLogCapture>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QTranslator>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::writeFile;

namespace {
class MediaFolderTests : public testing::Test
{
protected:
    QString path(const QString &name) const { return tree.path(name); }

    FileTree tree;
    MediaFolder folder = MediaFolder(tree.path(u"Media"_s));
};
} // namespace

TEST_F(MediaFolderTests, NamesThatLeadOutOfItAreRejected)
{
    EXPECT_EQ(folder.pathOf(u"a b.jpg"_s), path(u"Media/a b.jpg"_s));
    EXPECT_EQ(folder.pathOf(u"...jpg"_s), path(u"Media/...jpg"_s));
    const QStringList rejected{QString(),
                               u""_s,
                               u"."_s,
                               u".."_s,
                               u"/"_s,
                               u"a/b"_s,
                               u"../a"_s,
                               u"/etc/passwd"_s,
                               QString(QChar(u'\0'))};
    for (const QString &name : rejected) {
        EXPECT_TRUE(folder.pathOf(name).isNull()) << name.toStdString();
        EXPECT_EQ(folder.nextInstanceNumber(name), 0) << name.toStdString();
    }
}

TEST_F(MediaFolderTests, AFolderAtNilTakesNothing)
{
    const MediaFolder nowhere{QString()};
    EXPECT_TRUE(nowhere.pathOf(u"a.jpg"_s).isNull());
    EXPECT_EQ(nowhere.nextInstanceNumber(u"a.jpg"_s), 0);
    writeFile(path(u"a.jpg"_s), "a");
    EXPECT_TRUE(nowhere.copyFile(path(u"a.jpg"_s)).isNull());
    EXPECT_TRUE(nowhere.saveTIFFImage(QImage(1, 1, QImage::Format_RGB32)).isNull());
}

TEST_F(MediaFolderTests, NumbersGoOnFromThoseThatAreTaken)
{
    EXPECT_EQ(folder.nextInstanceNumber(u"a.jpg"_s), 0);
    writeFile(path(u"Media/a.0.jpg"_s), "a");
    writeFile(path(u"Media/a.1.jpg"_s), "a");
    writeFile(path(u"Media/a.3.jpg"_s), "a");
    EXPECT_EQ(folder.nextInstanceNumber(u"a.jpg"_s), 2);
    EXPECT_EQ(folder.nextInstanceNumber(u"a.png"_s), 0);
}

TEST_F(MediaFolderTests, CopiesGetNumbers)
{
    writeFile(path(u"Media/a.0.jpg"_s), "there first");
    writeFile(path(u"from/a.jpg"_s), "mine");
    EXPECT_EQ(folder.copyFile(path(u"from/a.jpg"_s)), path(u"Media/a.1.jpg"_s));
    EXPECT_EQ(folder.copyFile(path(u"from/a.jpg"_s)), path(u"Media/a.2.jpg"_s));
    EXPECT_EQ(contentsOf(path(u"Media/a.0.jpg"_s)), "there first");
    EXPECT_EQ(contentsOf(path(u"Media/a.1.jpg"_s)), "mine");
    EXPECT_EQ(contentsOf(path(u"Media/a.2.jpg"_s)), "mine");
}

TEST_F(MediaFolderTests, WhatIsNotThereIsNotCopied)
{
    writeFile(path(u"Media/other.jpg"_s), "other");
    EXPECT_TRUE(folder.copyFile(path(u"from/a.jpg"_s)).isNull());
    EXPECT_TRUE(folder.copyFile(QString()).isNull());
    EXPECT_EQ(folder.nextInstanceNumber(u"a.jpg"_s), 0);
}

TEST_F(MediaFolderTests, NamesWithoutRoomForANumberAreNotTaken)
{
    // With ".0", 255 bytes are the longest name.
    for (const int length : {253, 254, 255}) {
        const QString name = QString(length - 4, u'x') + u".jpg";
        writeFile(path(u"from/"_s + name), "mine");
        writeFile(path(u"Media/other.jpg"_s), "other");
        EXPECT_EQ(folder.copyFile(path(u"from/"_s + name)).isNull(), length > 253) << length;
    }
    // An umlaut is two bytes.
    const QString name = QString(126, u'\u00fc') + u".j";
    writeFile(path(u"from/"_s + name), "mine");
    EXPECT_TRUE(folder.copyFile(path(u"from/"_s + name)).isNull());
}

TEST_F(MediaFolderTests, TheLogNamesTheFileOnce)
{
    const testing_support::LoopbackServer server;
    const NSURL url = *NSURL::URLWithString(server.url(u"/pic.jpg"_s));
    writeFile(path(u"Media/other.jpg"_s), "other");
    KTLogCapture capture(kLog_MediaFilenames, 4);
    const QString first = folder.download(url);
    ASSERT_EQ(capture.entries().size(), 1);
    EXPECT_EQ(capture.entries().first().lineNumber, 210);
    EXPECT_EQ(capture.entries().first().message, u"Writing file to " + first);
    // A name that only seems to be free, however often it is tried.
    QFile::link(path(u"none"_s), path(u"Media/pic.1.jpg"_s));
    EXPECT_TRUE(folder.download(url).isNull());
    ASSERT_EQ(capture.entries().size(), 3);
    EXPECT_EQ(capture.entries().at(1).lineNumber, 210);
    EXPECT_EQ(capture.entries().at(2).lineNumber, 215);
    EXPECT_FALSE(QFile::exists(path(u"none"_s)));
}

TEST_F(MediaFolderTests, OnlyPlainHTTPIsDownloaded)
{
    writeFile(path(u"Media/other.jpg"_s), "other");
    for (const char16_t *text : {u"https://localhost/a.jpg", u"HTTP://localhost/a.jpg",
                                 u"file:///a.jpg", u"http://localhost/"})
        EXPECT_TRUE(folder.download(*NSURL::URLWithString(QString::fromUtf16(text))).isNull());
}

TEST_F(MediaFolderTests, ATranslatedNameIsTheNameOfAFile)
{
    class Translator : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *, const char *sourceText, const char *, int) const override
        {
            return QByteArray(sourceText) == "iSight Picture" ? u"Bild 1/2"_s : QString();
        }
    };
    testing_support::needApplication();
    writeFile(path(u"Media/other.jpg"_s), "other");
    Translator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString saved = folder.saveTIFFImage(picture);
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(saved, path(u"Media/Bild 1-2.0.tiff"_s));
}

TEST_F(MediaFolderTests, PicturesAreSavedAsTIFF)
{
    writeFile(path(u"Media/other.jpg"_s), "other");
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString saved = folder.saveTIFFImage(picture);
    EXPECT_EQ(saved, path(u"Media/iSight Picture.0.tiff"_s));
    const QImage read(saved, "TIFF");
    EXPECT_EQ(read.size(), QSize(3, 2));
    EXPECT_EQ(read.pixelColor(2, 1), QColor(Qt::red));
    EXPECT_TRUE(folder.saveTIFFImage(QImage()).isNull());
}
