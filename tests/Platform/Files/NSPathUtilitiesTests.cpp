#include <KTUtility/NSPathUtilities>

#include <KTUtility/NSSearchPath>

#include "support/TestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString textIn(const QJsonObject &row, const char *key)
{
    const QJsonValue value = row.value(QLatin1String(key));
    if (!value.isString())
        return {};
    return value.toString().replace(u"<home>"_s, NSHomeDirectory());
}

QStringList textsIn(const QJsonObject &row, const char *key)
{
    QStringList texts;
    for (const QJsonValue &value : row.value(QLatin1String(key)).toArray())
        texts += value.toString();
    return texts;
}

using Function = QString (*)(const QString &);
using FunctionWithArgument = QString (*)(const QString &, const QString &);

const QMap<QString, Function> &functions()
{
    static const QMap<QString, Function> table = {
        {u"lastPathComponent"_s, NSString::lastPathComponent},
        {u"pathExtension"_s, NSString::pathExtension},
        {u"stringByDeletingLastPathComponent"_s, NSString::stringByDeletingLastPathComponent},
        {u"stringByDeletingPathExtension"_s, NSString::stringByDeletingPathExtension},
        {u"stringByExpandingTildeInPath"_s, NSString::stringByExpandingTildeInPath},
        {u"stringByStandardizingPath"_s, NSString::stringByStandardizingPath},
    };
    return table;
}

const QMap<QString, FunctionWithArgument> &functionsWithArgument()
{
    static const QMap<QString, FunctionWithArgument> table = {
        {u"stringByAppendingPathComponent"_s, NSString::stringByAppendingPathComponent},
        {u"stringByAppendingPathExtension"_s, NSString::stringByAppendingPathExtension},
    };
    return table;
}

/// What a row expects, but for the rows from which this framework departs on purpose.
QString expectationOf(const QJsonObject &row)
{
    const QString argument = textIn(row, "argument");
    // An empty extension appends nothing: a trailing dot helps nobody.
    if (row.value(u"op").toString() == u"stringByAppendingPathExtension" && argument.isEmpty())
        return textIn(row, "receiver");
    // The "/" at the end of an appended component stays.
    if (row.contains(u"difference"))
        return QString(textIn(row, "expected") + u'/');
    return textIn(row, "expected");
}

void checkRow(const QJsonObject &row)
{
    const QString operation = row.value(u"op").toString();
    const QString receiver = textIn(row, "receiver");
    if (operation == u"pathComponents") {
        EXPECT_EQ(NSString::pathComponents(receiver), textsIn(row, "expected"));
    } else if (operation == u"pathComponents count") {
        EXPECT_EQ(NSString::pathComponents(receiver).size(), row.value(u"expected").toInt());
    } else if (operation == u"pathWithComponents") {
        EXPECT_EQ(NSString::pathWithComponents(textsIn(row, "argument")), expectationOf(row));
    } else if (const auto function = functions().value(operation)) {
        EXPECT_EQ(function(receiver), expectationOf(row));
    } else if (const auto withArgument = functionsWithArgument().value(operation)) {
        const QString result = withArgument(receiver, textIn(row, "argument"));
        EXPECT_EQ(result, expectationOf(row));
        EXPECT_EQ(result.isNull(), expectationOf(row).isNull());
    } else {
        ADD_FAILURE() << "unknown operation";
    }
}
} // namespace

TEST(NSPathUtilities, AnswersWhatTheTableSays)
{
    useFreshHome();
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"platform/paths.jsonl"_s)) {
        if (!row.contains(u"op"))
            continue;
        SCOPED_TRACE(row.value(u"op").toString().toStdString() + " of " +
                     textIn(row, "receiver").toStdString());
        checkRow(row);
        ++checked;
    }
    EXPECT_EQ(checked, 77);
}

TEST(NSPathUtilities, TheExampleInTheHeaderHolds)
{
    const QString path = u"/tmp/photo.0.jpg"_s;
    EXPECT_EQ(NSString::lastPathComponent(path), u"photo.0.jpg"_s);
    EXPECT_EQ(NSString::pathExtension(path), u"jpg"_s);
    EXPECT_EQ(NSString::stringByDeletingPathExtension(u"photo.0.jpg"_s), u"photo.0"_s);
    EXPECT_EQ(NSString::stringByAppendingPathComponent(u"/tmp"_s, u"a"_s), u"/tmp/a"_s);
}

TEST(NSPathUtilities, AnEmptyExtensionAppendsNothing)
{
    for (const QString &extension : {QString(), u""_s}) {
        EXPECT_EQ(NSString::stringByAppendingPathExtension(u"a"_s, extension), u"a"_s);
        EXPECT_EQ(NSString::stringByAppendingPathExtension(u"/a.b//"_s, extension), u"/a.b"_s);
    }
}

TEST(NSPathUtilities, AnExtensionNeedsANameAndNoSlash)
{
    for (const QString &path : {u"/"_s, u"///"_s, u""_s})
        EXPECT_TRUE(NSString::stringByAppendingPathExtension(path, u"jpg"_s).isNull());
    EXPECT_TRUE(NSString::stringByAppendingPathExtension(u"a"_s, u"/b"_s).isNull());
}

