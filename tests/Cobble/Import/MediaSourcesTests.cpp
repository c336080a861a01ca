#include "Import/MediaSources.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using testing_support::FileTree;
using testing_support::writeFile;

namespace {
/// A folder "sent" with an imported file, and others that are nobody else's business.
class MediaSourcesTests : public testing::Test
{
protected:
    MediaSourcesTests() : home(testing_support::useFreshHome())
    {
        for (const QString &name : {u"sent/photo.png"_s, u"sent/.netrc"_s, u"sent/inner/a.png"_s,
                                    u"private/key"_s, u"extracted/Photo 1.png"_s})
            tree.add(name);
        sources = MediaSources(tree.path(u"sent"_s));
        writeFile(home + u"/.ssh/id_rsa", "key");
        link(u"private/key"_s, u"sent/key.png"_s);
        link(u"private"_s, u"sent/folder"_s);
        link(u"sent/photo.png"_s, u"sent/same.png"_s);
        link(u"sent/.netrc"_s, u"sent/netrc.png"_s);
        link(u"nowhere"_s, u"sent/nothing.png"_s);
    }

    void link(const QString &to, const QString &at) const
    {
        ASSERT_TRUE(QFile::link(tree.path(to), tree.path(at)));
    }
    QString fileURL(const QString &name) const { return u"file://"_s + tree.path(name); }

    /// What may not be taken unless the column is trusted.
    QStringList textsFromElsewhere() const
    {
        return {u"~/.ssh/id_rsa"_s,
                u"/etc/passwd"_s,
                tree.path(u"private/key"_s),
                fileURL(u"private/key"_s),
                u"../private/key"_s,
                u"inner/../../private/key"_s,
                u"inner/a.png"_s,
                u"key.png"_s,
                u"folder/key"_s,
                u".netrc"_s,
                u"./.netrc"_s,
                u"netrc.png"_s,
                u"file:///usr/share"_s,
                u"FILE:///etc/passwd"_s,
                u"file:///etc/passwd%00"_s,
                u"http://127.0.0.1/reboot.jpg"_s,
                u".."_s,
                u"/"_s};
    }

    FileTree tree;
    QString home;
    MediaSources sources;
};
} // namespace

TEST_F(MediaSourcesTests, TextsBringNothingFromElsewhere)
{
    for (const QString &text : textsFromElsewhere()) {
        EXPECT_FALSE(sources.isObvious(text)) << text.toStdString();
        EXPECT_EQ(sources.urlIn(0, text).reason(),
                  u"it is not beside the file; only columns that are named as media may lead "
                  "elsewhere"_s)
            << text.toStdString();
    }
}

TEST_F(MediaSourcesTests, ColumnsThatAreNamedMayLeadAnywhere)
{
    sources.trust(1);
    for (const QString &text : textsFromElsewhere()) {
        EXPECT_TRUE(sources.urlIn(1, text)) << text.toStdString();
        EXPECT_FALSE(sources.urlIn(0, text)) << text.toStdString();
        // That some column is trusted makes no other one media.
        EXPECT_FALSE(sources.isObvious(text)) << text.toStdString();
    }
    EXPECT_EQ(sources.urlIn(1, u"https://example.org/a.png"_s).reason(), u"it names no file"_s);
}

TEST_F(MediaSourcesTests, WhatLiesBesideTheFileIsTaken)
{
    for (const QString &text : {u"photo.png"_s, u"./photo.png"_s, u" photo.png "_s, u"same.png"_s,
                                tree.path(u"sent/photo.png"_s), fileURL(u"sent/photo.png"_s)}) {
        EXPECT_TRUE(sources.isObvious(text)) << text.toStdString();
        EXPECT_TRUE(sources.urlIn(0, text)) << text.toStdString();
    }
    EXPECT_EQ(sources.urlIn(0, u"photo.png"_s)->path(), tree.path(u"sent/photo.png"_s));
    EXPECT_TRUE(sources.isObvious(u"cobblemedia://a.0.png"_s));
    EXPECT_TRUE(sources.urlIn(0, u"cobblemedia://a.0.png"_s));
}

