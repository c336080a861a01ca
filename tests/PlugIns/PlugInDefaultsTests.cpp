#include <KTUtility/PlugIns/PlugInDefaults_p.h>

#include <KTUtility/NSBundle>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSUserDefaults>

#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QPoint>
#include <QSet>

#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QString list = u"list"_s;

QString domainFile(const QString &home)
{
    return home + u"/.local/share/Cobble/Preferences/" + NSHostIdentifier() + u".plugins.plist";
}

QVariantMap storedIn(const QString &home)
{
    return NSDictionary::dictionaryWithContentsOfFile(domainFile(home)).value_or(QVariantMap());
}

/// No file can be opened meanwhile, not even by an administrator.
class NoDescriptors
{
public:
    NoDescriptors()
    {
        ::getrlimit(RLIMIT_NOFILE, &_before);
        const rlimit none{0, _before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &_before); }
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

private:
    rlimit _before{};
};
} // namespace

TEST(PlugInDefaults, KeepsValuesOfEveryKind)
{
    const QString home = useFreshHome();
    const QVariantMap values{{u"text"_s, u"ä"_s},
                             {u"empty"_s, u""_s},
                             {u"number"_s, 5LL},
                             {u"truth"_s, true},
                             {u"data"_s, QByteArray("\0x", 2)},
                             {u"list"_s, QVariantList{1LL, u"a"_s}},
                             {u"map"_s, QVariantMap{{u"a"_s, 1LL}}}};
    for (auto value = values.begin(); value != values.end(); ++value)
        EXPECT_TRUE(PlugInDefaults::setObject(value.value(), value.key()));
    EXPECT_EQ(storedIn(home), values);
    for (auto value = values.begin(); value != values.end(); ++value)
        EXPECT_EQ(PlugInDefaults::objectForKey(value.key()), value.value());
}

TEST(PlugInDefaults, NilRemovesAKey)
{
    const QString home = useFreshHome();
    for (const QVariant &nil : {QVariant(), QVariant(QString())}) {
        EXPECT_TRUE(PlugInDefaults::setObject(1, u"key"_s));
        EXPECT_TRUE(PlugInDefaults::setObject(nil, u"key"_s));
        EXPECT_FALSE(PlugInDefaults::objectForKey(u"key"_s).isValid());
    }
    EXPECT_TRUE(storedIn(home).isEmpty());
}

TEST(PlugInDefaults, ANilKeyHoldsNothing)
{
    const QString home = useFreshHome();
    EXPECT_FALSE(PlugInDefaults::setObject(1, QString()));
    EXPECT_FALSE(PlugInDefaults::objectForKey(QString()).isValid());
    EXPECT_FALSE(PlugInDefaults::setInList(true, u"a"_s, QString()));
    EXPECT_FALSE(PlugInDefaults::setInList(true, QString(), list));
    EXPECT_FALSE(QFile::exists(domainFile(home)));
    // The empty text is a key as any other.
    EXPECT_TRUE(PlugInDefaults::setObject(1, u""_s));
    EXPECT_EQ(PlugInDefaults::objectForKey(u""_s), QVariant(1));
}

TEST(PlugInDefaults, RegisteringAddsWhatIsLackingOnly)
{
    const QString home = useFreshHome();
    EXPECT_TRUE(PlugInDefaults::setObject(1, u"a"_s));
    EXPECT_TRUE(PlugInDefaults::registerDefaults({{u"a"_s, 2}, {u"b"_s, 3}}));
    EXPECT_EQ(storedIn(home), (QVariantMap{{u"a"_s, 1LL}, {u"b"_s, 3LL}}));
    EXPECT_FALSE(PlugInDefaults::registerDefaults({{u"c"_s, QPoint(1, 2)}}));
    EXPECT_EQ(storedIn(home), (QVariantMap{{u"a"_s, 1LL}, {u"b"_s, 3LL}}));
}