TEST(NSPathUtilities, ComponentsAreJoinedByOneSlash)
{
    const auto join = [](const char16_t *path, const char16_t *component) {
        return NSString::stringByAppendingPathComponent(QString::fromUtf16(path),
                                                        QString::fromUtf16(component));
    };
    EXPECT_EQ(join(u"/a/", u"/b"), u"/a/b"_s);
    EXPECT_EQ(join(u"a//", u"//b//c"), u"a/b/c"_s);
    EXPECT_EQ(join(u"/a", u".."), u"/a/.."_s);
    EXPECT_EQ(join(u"/a/", u""), u"/a"_s);
    EXPECT_EQ(join(u"/", u""), u"/"_s);
    EXPECT_EQ(join(u"", u""), u""_s);
    EXPECT_EQ(join(u"a", u"b/"), u"a/b/"_s);
}

TEST(NSPathUtilities, ComponentsAreTakenApartAndPutTogether)
{
    for (const QString &path : {u"/"_s, u"/a"_s, u"a/b/c"_s, u"/a/../b/."_s})
        EXPECT_EQ(NSString::pathWithComponents(NSString::pathComponents(path)), path);
    EXPECT_TRUE(NSString::pathComponents(QString()).isEmpty());
    EXPECT_EQ(NSString::pathComponents(u"usr/"_s), QStringList({u"usr"_s, u"/"_s}));
    EXPECT_EQ(NSString::pathComponents(u"a/b/"_s), QStringList({u"a"_s, u"b"_s, u"/"_s}));
    EXPECT_EQ(NSString::pathComponents(u"/usr/"_s), QStringList({u"/"_s, u"usr"_s, u"/"_s}));
    EXPECT_EQ(NSString::pathComponents(u"/"_s), QStringList(u"/"_s));
    EXPECT_EQ(NSString::pathComponents(u"//"_s), QStringList(u"/"_s));
    EXPECT_EQ(NSString::pathWithComponents({}), u""_s);
}

TEST(NSPathUtilities, OnlyTheUsersOwnTildeIsExpanded)
{
    const QString home = useFreshHome();
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(u"~"_s), home);
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(u"~/a//b/"_s), QString(home + u"/a/b"_s));
    for (const QString &path : {u"a/~"_s, u"~x/a"_s, u"/~/a"_s, u""_s})
        EXPECT_EQ(NSString::stringByExpandingTildeInPath(path), path);
}

TEST(NSPathUtilities, WithoutAHomeTheTildeStays)
{
    useFreshHome();
    for (const QByteArray &home : {QByteArray(), QByteArray("relative/home")}) {
        home.isNull() ? qunsetenv("HOME") : qputenv("HOME", home);
        EXPECT_EQ(NSString::stringByExpandingTildeInPath(u"~/a"_s), u"~/a"_s);
    }
    qputenv("HOME", "/");
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(u"~/a"_s), u"/a"_s);
    useFreshHome();
}

TEST(NSPathUtilities, StandardizingNeverClimbsAboveTheRoot)
{
    const auto standardized = [](const char16_t *path) {
        return NSString::stringByStandardizingPath(QString::fromUtf16(path));
    };
    EXPECT_EQ(standardized(u"/.."), u"/"_s);
    EXPECT_EQ(standardized(u"/../../a"), u"/a"_s);
    EXPECT_EQ(standardized(u"/a/../.."), u"/"_s);
    EXPECT_EQ(standardized(u"../a"), u"../a"_s);
    EXPECT_EQ(standardized(u"a/./b"), u"a/b"_s);
    EXPECT_EQ(standardized(u"."), u"."_s);
}

TEST(NSPathUtilities, NilIsNilAndEmptyIsEmpty)
{
    useFreshHome();
    for (const Function function : functions()) {
        EXPECT_TRUE(function(QString()).isNull());
        const QString empty = function(u""_s);
        EXPECT_TRUE(empty.isEmpty() && !empty.isNull());
    }
    const QString a = u"a"_s;
    EXPECT_EQ(NSString::stringByAppendingPathComponent(QString(), a), a);
    EXPECT_TRUE(NSString::stringByAppendingPathComponent(QString(), QString()).isNull());
    EXPECT_TRUE(NSString::stringByAppendingPathExtension(QString(), a).isNull());
}

TEST(NSPathUtilities, HostileTextsKeepTheirUnits)
{
    useFreshHome();
    for (const QString &text : hostileTexts()) {
        const QString path = NSString::stringByAppendingPathComponent(u"/x"_s, text);
        EXPECT_EQ(NSString::lastPathComponent(path), text.isEmpty() ? u"x"_s : text);
        EXPECT_EQ(NSString::stringByDeletingLastPathComponent(path),
                  text.isEmpty() ? u"/"_s : u"/x"_s);
        EXPECT_EQ(NSString::stringByStandardizingPath(path), path);
    }
}

TEST(NSPathUtilities, ManySlashesAndComponentsAreQuick)
{
    useFreshHome();
    EXPECT_EQ(NSString::lastPathComponent(megabyteOf(u"/"_s)), u"/"_s);
    const QString climbing = megabyteOf(u"/a/.."_s);
    EXPECT_EQ(NSString::stringByStandardizingPath(climbing), u"/"_s);
    EXPECT_EQ(NSString::pathComponents(megabyteOf(u"/a"_s)).size(), 524290);
}
