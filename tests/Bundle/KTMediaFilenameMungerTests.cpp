#include <KTUtility/Bundle/KTMediaNames_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QSet>

#include <map>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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
        {QStringLiteral("pathRelativeToDBStore:"), call<Munger::pathRelativeToDBStore>},
        {QStringLiteral("makeDBStoredNamefromOriginalFileName:"),
         call<Munger::makeDBStoredNamefromOriginalFileName>},
        {QStringLiteral("originalFileNameFromDBStoredName:"),
         call<Munger::originalFileNameFromDBStoredName>},
        {QStringLiteral("fileToLoadFromDBStoredName:"), call<Munger::fileToLoadFromDBStoredName>},
        {QStringLiteral("copyFileToDbAndReturnDBStoredName:"),
         call<Munger::copyFileToDbAndReturnDBStoredName>},
        {QStringLiteral("deleteFileByDBStoredName:"), deleted},
        {QStringLiteral("stringByRemovingExtComment:"), call<Munger::stringByRemovingExtComment>},
        {QStringLiteral("stringByAddingExtComment:inputComment:"),
         [](const QString &text, const QString &comment) {
             return valueOf(Munger::stringByAddingExtComment(text, comment));
         }},
        {QStringLiteral("nextInstanceNumberForOriginalFilename:"),
         [](const QString &text, const QString &) {
             return QJsonValue(Munger::nextInstanceNumberForOriginalFilename(text));
         }},
        {QStringLiteral("downloadHttpFileToBundleAndReturnPath:"), downloaded},
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

/// The search for a number as its rules have it, asking the file system for each.
int nextNumberStepByStep(const QString &path, QList<int> *asked)
{
    const auto isTaken = [&](int number) {
        *asked += number;
        return NSFileManager::fileExistsAtPath(
            KTMediaNames::pathByAddingExtComment(path, QString::number(number)));
    };
    int number = 0;
    for (; number <= 3; ++number) {
        if (!isTaken(number))
            return number;
    }
    int low = 0;
    for (number = 4; isTaken(number); number *= 2)
        low = number;
    int lastFree = number;
    while (!isTaken(number)) {
        lastFree = number;
        number = (low + number) / 2;
    }
    for (; number <= lastFree; ++number) {
        if (!isTaken(number))
            return number;
    }
    return -1;
}

/// A folder of copies with random gaps; each call makes another kind.
void addRandomCopies(const FileTree &tree, QRandomGenerator &random, int dense, int scattered)
{
    tree.addCopies(QStringLiteral("photo.%d.jpg"), 0, dense - 1);
    for (int count = 0; count < scattered; ++count) {
        const int number = random.bounded(2 * dense + 10);
        tree.addCopies(QStringLiteral("photo.%d.jpg"), number, number);
    }
    for (int count = random.bounded(4); count > 0; --count)
        QFile::remove(tree.path(QStringLiteral("photo.%1.jpg").arg(random.bounded(dense + 1))));
}

void expectSameSearch(const QString &path)
{
    QList<int> expectedSteps;
    const int expected = nextNumberStepByStep(path, &expectedSteps);
    QList<int> steps;
    EXPECT_EQ(KTInstanceNumbers(path).next([&](int number) { steps += number; }), expected);
    EXPECT_EQ(steps, expectedSteps);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), expected);
}
} // namespace

TEST(MediaFilenameMunger, HeaderExample)
{
    const FileTree tree;
    tree.add(QStringLiteral("photo.jpg"), "picture");
    const QString stored =
        Munger::copyFileToDbAndReturnDBStoredName(tree.path(QStringLiteral("photo.jpg")));
    EXPECT_EQ(stored, tree.path(QStringLiteral("photo.0.jpg")));
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(stored),
              tree.path(QStringLiteral("photo.jpg")));
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), stored);
    EXPECT_EQ(testing_support::contentsOf(stored), "picture");
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(stored).isNull());
}