TEST_F(MediaSourcesTests, FilesThatAreMissingAreNotObviousMedia)
{
    for (const QString &text : {u"other.png"_s, u"Ann"_s, u"nothing.png"_s}) {
        EXPECT_FALSE(sources.isObvious(text)) << text.toStdString();
        const auto url = sources.urlIn(0, text);
        ASSERT_TRUE(url) << text.toStdString();
        EXPECT_EQ(MediaSources::check(url->path()).reason(), u"there is no such file"_s);
    }
    EXPECT_FALSE(sources.isObvious(QString()));
    EXPECT_FALSE(sources.isObvious(u"inner"_s));
}

TEST_F(MediaSourcesTests, WhatAnImporterHasTakenOutIsPartOfTheFile)
{
    const QString picture = tree.path(u"extracted/Photo 1.png"_s);
    EXPECT_FALSE(sources.urlIn(0, picture));
    sources.addFolder(tree.path(u"extracted"_s));
    EXPECT_TRUE(sources.urlIn(0, picture));
    EXPECT_FALSE(sources.urlIn(0, tree.path(u"private/key"_s)));
}

TEST_F(MediaSourcesTests, WithoutAFolderNothingIsBeside)
{
    EXPECT_FALSE(MediaSources().isObvious(tree.path(u"sent/photo.png"_s)));
    EXPECT_FALSE(MediaSources(tree.path(u"none"_s)).isObvious(u"photo.png"_s));
}

TEST_F(MediaSourcesTests, HostileTextsAreNotObvious)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(sources.isObvious(text));
}

TEST_F(MediaSourcesTests, SaysWhatCannotBeCopied)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(tree.path(u"pipe"_s)).constData(), 0600), 0);
    QFile largest(tree.path(u"largest"_s));
    ASSERT_TRUE(largest.open(QIODevice::WriteOnly) && largest.resize(MediaSources::LargestFile));
    QFile larger(tree.path(u"larger"_s));
    ASSERT_TRUE(larger.open(QIODevice::WriteOnly) && larger.resize(MediaSources::LargestFile + 1));
    const struct
    {
        QString path;
        QString reason;
    } rows[] = {
        {tree.path(u"none"_s), u"there is no such file"_s},
        {tree.path(u"sent"_s), u"it is a folder"_s},
        {tree.path(u"pipe"_s), u"it is no file"_s},
        {u"/dev/null"_s, u"it is no file"_s},
        {QString(tree.path(u"sent/photo.png"_s) + QChar(u'\0')), u"there is no such file"_s},
        {tree.path(u"largest"_s), QString()},
        {tree.path(u"larger"_s), u"it is larger than 256 MB"_s},
        {tree.path(u"sent/photo.png"_s), QString()},
        {QString(), u"there is no such file"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(MediaSources::check(row.path).reason(), row.reason) << row.path.toStdString();
}

TEST_F(MediaSourcesTests, OnlyCopiesHaveALimit)
{
    QFile larger(tree.path(u"larger"_s));
    ASSERT_TRUE(larger.open(QIODevice::WriteOnly) && larger.resize(MediaSources::LargestFile + 1));
    EXPECT_TRUE(MediaSources::checkFile(larger.fileName()));
    EXPECT_EQ(MediaSources::checkFile(tree.path(u"sent"_s)).reason(), u"it is a folder"_s);
}

TEST_F(MediaSourcesTests, NamesAreMeasuredInBytes)
{
    EXPECT_TRUE(MediaSources::checkName(QString(255, u'x')));
    EXPECT_TRUE(MediaSources::checkName(QString(127, u'ä')));
    for (const QString &name : {QString(256, u'x'), QString(128, u'ä')})
        EXPECT_EQ(MediaSources::checkName(name).reason(), u"its name is too long"_s);
}