TEST(PlugInDefaults, AListHoldsAnIdentifierAsOftenAsItIsPutIn)
{
    const QString home = useFreshHome();
    struct Row
    {
        bool isIn;
        QString identifier;
        QVariantList stored;
    };
    const Row rows[] = {
        {false, u"a"_s, {}},
        {true, u"a"_s, {u"a"_s}},
        {true, u"b"_s, {u"a"_s, u"b"_s}},
        {true, u"a"_s, {u"a"_s, u"b"_s, u"a"_s}},
        {false, u"A"_s, {u"a"_s, u"b"_s, u"a"_s}},
        {false, u"a"_s, {u"b"_s}},
        {true, u""_s, {u"b"_s, u""_s}},
        {false, u"b"_s, {u""_s}},
    };
    for (const Row &row : rows) {
        EXPECT_TRUE(PlugInDefaults::setInList(row.isIn, row.identifier, list));
        EXPECT_EQ(storedIn(home).value(list).toList(), row.stored);
        EXPECT_EQ(PlugInDefaults::isInList(row.identifier, list),
                  row.stored.contains(row.identifier));
    }
}

TEST(PlugInDefaults, WhatIsNoListHoldsNothingAndIsReplaced)
{
    useFreshHome();
    for (const QVariant &other : {QVariant(u"a"_s), QVariant(5), QVariant(QByteArray("a")),
                                  QVariant(QVariantMap{{u"a"_s, 1}})}) {
        EXPECT_TRUE(PlugInDefaults::setObject(other, list));
        EXPECT_FALSE(PlugInDefaults::isInList(u"a"_s, list));
        EXPECT_TRUE(PlugInDefaults::setInList(true, u"a"_s, list));
        EXPECT_TRUE(PlugInDefaults::isInList(u"a"_s, list));
    }
}