TEST(MediaFilenameMunger, AsInTheTable)
{
    const LoopbackServer server;
    for (const QJsonObject &row : rowsOf(QStringLiteral("system/munger.jsonl"))) {
        const QString operation = row.value(QStringLiteral("op")).toString();
        SCOPED_TRACE(operation.toStdString() + ' ' +
                     QJsonValue(row.value(QStringLiteral("args")))[u"s"].toString().toStdString());
        const FileTree tree(row);
        const KTLogCapture capture(kLog_MediaFilenames, 4);
        const QJsonObject arguments = row.value(QStringLiteral("args")).toObject();
        const bool isURL = arguments.contains(QStringLiteral("url"));
        QString text = tree.inRoot(
            arguments.value(isURL ? QStringLiteral("url") : QStringLiteral("s")).toString());
        text.replace(QStringLiteral("{port}"), QString::number(server.port()));
        ASSERT_TRUE(functions().contains(operation));
        QJsonValue result =
            functions().at(operation)(text, arguments.value(QStringLiteral("comment")).toString());
        if (result.isString())
            result = tree.outOfRoot(result.toString());
        EXPECT_EQ(result, row.value(QStringLiteral("out")));
        if (row.contains(QStringLiteral("logs"))) {
            EXPECT_EQ(logsOf(capture, tree), row.value(QStringLiteral("logs")).toArray());
        }
        if (row.value(QStringLiteral("list")).toBool()) {
            EXPECT_EQ(tree.contents(), row.value(QStringLiteral("after")).toObject());
        }
    }
}

TEST(MediaFilenameMunger, StoredNameWinsOverItsVariant)
{
    const FileTree tree;
    const QString stored = tree.path(QStringLiteral("a.0.jpg"));
    const QString variant = tree.path(QStringLiteral("a.0.orig.jpg"));
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(stored).isNull());
    tree.add(QStringLiteral("a.0.orig.jpg"));
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), variant);
    tree.add(QStringLiteral("a.0.jpg"));
    EXPECT_EQ(Munger::fileToLoadFromDBStoredName(stored), stored);
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(MediaFilenameMunger, NamesLoseThreeExtensions)
{
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(QStringLiteral("a.0.jpg")),
              QStringLiteral("a.jpg"));
    EXPECT_EQ(Munger::originalFileNameFromDBStoredName(QStringLiteral("a.0.orig.jpg")),
              QStringLiteral("a.jpg"));
    EXPECT_EQ(Munger::stringByRemovingExtComment(QStringLiteral("my.photo.3.jpg")),
              QStringLiteral("my.jpg"));
}

TEST(MediaFilenameMunger, NamesWithoutExtensionGetNoDotAtTheEnd)
{
    EXPECT_EQ(Munger::stringByAddingExtComment(QStringLiteral("photo"), QStringLiteral("0")),
              QStringLiteral("photo.0"));
    EXPECT_EQ(Munger::stringByAddingExtComment(QStringLiteral(".jpg"), QStringLiteral("0")),
              QStringLiteral(".jpg.0"));
    EXPECT_TRUE(
        Munger::stringByAddingExtComment(QStringLiteral("/"), QStringLiteral("0")).isNull());
    EXPECT_TRUE(Munger::stringByAddingExtComment(QString(), QStringLiteral("0")).isNull());
    const FileTree tree;
    tree.addCopies(QStringLiteral("photo.%d"), 0, 5);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(tree.path(QStringLiteral("photo"))), 6);
}

