#include <KTUtility/Bundle/KTInstanceNumbers_p.h>
#include <KTUtility/Bundle/KTMediaNames_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTMediaFilenameMunger>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QJsonArray>

#include <map>

using namespace Qt::StringLiterals;

using Munger = KTMediaFilenameMunger;
using testing_support::FileTree;
using testing_support::LoopbackServer;
using testing_support::rowsOf;

namespace {
using Function = QJsonValue (*)(const QString &text, const QString &comment);

QJsonValue valueOf(const QString &text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

QJsonValue downloaded(const QString &url, const QString &)
{
    return valueOf(Munger::downloadHttpFileToBundleAndReturnPath(*NSURL::URLWithString(url)));
}

QJsonValue deleted(const QString &name, const QString &)
{
    Munger::deleteFileByDBStoredName(name);
    return {};
}

template<QString (*Method)(const QString &)>
QJsonValue call(const QString &text, const QString &)
{
    return valueOf(Method(text));
}

const std::map<QString, Function> &functions()
{
    static const std::map<QString, Function> table = {
        {u"pathRelativeToDBStore:"_s, call<Munger::pathRelativeToDBStore>},
        {u"makeDBStoredNamefromOriginalFileName:"_s,
         call<Munger::makeDBStoredNamefromOriginalFileName>},
        {u"originalFileNameFromDBStoredName:"_s, call<Munger::originalFileNameFromDBStoredName>},
        {u"fileToLoadFromDBStoredName:"_s, call<Munger::fileToLoadFromDBStoredName>},
        {u"copyFileToDbAndReturnDBStoredName:"_s, call<Munger::copyFileToDbAndReturnDBStoredName>},
        {u"deleteFileByDBStoredName:"_s, deleted},
        {u"stringByRemovingExtComment:"_s, call<Munger::stringByRemovingExtComment>},
        {u"stringByAddingExtComment:inputComment:"_s,
         [](const QString &text, const QString &comment) {
             return valueOf(Munger::stringByAddingExtComment(text, comment));
         }},
        {u"nextInstanceNumberForOriginalFilename:"_s,
         [](const QString &text, const QString &) {
             return QJsonValue(Munger::nextInstanceNumberForOriginalFilename(text));
         }},
        {u"downloadHttpFileToBundleAndReturnPath:"_s, downloaded},
    };
    return table;
}

QJsonArray logsOf(const KTLogCapture &capture, const FileTree &tree)
{
    QJsonArray logs;
    for (const KTLogCapture::Entry &entry : capture.entries())
        logs += QJsonArray{entry.component, entry.level, entry.lineNumber,
                           tree.outOfRoot(entry.message)};
    return logs;
}
} // namespace

TEST(KTMediaFilenameMunger, RunsItsExample)
{
    const FileTree tree;
    tree.add(u"photo.jpg"_s, "picture");
    const QString stored = Munger::copyFileToDbAndReturnDBStoredName(tree.path(u"photo.jpg"_s));
    EXPECT_EQ(stored, tree.path(u"photo.0.jpg"_s));
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(stored), tree.path(u"photo.jpg"_s));
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), stored);
    EXPECT_EQ(testing_support::contentsOf(stored), "picture");
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(stored).isNull());
}

TEST(KTMediaFilenameMunger, AnswersWhatTheTableSays)
{
    const LoopbackServer server;
    for (const QJsonObject &row : rowsOf(u"system/munger.jsonl"_s)) {
        const QString operation = row.value(u"op"_s).toString();
        SCOPED_TRACE(operation.toStdString() + ' ' +
                     QJsonValue(row.value(u"args"_s))[u"s"].toString().toStdString());
        const FileTree tree(row);
        const KTLogCapture capture(kLog_MediaFilenames, 4);
        const QJsonObject arguments = row.value(u"args"_s).toObject();
        const bool isURL = arguments.contains(u"url"_s);
        QString text = tree.inRoot(arguments.value(isURL ? u"url"_s : u"s"_s).toString());
        text.replace(u"{port}"_s, QString::number(server.port()));
        ASSERT_TRUE(functions().contains(operation));
        QJsonValue result =
            functions().at(operation)(text, arguments.value(u"comment"_s).toString());
        if (result.isString())
            result = tree.outOfRoot(result.toString());
        EXPECT_EQ(result, row.value(u"out"_s));
        if (row.contains(u"logs"_s)) {
            EXPECT_EQ(logsOf(capture, tree), row.value(u"logs"_s).toArray());
        }
        if (row.value(u"list"_s).toBool()) {
            EXPECT_EQ(tree.contents(), row.value(u"after"_s).toObject());
        }
    }
}

TEST(KTMediaFilenameMunger, StoredNameWinsOverItsVariant)
{
    const FileTree tree;
    const QString stored = tree.path(u"a.0.jpg"_s);
    const QString variant = tree.path(u"a.0.orig.jpg"_s);
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(stored).isNull());
    tree.add(u"a.0.orig.jpg"_s);
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), variant);
    tree.add(u"a.0.jpg"_s);
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), stored);
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(KTMediaFilenameMunger, NamesLoseThreeExtensions)
{
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(u"a.0.jpg"_s), u"a.jpg"_s);
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(u"a.0.orig.jpg"_s), u"a.jpg"_s);
    EXPECT_EQ(Munger::stringByRemovingExtComment(u"my.photo.3.jpg"_s), u"my.jpg"_s);
}