TEST(PlugInDefaults, AHugeListIsAListToo)
{
    const QString home = useFreshHome();
    QVariantList identifiers;
    for (int number = 0; number < 10'000; ++number)
        identifiers += QString::number(number);
    EXPECT_TRUE(PlugInDefaults::setObject(identifiers, list));
    EXPECT_TRUE(PlugInDefaults::isInList(u"9999"_s, list));
    EXPECT_FALSE(PlugInDefaults::isInList(u"10000"_s, list));
    EXPECT_TRUE(PlugInDefaults::setInList(false, u"0"_s, list));
    EXPECT_EQ(storedIn(home).value(list).toList().size(), 9'999);
}

TEST(PlugInDefaults, WhatCannotBeReadIsNotOverwritten)
{
    const QString home = useFreshHome();
    const QByteArray stored = "<plist version=\"1.0\"><dict><key>list</key>"
                              "<array><string>a</string></array></dict></plist>";
    writeFile(domainFile(home), stored);
    {
        const NoDescriptors none;
        EXPECT_FALSE(PlugInDefaults::objectForKey(list).isValid());
        EXPECT_FALSE(PlugInDefaults::isInList(u"a"_s, list));
        EXPECT_FALSE(PlugInDefaults::setObject(1, u"key"_s));
        EXPECT_FALSE(PlugInDefaults::setInList(true, u"b"_s, list));
        EXPECT_FALSE(PlugInDefaults::registerDefaults({{u"key"_s, 1}}));
    }
    EXPECT_EQ(contentsOf(domainFile(home)), stored);
    EXPECT_TRUE(PlugInDefaults::isInList(u"a"_s, list));
    EXPECT_TRUE(PlugInDefaults::setInList(true, u"b"_s, list));
    EXPECT_EQ(storedIn(home).value(list).toList(), (QVariantList{u"a"_s, u"b"_s}));
}

TEST(PlugInDefaults, AFolderInTheFilesPlaceIsMovedAside)
{
    const QString home = useFreshHome();
    ASSERT_TRUE(QDir().mkpath(domainFile(home)));
    EXPECT_FALSE(PlugInDefaults::objectForKey(u"a"_s).isValid());
    EXPECT_TRUE(PlugInDefaults::setObject(1, u"a"_s));
    EXPECT_EQ(storedIn(home), (QVariantMap{{u"a"_s, 1LL}}));
}

TEST(PlugInDefaults, AnyTextCanBeAKeyOfAList)
{
    useFreshHome();
    for (const QString &text : hostileTexts()) {
        const bool isSet = PlugInDefaults::setInList(true, u"a"_s, text);
        EXPECT_EQ(PlugInDefaults::isInList(u"a"_s, text), isSet);
        EXPECT_EQ(PlugInDefaults::setObject(QVariant(), text), !text.isNull());
    }
}

TEST(PlugInDefaults, ManyProcessesLoseNothingThatWasAcknowledged)
{
    const QString home = useFreshHome();
    constexpr int Processes = 8;
    constexpr int Changes = 5;
    const auto change = [](int process) {
        int done = 0;
        for (int number = 0; number < Changes; ++number) {
            const QString identifier = u"org.p%1.n%2"_s.arg(process).arg(number);
            done += PlugInDefaults::setInList(true, identifier, list) ? 1 : 0;
            // A start of the host beside it, with a key that is there and one that is not.
            PlugInDefaults::registerDefaults({{list, QVariantList()}, {identifier, 1}});
        }
        return done;
    };
    std::vector<std::unique_ptr<OtherProcess>> processes;
    for (int process = 0; process < Processes; ++process)
        processes.push_back(std::make_unique<OtherProcess>([=] { return change(process); }));
    int acknowledged = 0;
    for (const auto &process : processes)
        acknowledged += process->exitCode();
    EXPECT_GT(acknowledged, 0);
    const QVariantList stored = storedIn(home).value(list).toList();
    EXPECT_EQ(stored.size(), acknowledged);
    QSet<QString> identifiers;
    for (const QVariant &identifier : stored)
        identifiers += identifier.toString();
    EXPECT_EQ(identifiers.size(), acknowledged);
}

TEST(PlugInDefaults, RegisteringWhatIsThereWritesNothing)
{
    const QString home = useFreshHome();
    EXPECT_TRUE(PlugInDefaults::registerDefaults({{u"a"_s, 1}, {u"b"_s, 2}}));
    const QDateTime before = QFileInfo(domainFile(home)).lastModified();
    const auto inode = [&] {
        struct stat status = {};
        EXPECT_EQ(::stat(QFile::encodeName(domainFile(home)).constData(), &status), 0);
        return status.st_ino;
    };
    const ino_t file = inode();
    EXPECT_TRUE(PlugInDefaults::registerDefaults({{u"a"_s, 3}}));
    EXPECT_TRUE(PlugInDefaults::registerDefaults({}));
    EXPECT_EQ(inode(), file);
    EXPECT_EQ(QFileInfo(domainFile(home)).lastModified(), before);
    EXPECT_TRUE(PlugInDefaults::registerDefaults({{u"a"_s, 3}, {u"c"_s, 3}}));
    EXPECT_NE(inode(), file);
}

TEST(PlugInDefaults, WhatCouldNotBeWrittenIsAddedToWhatOthersHaveWritten)
{
    useFreshHome();
    qunsetenv("HOME");
    EXPECT_FALSE(PlugInDefaults::setInList(true, u"mine"_s, list));
    EXPECT_FALSE(PlugInDefaults::setObject(1, u"key"_s));
    const QString home = useFreshHome();
    NSDictionary::writeToFile({{list, QVariantList{u"theirs"_s}}, {u"other"_s, 2}},
                              domainFile(home), true);
    EXPECT_TRUE(PlugInDefaults::isInList(u"theirs"_s, list));
    EXPECT_TRUE(PlugInDefaults::setInList(true, u"last"_s, list));
    EXPECT_EQ(storedIn(home), (QVariantMap{{list, QVariantList{u"theirs"_s, u"mine"_s, u"last"_s}},
                                           {u"key"_s, 1LL},
                                           {u"other"_s, 2LL}}));
}