TEST(MediaFilenameMunger, MissingSourcesAreNilAndNotLogged)
{
    const FileTree tree;
    const KTLogCapture capture(kLog_MediaFilenames);
    EXPECT_TRUE(
        Munger::copyFileToDbAndReturnDBStoredName(tree.path(QStringLiteral("none.jpg"))).isNull());
    for (const QString &message : capture.messages())
        EXPECT_FALSE(message.startsWith(u"Attempt to copy"));
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(InstanceNumbers, AreThoseOfTheSteps)
{
    QRandomGenerator random(11);
    for (int round = 0; round < 60; ++round) {
        const FileTree tree;
        addRandomCopies(tree, random, random.bounded(1, 90), random.bounded(40));
        expectSameSearch(tree.path(QStringLiteral("photo.jpg")));
    }
}

TEST(InstanceNumbers, AreThoseOfTheStepsInLargeFolders)
{
    // The copies on which the search comes to a long walk, from 10,240 up to the first gap.
    for (const int gap : {10500, 11239, 11240, 11241, 11800, 12287, 12288}) {
        const FileTree tree;
        tree.addCopies(QStringLiteral("photo.%d.jpg"), 0, 3);
        for (int number = 4; number <= 8192; number *= 2)
            tree.addCopies(QStringLiteral("photo.%d.jpg"), number, number);
        tree.addCopies(QStringLiteral("photo.%d.jpg"), 10240, gap - 1);
        tree.addCopies(QStringLiteral("photo.%d.jpg"), gap + 1, std::min(gap + 20, 12287));
        tree.addCopies(QStringLiteral("photo.0%d.jpg"), gap, gap);
        tree.addCopies(QStringLiteral("photo.%d.jpg.jpg"), gap, gap);
        tree.addCopies(QStringLiteral("other.%d.jpg"), gap, gap);
        QFile::link(tree.path(QStringLiteral("nowhere")),
                    tree.path(QStringLiteral("photo.%1.jpg").arg(gap)));
        expectSameSearch(tree.path(QStringLiteral("photo.jpg")));
        expectSameSearch(tree.path(QStringLiteral("photo.jpg")) + u'/');
        expectSameSearch(tree.path(QStringLiteral("none/../photo.jpg")));
        QFile::link(tree.path(QStringLiteral("photo.0.jpg")),
                    tree.path(QStringLiteral("photo.%1.jpg").arg(gap + 100)));
        expectSameSearch(tree.path(QStringLiteral("photo.jpg")));
    }
}

TEST(InstanceNumbers, GapsBelowAreNotReused)
{
    const FileTree tree;
    tree.addCopies(QStringLiteral("a.%d.jpg"), 0, 8);
    QFile::remove(tree.path(QStringLiteral("a.5.jpg")));
    QList<int> asked;
    EXPECT_EQ(KTInstanceNumbers(tree.path(QStringLiteral("a.jpg"))).next([&](int number) {
        asked += number;
    }),
              9);
    EXPECT_EQ(asked, QList<int>({0, 1, 2, 3, 4, 8, 16, 16, 12, 10, 9, 8, 8, 9}));
}

TEST(InstanceNumbers, LinksCountIfTheyLeadSomewhere)
{
    const FileTree tree;
    QFile::link(tree.path(QStringLiteral("nowhere")), tree.path(QStringLiteral("a.0.jpg")));
    const QString path = tree.path(QStringLiteral("a.jpg"));
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), 0);
    tree.add(QStringLiteral("nowhere"));
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), 1);
}

TEST(InstanceNumbers, NumbersEndBeforeTheyOverflow)
{
    const FileTree tree;
    tree.addCopies(QStringLiteral("a.%d.jpg"), 0, 3);
    for (int number = 4; number > 0 && number <= 1 << 30; number += number < 1 << 30 ? number : 1)
        tree.addCopies(QStringLiteral("a.%d.jpg"), number, number);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(tree.path(QStringLiteral("a.jpg"))),
              -1);
}

TEST(MediaFilenameMunger, ADanglingLinkIsNotWrittenThrough)
{
    const FileTree tree;
    tree.add(QStringLiteral("a.jpg"), "mine");
    QFile::link(tree.path(QStringLiteral("elsewhere")), tree.path(QStringLiteral("a.0.jpg")));
    EXPECT_TRUE(
        Munger::copyFileToDbAndReturnDBStoredName(tree.path(QStringLiteral("a.jpg"))).isNull());
    EXPECT_EQ(QDir(tree.root())
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
              QStringList({QStringLiteral("a.0.jpg"), QStringLiteral("a.jpg")}));
}