TEST(KTMediaFilenameMunger, NamesWithoutExtensionGetNoDotAtTheEnd)
{
    EXPECT_EQ(Munger::stringByAddingExtComment(u"photo"_s, u"0"_s), u"photo.0"_s);
    EXPECT_EQ(Munger::stringByAddingExtComment(u".jpg"_s, u"0"_s), u".jpg.0"_s);
    EXPECT_TRUE(Munger::stringByAddingExtComment(u"/"_s, u"0"_s).isNull());
    EXPECT_TRUE(Munger::stringByAddingExtComment(QString(), u"0"_s).isNull());
    const FileTree tree;
    tree.addCopies(u"photo.%d"_s, 0, 5);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(tree.path(u"photo"_s)), 6);
}

TEST(KTMediaFilenameMunger, MissingSourcesAreNilAndNotLogged)
{
    const FileTree tree;
    const KTLogCapture capture(kLog_MediaFilenames);
    EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(tree.path(u"none.jpg"_s)).isNull());
    for (const QString &message : capture.messages())
        EXPECT_FALSE(message.startsWith(u"Attempt to copy"));
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(KTMediaFilenameMunger, ADanglingLinkIsNotWrittenThrough)
{
    const FileTree tree;
    tree.add(u"a.jpg"_s, "mine");
    QFile::link(tree.path(u"elsewhere"_s), tree.path(u"a.0.jpg"_s));
    EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(tree.path(u"a.jpg"_s)).isNull());
    EXPECT_EQ(QDir(tree.root())
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
              QStringList({u"a.0.jpg"_s, u"a.jpg"_s}));
}

TEST(KTMediaFilenameMunger, PathsThatNameNoFileAreLeftAlone)
{
    const FileTree tree;
    tree.add(u"sub/a.0.jpg"_s);
    const QJsonObject before = tree.contents();
    for (const QString &name : {u"sub/.."_s, u"sub/."_s, u"sub/a.0.jpg/../.."_s}) {
        const QString path = tree.path(name);
        Munger::deleteFileByDBStoredName(path);
        EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(path).isNull());
        EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(path).isNull());
    }
    Munger::deleteFileByDBStoredName(u""_s);
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(u"/"_s).isNull());
    EXPECT_EQ(tree.contents(), before);
}

TEST(KTMediaFilenameMunger, FoldersAreCopiedAndDeletedWhole)
{
    const FileTree tree;
    tree.add(u"notes.rtfd/text.rtf"_s, "text");
    tree.add(u"notes.rtfd/deep/er/a.png"_s, "a");
    const QString stored = Munger::copyFileToDbAndReturnDBStoredName(tree.path(u"notes.rtfd"_s));
    EXPECT_EQ(stored, tree.path(u"notes.0.rtfd"_s));
    EXPECT_EQ(testing_support::contentsOf(stored + u"/deep/er/a.png"_s), "a");
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_FALSE(QFile::exists(stored));
    EXPECT_TRUE(QFile::exists(tree.path(u"notes.rtfd/text.rtf"_s)));
}

TEST(KTMediaFilenameMunger, DownloadsFailWithALogLine)
{
    const LoopbackServer server([](int, const QByteArray &) {});
    const FileTree tree(QJsonObject{{u"cwd"_s, true}});
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    const auto url = NSURL::URLWithString(server.url(u"/a.jpg"_s));
    EXPECT_TRUE(Munger::downloadHttpFileToBundleAndReturnPath(*url).isNull());
    ASSERT_EQ(capture.entries().size(), 1);
    EXPECT_EQ(capture.entries().first().message,
              u"Download of file " + url->absoluteString() + u" failed.");
    EXPECT_EQ(capture.entries().first().lineNumber, 173);
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(KTMediaFilenameMunger, TwoProcessesNeverTakeOneName)
{
    constexpr int Copies = 200;
    const FileTree tree;
    tree.add(u"a.jpg"_s, "picture");
    const QString source = tree.path(u"a.jpg"_s);
    const auto store = [&source] {
        int stored = 0;
        for (int count = 0; count < Copies; ++count)
            stored += Munger::copyFileToDbAndReturnDBStoredName(source).isNull() ? 0 : 1;
        return stored == Copies ? 0 : 1;
    };
    const testing_support::OtherProcess other(store);
    EXPECT_EQ(store(), 0);
    EXPECT_EQ(other.exitCode(), 0);
    EXPECT_EQ(tree.contents().size(), 2 * Copies + 1);
}

TEST(KTMediaFilenameMunger, HostileTextsGetAnAnswer)
{
    const FileTree tree(QJsonObject{{u"cwd"_s, true}});
    tree.add(u"kept"_s);
    for (const QString &text : testing_support::hostileTexts()) {
        EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(text), 0);
        EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(text).isNull());
        EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(text).isNull());
        Munger::deleteFileByDBStoredName(text);
        EXPECT_LE(Munger::stringByRemovingExtComment(text).size(), text.size());
    }
    EXPECT_EQ(tree.contents().keys(), QStringList(u"kept"_s));
}

TEST(KTMediaFilenameMunger, NamesThatAreTooLongAreNil)
{
    const FileTree tree;
    const QString longest = QString(251, u'x') + u".jpg"_s;
    tree.add(longest);
    EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(tree.path(longest)).isNull());
    EXPECT_EQ(tree.contents().size(), 1);
}
