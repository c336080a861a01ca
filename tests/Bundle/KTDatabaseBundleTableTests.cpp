// The table of what a bundle answers to paths, names, URLs and files.

#include <KTUtility/Bundle/KTInstanceNumbers_p.h>
#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTLogCapture>
#include <KTUtility/NSPathUtilities>
#include <KTUtility/NSUserDefaults>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

#include <map>

using namespace Qt::StringLiterals;

using testing_support::FileTree;
using testing_support::LoopbackServer;
using testing_support::rowsOf;

namespace {
/// An application's bundle with a name of its own.
class RenamedBundle : public KTDatabaseBundle
{
public:
    using KTDatabaseBundle::KTDatabaseBundle;
    static QString factoryDefaultDatabaseBundleName() { return u"custom"_s; }
};

struct Call
{
    const FileTree &tree;
    KTDatabaseBundle bundle;
    QJsonObject arguments;
    QString text;

    NSURL url() const
    {
        return arguments.value(u"file").toBool() ? *NSURL::fileURLWithPath(text)
                                                 : *NSURL::URLWithString(text);
    }
    bool isSubclass() const { return arguments.value(u"subclass").toBool(); }
};

QJsonValue valueOf(const QString &text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

QJsonValue valueOf(const std::optional<NSURL> &url)
{
    return url ? QJsonValue(url->absoluteString()) : QJsonValue();
}

QJsonValue supportFolder(const Call &call)
{
    const QString support = call.arguments.value(u"support").toString(u"{root}"_s);
    qputenv("XDG_DATA_HOME", call.tree.inRoot(support).toUtf8());
    return KTDatabaseBundle::cobbleSupportFolder();
}

QJsonValue thereAndBack(const Call &call)
{
    const auto url = call.bundle.mediaUrlFromFilePath(call.text);
    return QJsonArray{valueOf(url), call.bundle.filePathFromMediaUrl(*url)};
}

QJsonValue paths(const Call &call)
{
    const auto bundle =
        KTDatabaseBundle::databaseBundleWithBundlePath(call.arguments.value(u"bundle").toString());
    return QJsonArray{bundle.bundlePath(), bundle.databaseFilePath(), bundle.mediaFolderPath(),
                      KTDatabaseBundle::databaseBundleFileType()};
}

/// The number, after a look at the steps that led to it.
QJsonValue nextNumber(const Call &call)
{
    QJsonArray steps;
    KTInstanceNumbers(call.bundle.mediaFolderPath() + u'/' + NSString::lastPathComponent(call.text))
        .next([&steps](int number) { steps += number; });
    const int number = call.bundle.nextInstanceNumberForFilePath(call.text);
    return QJsonArray{number, steps};
}

QJsonValue savedPicture(const Call &call)
{
    testing_support::needApplication();
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString path = call.bundle.saveTIFFImageToMediaFolderAndReturnMediaPath(image);
    if (!path.isNull()) {
        const QImage saved(path);
        EXPECT_EQ(saved.pixelColor(1, 1), QColor(Qt::red));
        // The table has no real pictures.
        testing_support::writeFile(path, "tiff");
    }
    return valueOf(path);
}

template<typename Result>
QJsonValue jsonOf(const Result &result)
{
    if constexpr (std::is_same_v<Result, bool>)
        return result;
    else
        return valueOf(result);
}

template<auto Method>
QJsonValue withText(const Call &call)
{
    return jsonOf((call.bundle.*Method)(call.text));
}

template<auto Method>
QJsonValue withURL(const Call &call)
{
    return jsonOf((call.bundle.*Method)(call.url()));
}

template<auto Factory, auto SubclassFactory>
QJsonValue bundlePath(const Call &call)
{
    supportFolder(call);
    return call.isSubclass() ? SubclassFactory().bundlePath() : Factory().bundlePath();
}

using Function = QJsonValue (*)(const Call &);
using Bundle = KTDatabaseBundle;

const std::map<QString, Function> &functions()
{
    static const std::map<QString, Function> table = {
        {u"_ensureDirectoryExistsAtPath:"_s,
         [](const Call &call) {
             return QJsonValue(Bundle::_ensureDirectoryExistsAtPath(call.text));
         }},
        {u"cobbleSupportFolder"_s, supportFolder},
        {u"factoryDefaultDatabaseBundle"_s,
         bundlePath<Bundle::factoryDefaultDatabaseBundle<>,
                    Bundle::factoryDefaultDatabaseBundle<RenamedBundle>>},
        {u"defaultDatabaseBundleForDeployment"_s,
         bundlePath<Bundle::defaultDatabaseBundleForDeployment<>,
                    Bundle::defaultDatabaseBundleForDeployment<RenamedBundle>>},
        {u"defaultDatabaseBundle"_s,
         bundlePath<Bundle::defaultDatabaseBundle<>, Bundle::defaultDatabaseBundle<RenamedBundle>>},
        {u"paths"_s, paths},
        {u"doesExist"_s, [](const Call &call) { return QJsonValue(call.bundle.doesExist()); }},
        {u"buildDatabaseBundleOnDisk:"_s,
         [](const Call &call) { return QJsonValue(call.bundle.buildDatabaseBundleOnDisk()); }},
        {u"removeDatabaseBundleOnDisk:"_s,
         [](const Call &call) { return QJsonValue(call.bundle.removeDatabaseBundleOnDisk()); }},
        {u"moveDatabaseToPreUpgradePath"_s,
         [](const Call &call) { return valueOf(call.bundle.moveDatabaseToPreUpgradePath()); }},
        {u"filePathByAddingExtComment:comment:"_s,
         [](const Call &call) {
             return valueOf(call.bundle.filePathByAddingExtComment(
                 call.text, call.arguments.value(u"comment").toString()));
         }},
        {u"filePathByRemovingExtComment:"_s, withText<&Bundle::filePathByRemovingExtComment>},
        {u"nextInstanceNumberForFilePath:"_s, nextNumber},
        {u"fileNameWithMediaInstanceNumber:"_s, withText<&Bundle::fileNameWithMediaInstanceNumber>},
        {u"copyFilePathToMediaFolderAndReturnMediaPath:"_s,
         withText<&Bundle::copyFilePathToMediaFolderAndReturnMediaPath>},
        {u"downloadHttpFileToBundleAndReturnPath:"_s,
         withURL<&Bundle::downloadHttpFileToBundleAndReturnPath>},
        {u"saveTIFF"_s, savedPicture},
        {u"storeFileFromURL:"_s, withURL<&Bundle::storeFileFromURL>},
        {u"isMediaURL:"_s, withURL<&Bundle::isMediaURL>},
        {u"mediaUrlFromFilePath:"_s, withText<&Bundle::mediaUrlFromFilePath>},
        {u"mediaUrlRoundTrip"_s, thereAndBack},
        {u"filePathFromMediaUrl:"_s, withURL<&Bundle::filePathFromMediaUrl>},
        {u"filepathFromBundleURL:"_s, withURL<&Bundle::filepathFromBundleURL>},
        {u"isFileNameInMediaFolder:"_s, withText<&Bundle::isFileNameInMediaFolder>},
        {u"isFilenameInBundle:"_s, withText<&Bundle::isFilenameInBundle>},
        {u"deleteFileFromMediaFolder:"_s, withText<&Bundle::deleteFileFromMediaFolder>},
        {u"deleteFileFromBundle:"_s, withText<&Bundle::deleteFileFromBundle>},
    };
    return table;
}

/// The text that a row is about.
QString textOf(const QJsonObject &row)
{
    const QJsonValue arguments = row.value(u"args");
    return arguments[u"s"].toString(arguments[u"url"].toString());
}

/// What is wanted otherwise than in the table, as operation and text: names that lead out of the
/// media folder are rejected, and an empty extension appends no dot.
QJsonValue expectedOf(const QJsonObject &row)
{
    static const std::map<std::pair<QString, QString>, QJsonValue> others = {
        {{u"isFileNameInMediaFolder:"_s, u""_s}, false},
        {{u"isFileNameInMediaFolder:"_s, u"dir/x"_s}, false},
        {{u"filepathFromBundleURL:"_s, u"cobblemedia://a%2Fb.png"_s}, QJsonValue()},
        {{u"filePathByRemovingExtComment:"_s, u"a."_s}, u"a"_s},
    };
    const auto other = others.find({row.value(u"op").toString(), textOf(row)});
    if (other != others.end())
        return other->second;
    const QJsonValue out = row.value(u"out");
    return row.contains(u"probes") ? QJsonArray{out, row.value(u"probes")} : out;
}

/// A value as a text, to be compared and printed.
std::string printed(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

QJsonValue outOfRoot(const QJsonValue &value, const FileTree &tree)
{
    if (value.isString())
        return tree.outOfRoot(value.toString());
    if (!value.isArray())
        return value;
    QJsonArray items;
    const QJsonArray given = value.toArray();
    for (const QJsonValue item : given)
        items += outOfRoot(item, tree);
    return items;
}

void expectLogs(const KTLogCapture &capture, const FileTree &tree, const QJsonObject &row)
{
    QJsonArray logs;
    for (const KTLogCapture::Entry &entry : capture.entries())
        logs += QJsonArray{entry.component, entry.level, entry.lineNumber,
                           tree.outOfRoot(entry.message)};
    EXPECT_EQ(logs, row.value(u"logs").toArray());
}

void expectRow(const QJsonObject &row, const LoopbackServer &server)
{
    const QString operation = row.value(u"op").toString();
    const QJsonObject arguments = row.value(u"args").toObject();
    const FileTree tree(row);
    const KTLogCapture capture(kLog_MediaFilenames, 4);
    QString text = tree.inRoot(textOf(row));
    text.replace(u"{port}"_s, QString::number(server.port()));
    ASSERT_TRUE(functions().contains(operation));
    const Call call{tree, KTDatabaseBundle(tree.path(u"b.cobbledb"_s)), arguments, text};
    EXPECT_EQ(printed(outOfRoot(functions().at(operation)(call), tree)), printed(expectedOf(row)));
    if (row.contains(u"logs"))
        expectLogs(capture, tree, row);
    if (row.value(u"list").toBool()) {
        EXPECT_EQ(tree.contents(), row.value(u"after").toObject());
    }
}
} // namespace

TEST(KTDatabaseBundleTable, AnswersWhatTheTableSays)
{
    const LoopbackServer server;
    for (const QJsonObject &row : rowsOf(u"system/bundle.jsonl"_s)) {
        SCOPED_TRACE(QJsonDocument(row).toJson(QJsonDocument::Compact).toStdString());
        expectRow(row, server);
    }
    testing_support::useFreshHome();
}

TEST(KTDatabaseBundleTable, SubclassesHaveTheirOwnFactoryName)
{
    const QString support = testing_support::useFreshHome() + u"/.local/share";
    EXPECT_EQ(Bundle::factoryDefaultDatabaseBundle<RenamedBundle>().bundlePath(),
              support + u"/Cobble/custom.cobbledb");
    EXPECT_EQ(Bundle::defaultDatabaseBundle<RenamedBundle>().bundlePath(),
              support + u"/Cobble/custom.cobbledb");
    EXPECT_EQ(Bundle::defaultDatabaseBundleForDeployment<RenamedBundle>().bundlePath(),
              support + u"/Cobble/cobble.cobbledb");
}