TEST(MediaFilenameMunger, PathsThatNameNoFileAreLeftAlone)
{
    const FileTree tree;
    tree.add(QStringLiteral("sub/a.0.jpg"));
    const QJsonObject before = tree.contents();
    for (const QString &name :
         {QStringLiteral("sub/.."), QStringLiteral("sub/."), QStringLiteral("sub/a.0.jpg/../..")}) {
        const QString path = tree.path(name);
        Munger::deleteFileByDBStoredName(path);
        EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(path).isNull());
        EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(path).isNull());
    }
    Munger::deleteFileByDBStoredName(QStringLiteral(""));
    EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(QStringLiteral("/")).isNull());
    EXPECT_EQ(tree.contents(), before);
}

TEST(MediaFilenameMunger, FoldersAreCopiedAndDeletedWhole)
{
    const FileTree tree;
    tree.add(QStringLiteral("notes.rtfd/text.rtf"), "text");
    tree.add(QStringLiteral("notes.rtfd/deep/er/a.png"), "a");
    const QString stored =
        Munger::copyFileToDbAndReturnDBStoredName(tree.path(QStringLiteral("notes.rtfd")));
    EXPECT_EQ(stored, tree.path(QStringLiteral("notes.0.rtfd")));
    EXPECT_EQ(testing_support::contentsOf(stored + QStringLiteral("/deep/er/a.png")), "a");
    Munger::deleteFileByDBStoredName(stored);
    EXPECT_FALSE(QFile::exists(stored));
    EXPECT_TRUE(QFile::exists(tree.path(QStringLiteral("notes.rtfd/text.rtf"))));
}

TEST(MediaFilenameMunger, DownloadsFailWithALogLine)
{
    const LoopbackServer server([](int, const QByteArray &) {});
    const FileTree tree(QJsonObject{{QStringLiteral("cwd"), true}});
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    const auto url = NSURL::URLWithString(server.url(QStringLiteral("/a.jpg")));
    EXPECT_TRUE(Munger::downloadHttpFileToBundleAndReturnPath(*url).isNull());
    ASSERT_EQ(capture.entries().size(), 1);
    EXPECT_EQ(capture.entries().first().message,
              u"Download of file " + url->absoluteString() + u" failed.");
    EXPECT_EQ(capture.entries().first().lineNumber, 173);
    EXPECT_TRUE(tree.contents().isEmpty());
}

TEST(MediaFilenameMunger, TwoProcessesNeverTakeOneName)
{
    constexpr int Copies = 200;
    const FileTree tree;
    tree.add(QStringLiteral("a.jpg"), "picture");
    const QString source = tree.path(QStringLiteral("a.jpg"));
    const auto store = [&source] {
        int stored = 0;
        for (int count = 0; count < Copies; ++count)
            stored += Munger::copyFileToDbAndReturnDBStoredName(source).isNull() ? 0 : 1;
        return stored == Copies ? 0 : 1;
    };
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(store());
    EXPECT_EQ(store(), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(tree.contents().size(), 2 * Copies + 1);
}

TEST(MediaFilenameMunger, HostileTextsGetAnAnswer)
{
    const FileTree tree(QJsonObject{{QStringLiteral("cwd"), true}});
    tree.add(QStringLiteral("kept"));
    for (const QString &text : testing_support::hostileTexts()) {
        EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(text), 0);
        EXPECT_TRUE(Munger::fileToLoadFromDBStoredName(text).isNull());
        EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(text).isNull());
        Munger::deleteFileByDBStoredName(text);
        EXPECT_LE(Munger::stringByRemovingExtComment(text).size(), text.size());
    }
    EXPECT_EQ(tree.contents().keys(), QStringList(QStringLiteral("kept")));
}

TEST(MediaFilenameMunger, NamesThatAreTooLongAreNil)
{
    const FileTree tree;
    const QString longest = QString(251, u'x') + QStringLiteral(".jpg");
    tree.add(longest);
    EXPECT_TRUE(Munger::copyFileToDbAndReturnDBStoredName(tree.path(longest)).isNull());
    EXPECT_EQ(tree.contents().size(), 1);
}
