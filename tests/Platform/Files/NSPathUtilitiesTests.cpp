#include <KTUtility/NSPathUtilities>

#include <KTUtility/NSSearchPath>

#include "support/TestSupport.h"

#include <QJsonArray>

using namespace testing_support;

namespace {
QString textIn(const QJsonObject &row, const char *key)
{
    const QJsonValue value = row.value(QLatin1String(key));
    if (!value.isString())
        return {};
    return value.toString().replace(QStringLiteral("<home>"), NSHomeDirectory());
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
        {QStringLiteral("lastPathComponent"), NSString::lastPathComponent},
        {QStringLiteral("pathExtension"), NSString::pathExtension},
        {QStringLiteral("stringByDeletingLastPathComponent"),
         NSString::stringByDeletingLastPathComponent},
        {QStringLiteral("stringByDeletingPathExtension"), NSString::stringByDeletingPathExtension},
        {QStringLiteral("stringByExpandingTildeInPath"), NSString::stringByExpandingTildeInPath},
        {QStringLiteral("stringByStandardizingPath"), NSString::stringByStandardizingPath},
    };
    return table;
}

const QMap<QString, FunctionWithArgument> &functionsWithArgument()
{
    static const QMap<QString, FunctionWithArgument> table = {
        {QStringLiteral("stringByAppendingPathComponent"),
         NSString::stringByAppendingPathComponent},
        {QStringLiteral("stringByAppendingPathExtension"),
         NSString::stringByAppendingPathExtension},
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

TEST(NSPathUtilities, RowsAreMet)
{
    useFreshHome();
    int checked = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/paths.jsonl"))) {
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
    const QString path = QStringLiteral("/tmp/photo.0.jpg");
    EXPECT_EQ(NSString::lastPathComponent(path), QStringLiteral("photo.0.jpg"));
    EXPECT_EQ(NSString::pathExtension(path), QStringLiteral("jpg"));
    EXPECT_EQ(NSString::stringByDeletingPathExtension(QStringLiteral("photo.0.jpg")),
              QStringLiteral("photo.0"));
    EXPECT_EQ(NSString::stringByAppendingPathComponent(QStringLiteral("/tmp"), QStringLiteral("a")),
              QStringLiteral("/tmp/a"));
}

TEST(NSPathUtilities, AnEmptyExtensionAppendsNothing)
{
    for (const QString &extension : {QString(), QStringLiteral("")}) {
        EXPECT_EQ(NSString::stringByAppendingPathExtension(QStringLiteral("a"), extension),
                  QStringLiteral("a"));
        EXPECT_EQ(NSString::stringByAppendingPathExtension(QStringLiteral("/a.b//"), extension),
                  QStringLiteral("/a.b"));
    }
}

TEST(NSPathUtilities, AnExtensionNeedsANameAndNoSlash)
{
    for (const QString &path : {QStringLiteral("/"), QStringLiteral("///"), QStringLiteral("")})
        EXPECT_TRUE(NSString::stringByAppendingPathExtension(path, QStringLiteral("jpg")).isNull());
    EXPECT_TRUE(NSString::stringByAppendingPathExtension(QStringLiteral("a"), QStringLiteral("/b"))
                    .isNull());
}

TEST(NSPathUtilities, ComponentsAreJoinedByOneSlash)
{
    const auto join = [](const char16_t *path, const char16_t *component) {
        return NSString::stringByAppendingPathComponent(QString::fromUtf16(path),
                                                        QString::fromUtf16(component));
    };
    EXPECT_EQ(join(u"/a/", u"/b"), QStringLiteral("/a/b"));
    EXPECT_EQ(join(u"a//", u"//b//c"), QStringLiteral("a/b/c"));
    EXPECT_EQ(join(u"/a", u".."), QStringLiteral("/a/.."));
    EXPECT_EQ(join(u"/a/", u""), QStringLiteral("/a"));
    EXPECT_EQ(join(u"/", u""), QStringLiteral("/"));
    EXPECT_EQ(join(u"", u""), QStringLiteral(""));
    EXPECT_EQ(join(u"a", u"b/"), QStringLiteral("a/b/"));
}

TEST(NSPathUtilities, ComponentsAreTakenApartAndPutTogether)
{
    for (const QString &path : {QStringLiteral("/"), QStringLiteral("/a"), QStringLiteral("a/b/c"),
                                QStringLiteral("/a/../b/.")})
        EXPECT_EQ(NSString::pathWithComponents(NSString::pathComponents(path)), path);
    EXPECT_TRUE(NSString::pathComponents(QString()).isEmpty());
    EXPECT_EQ(NSString::pathWithComponents({}), QStringLiteral(""));
}

TEST(NSPathUtilities, OnlyTheUsersOwnTildeIsExpanded)
{
    const QString home = useFreshHome();
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(QStringLiteral("~")), home);
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(QStringLiteral("~/a//b/")),
              QString(home + QStringLiteral("/a/b")));
    for (const QString &path : {QStringLiteral("a/~"), QStringLiteral("~x/a"),
                                QStringLiteral("/~/a"), QStringLiteral("")})
        EXPECT_EQ(NSString::stringByExpandingTildeInPath(path), path);
}

TEST(NSPathUtilities, WithoutAHomeTheTildeStays)
{
    useFreshHome();
    for (const QByteArray &home : {QByteArray(), QByteArray("relative/home")}) {
        home.isNull() ? qunsetenv("HOME") : qputenv("HOME", home);
        EXPECT_EQ(NSString::stringByExpandingTildeInPath(QStringLiteral("~/a")),
                  QStringLiteral("~/a"));
    }
    qputenv("HOME", "/");
    EXPECT_EQ(NSString::stringByExpandingTildeInPath(QStringLiteral("~/a")), QStringLiteral("/a"));
    useFreshHome();
}

TEST(NSPathUtilities, StandardizingNeverClimbsAboveTheRoot)
{
    const auto standardized = [](const char16_t *path) {
        return NSString::stringByStandardizingPath(QString::fromUtf16(path));
    };
    EXPECT_EQ(standardized(u"/.."), QStringLiteral("/"));
    EXPECT_EQ(standardized(u"/../../a"), QStringLiteral("/a"));
    EXPECT_EQ(standardized(u"/a/../.."), QStringLiteral("/"));
    EXPECT_EQ(standardized(u"../a"), QStringLiteral("../a"));
    EXPECT_EQ(standardized(u"a/./b"), QStringLiteral("a/b"));
    EXPECT_EQ(standardized(u"."), QStringLiteral("."));
}

TEST(NSPathUtilities, NilIsNilAndEmptyIsEmpty)
{
    useFreshHome();
    for (const Function function : functions()) {
        EXPECT_TRUE(function(QString()).isNull());
        const QString empty = function(QStringLiteral(""));
        EXPECT_TRUE(empty.isEmpty() && !empty.isNull());
    }
    const QString a = QStringLiteral("a");
    EXPECT_EQ(NSString::stringByAppendingPathComponent(QString(), a), a);
    EXPECT_TRUE(NSString::stringByAppendingPathComponent(QString(), QString()).isNull());
    EXPECT_TRUE(NSString::stringByAppendingPathExtension(QString(), a).isNull());
}

TEST(NSPathUtilities, HostileTextsKeepTheirUnits)
{
    useFreshHome();
    for (const QString &text : hostileTexts()) {
        const QString path = NSString::stringByAppendingPathComponent(QStringLiteral("/x"), text);
        EXPECT_EQ(NSString::lastPathComponent(path), text.isEmpty() ? QStringLiteral("x") : text);
        EXPECT_EQ(NSString::stringByDeletingLastPathComponent(path),
                  text.isEmpty() ? QStringLiteral("/") : QStringLiteral("/x"));
        EXPECT_EQ(NSString::stringByStandardizingPath(path), path);
    }
}

TEST(NSPathUtilities, ManySlashesAndComponentsAreQuick)
{
    useFreshHome();
    EXPECT_EQ(NSString::lastPathComponent(megabyteOf(QStringLiteral("/"))), QStringLiteral("/"));
    const QString climbing = megabyteOf(QStringLiteral("/a/.."));
    EXPECT_EQ(NSString::stringByStandardizingPath(climbing), QStringLiteral("/"));
    EXPECT_EQ(NSString::pathComponents(megabyteOf(QStringLiteral("/a"))).size(), 524290);
}
