#include <KTUtility/Diagnostics/KTLogLine_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogger>
#include <KTUtility/NSException>
#include <KTUtility/NSPropertyListSerialization>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <climits>
#include <sys/resource.h>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::standardErrorOf;
using testing_support::writeFile;

namespace {
/// A fresh home folder and a logger that starts in it.
class KTLoggerTests : public testing::Test
{
protected:
    QString library() const { return home + u"/.local/share/Cobble"_s; }
    QString settingsPath() const
    {
        return library() + u"/Preferences/org.cobble.Cobble.ktlogger.plist"_s;
    }
    QString logPath() const { return library() + u"/Logs/cobble.log"_s; }
    QString log() const { return QString::fromUtf8(contentsOf(logPath())); }
    QVariantMap settings() const
    {
        return NSDictionary::dictionaryWithContentsOfFile(settingsPath()).value_or(QVariantMap());
    }
    void writeSettings(const QVariantMap &values)
    {
        ASSERT_TRUE(NSDictionary::writeToFile(values, settingsPath(), true));
    }

    QString home = testing_support::useFreshHome();
};

/// Logs when its thread ends: after what the logger keeps for the thread is destroyed, if it was
/// there first.
struct LogsAtTheEnd
{
    ~LogsAtTheEnd()
    {
        for (const int number : {2, 3})
            logger->logComponent(kLog_Tests, 1, "f", 1, u"<%d>", number);
    }

    KTLogger *logger = nullptr;
};

/// While it lives, no file can be opened, also by an administrator.
class NoDescriptors
{
public:
    NoDescriptors()
    {
        ::getrlimit(RLIMIT_NOFILE, &_limit);
        const rlimit none{0, _limit.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &_limit); }
    NoDescriptors(const NoDescriptors &) = delete;
    NoDescriptors &operator=(const NoDescriptors &) = delete;

private:
    rlimit _limit{};
};

class RaisingObject : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QString description() const { NSException::raise(u"Broken"_s, u"by hand"_s); }
};

QVariantMap componentsAt(const QString &component, const QVariant &level)
{
    return {{KTLoggerComponentsKey, QVariantMap{{component, level}}}};
}
} // namespace

TEST_F(KTLoggerTests, AFreshUserHasEverythingOffAndAnEmptyLogFile)
{
    const KTLogger logger;
    EXPECT_FALSE(logger.components().has_value());
    for (const QString &component : logger.allComponentsArray()) {
        for (int level = -1; level <= 8; ++level)
            EXPECT_FALSE(logger.shouldLogComponent(component, level));
    }
    EXPECT_FALSE(logger.shouldLogComponent(kLog_invalid, INT_MIN));
    EXPECT_TRUE(QFile::exists(logPath()));
    EXPECT_TRUE(log().isEmpty());
    EXPECT_FALSE(QFile::exists(settingsPath()));
    EXPECT_TRUE(logger.writeToFile());
    EXPECT_FALSE(logger.displayFileLine());
}

TEST_F(KTLoggerTests, ComponentsStandInTheirOrder)
{
    const KTLogger logger;
    const QStringList &all = logger.allComponentsArray();
    ASSERT_EQ(all.size(), 39);
    EXPECT_EQ(all[0], kLog_AppleScript);
    EXPECT_EQ(all[1], u"validateMenuItem"_s);
    EXPECT_EQ(all[4], u"Drag & Drop"_s);
    EXPECT_EQ(all[5], u"DataMap"_s);
    EXPECT_EQ(all[17], u"Formatters -- Currency"_s);
    EXPECT_EQ(all[33], u"SourceList"_s);
    EXPECT_EQ(all[34], u"SourceItem"_s);
    EXPECT_EQ(all[38], kLog_Upgrade);
    EXPECT_FALSE(all.contains(kLog_invalid));
    EXPECT_EQ(QSet<QString>(all.begin(), all.end()).size(), 39);
}

TEST_F(KTLoggerTests, ALevelLogsUpToItself)
{
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_ImportDialog);
    logger.setLevelOfComponent(0, kLog_Undo);
    for (int level = -3; level <= 9; ++level) {
        EXPECT_EQ(logger.shouldLogComponent(kLog_ImportDialog, level), level <= 4);
        EXPECT_FALSE(logger.shouldLogComponent(kLog_Undo, level));
    }
}

TEST_F(KTLoggerTests, NegativeLevelsCompareAsSignedNumbers)
{
    KTLogger logger;
    logger.setLevelOfComponent(-2, kLog_Undo);
    EXPECT_TRUE(logger.shouldLogComponent(kLog_Undo, -2));
    EXPECT_TRUE(logger.shouldLogComponent(kLog_Undo, INT_MIN));
    EXPECT_FALSE(logger.shouldLogComponent(kLog_Undo, -1));
    EXPECT_FALSE(logger.shouldLogComponent(kLog_Printing, INT_MIN));
}

TEST_F(KTLoggerTests, AFileLineHoldsDateFileLineComponentAndMessage)
{
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_ImportDialog);
    logger.logComponent(kLog_ImportDialog, 4, "/some/where/Import.cpp", 42, u"%@ read %d%%", u"é",
                        7);
    static const QRegularExpression form(
        u"^(Sun|Mon|Tue|Wed|Thu|Fri|Sat) "
        "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) \\d\\d \\d{4} "
        "\\d\\d:\\d\\d:\\d\\d\\.\\d{3} \\[Import\\.cpp:42\\]\\[Import Dialog\\] é read 7%\\n$"_s);
    EXPECT_FALSE(logger.displayFileLine());
    EXPECT_TRUE(form.match(log()).hasMatch()) << log().toStdString();
}

TEST_F(KTLoggerTests, NothingIsWrittenBelowTheLevelOrToTheConsole)
{
    KTLogger logger;
    logger.setLevelOfComponent(4, kLog_ImportDialog);
    const QString console = standardErrorOf([&] {
        logger.logComponent(kLog_ImportDialog, 5, __FILE__, __LINE__, u"too deep");
        logger.logComponent(kLog_Undo, 1, __FILE__, __LINE__, u"off");
        logger.logComponent(kLog_ImportDialog, 4, __FILE__, __LINE__, u"written");
    });
    EXPECT_TRUE(console.isEmpty());
    EXPECT_EQ(log().count(u'\n'), 1);
}

TEST_F(KTLoggerTests, ANilFormatLogsNull)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    logger.logComponent(kLog_Tests, 1, nullptr, 0, QStringView());
    EXPECT_TRUE(log().endsWith(u"[:0][Tests] <null>\n")) << log().toStdString();
}

TEST_F(KTLoggerTests, ConsoleLinesCarryFileAndLineIfAsked)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    logger.setOutputToConsole(nullptr);
    const auto write = [&] { logger.logComponent(kLog_Tests, 1, "a/b.cpp", 5, u"%d", 1); };
    EXPECT_TRUE(standardErrorOf(write).endsWith(u"] [Tests] 1\n"));
    logger.setDisplayFileLine(nullptr);
    EXPECT_TRUE(standardErrorOf(write).endsWith(u"] [b.cpp:5][Tests] 1\n"));
    logger.setDisplayFileLine(nullptr);
    EXPECT_TRUE(standardErrorOf(write).endsWith(u"] [Tests] 1\n"));
    EXPECT_TRUE(log().isEmpty());
    logger.setOutputToFile(nullptr);
    EXPECT_TRUE(standardErrorOf(write).isEmpty());
    EXPECT_EQ(log().count(u'\n'), 1);
}

TEST_F(KTLoggerTests, SettingsAreSavedAtOnceAndReadByTheNextLogger)
{
    {
        KTLogger logger;
        logger.setLevelOfComponent(3, kLog_FormattersCurrency);
        logger.setLevelOfComponent(7, kLog_invalid);
        logger.setDisplayFileLine(nullptr);
        logger.setOutputToConsole(nullptr);
    }
    const QVariantMap saved = settings();
    EXPECT_EQ(saved.value(KTLoggerWriteToFileKey), QVariant(false));
    EXPECT_EQ(saved.value(KTLoggerDisplayFileLineKey), QVariant(true));
    EXPECT_EQ(saved.value(KTLoggerComponentsKey).toMap().size(), 2);
    const KTLogger next;
    EXPECT_FALSE(next.writeToFile());
    EXPECT_TRUE(next.displayFileLine());
    EXPECT_EQ(next.levelOfComponent(kLog_FormattersCurrency), 3);
    EXPECT_TRUE(next.shouldLogComponent(kLog_invalid, 7));
}

TEST_F(KTLoggerTests, EveryStartEmptiesTheLogFile)
{
    writeFile(logPath(), "from last time\n");
    const KTLogger logger;
    EXPECT_TRUE(contentsOf(logPath()).isEmpty());
}

TEST_F(KTLoggerTests, WithoutComponentsSavingRaises)
{
    KTLogger logger;
    const QString reason = u"*** -[NSMutableDictionary setObject:forKey:]: attempt to "
                           "insert nil value (key: components)"_s;
    EXPECT_RAISES(logger.writeConfigFile(), NSInvalidArgumentException, reason);
    EXPECT_RAISES(logger.setOutputToConsole(nullptr), NSInvalidArgumentException, reason);
    EXPECT_RAISES(logger.setOutputToFile(nullptr), NSInvalidArgumentException, reason);
    EXPECT_RAISES(logger.setDisplayFileLine(nullptr), NSInvalidArgumentException, reason);
    EXPECT_RAISES(logger.clearAllLoggingState(nullptr), NSInvalidArgumentException, reason);
    EXPECT_FALSE(QFile::exists(settingsPath()));
    // The setting was changed before the saving failed.
    EXPECT_TRUE(logger.displayFileLine());
}

TEST_F(KTLoggerTests, ClearingSetsEveryListedComponentToZero)
{
    KTLogger logger;
    logger.setLevelOfComponent(5, kLog_Undo);
    logger.setLevelOfComponent(6, kLog_invalid);
    logger.clearAllLoggingState(nullptr);
    for (const QString &component : logger.allComponentsArray())
        EXPECT_EQ(logger.components()->value(component), QVariant(0));
    EXPECT_EQ(logger.levelOfComponent(kLog_invalid), 6);
    EXPECT_EQ(settings().value(KTLoggerComponentsKey).toMap().size(), 40);
}

TEST_F(KTLoggerTests, SettingsOfWrongTypesCountAsMissing)
{
    writeSettings({{KTLoggerWriteToFileKey, QVariantList{1}},
                   {KTLoggerDisplayFileLineKey, u"YES"_s},
                   {KTLoggerComponentsKey, u"all"_s}});
    const KTLogger logger;
    EXPECT_TRUE(logger.writeToFile());
    EXPECT_TRUE(logger.displayFileLine());
    EXPECT_FALSE(logger.components().has_value());
}

TEST_F(KTLoggerTests, LevelsOfOtherTypesAreReadAsIntegers)
{
    for (const auto &[stored, level] :
         std::vector<std::pair<QVariant, int>>{{u"4"_s, 4},
                                               {3.9, 3},
                                               {true, 1},
                                               {QVariantList{5}, 0},
                                               {qlonglong(1) << 40, INT_MAX},
                                               {QByteArray("7"), 0}}) {
        writeSettings(componentsAt(kLog_Undo, stored));
        const KTLogger logger;
        EXPECT_EQ(logger.levelOfComponent(kLog_Undo), level) << testing::PrintToString(stored);
        EXPECT_EQ(logger.components()->value(kLog_Undo).metaType().id(), stored.metaType().id());
    }
}

TEST_F(KTLoggerTests, DamagedSettingsLeaveEverythingOff)
{
    writeSettings(componentsAt(kLog_Undo, 4));
    const QByteArray whole = contentsOf(settingsPath());
    for (qsizetype length = 0; length < whole.size() - 9; length += 7) {
        writeFile(settingsPath(), whole.first(length));
        const KTLogger logger;
        EXPECT_FALSE(logger.shouldLogComponent(kLog_Undo, 1)) << length;
        EXPECT_TRUE(logger.writeToFile());
    }
}

TEST_F(KTLoggerTests, SettingsThatAreAFolderAreNoSettings)
{
    QDir().mkpath(settingsPath());
    KTLogger logger;
    EXPECT_FALSE(logger.components().has_value());
    // What cannot be saved is not kept: the settings are what the file says.
    EXPECT_FALSE(logger.setLevelOfComponent(4, kLog_Undo));
    EXPECT_EQ(logger.levelOfComponent(kLog_Undo), 0);
}

TEST_F(KTLoggerTests, UnreadableSettingsLeaveEverythingOffAndAreNotWrittenOver)
{
    writeSettings(componentsAt(kLog_Undo, 4));
    KTLogger logger;
    logger.setOutputToConsole(nullptr);
    const QByteArray before = contentsOf(settingsPath());
    {
        const NoDescriptors none;
        logger.loadConfigFile(settingsPath());
        EXPECT_FALSE(logger.components().has_value());
        EXPECT_FALSE(logger.shouldLogComponent(kLog_Undo, 1));
        EXPECT_TRUE(logger.writeToFile());
        EXPECT_FALSE(logger.setLevelOfComponent(5, kLog_Tests));
        EXPECT_EQ(logger.levelOfComponent(kLog_Tests), 0);
    }
    EXPECT_EQ(contentsOf(settingsPath()), before);
    EXPECT_TRUE(logger.setLevelOfComponent(5, kLog_Tests));
    EXPECT_EQ(logger.levelOfComponent(kLog_Undo), 4);
    EXPECT_EQ(logger.levelOfComponent(kLog_Tests), 5);
    EXPECT_FALSE(logger.writeToFile());
}

TEST_F(KTLoggerTests, NamesThatSettingsCannotHoldRaise)
{
    KTLogger logger;
    EXPECT_RAISES(logger.setLevelOfComponent(1, u"a\u0001"_s), NSInvalidArgumentException,
                  u"\"a\\u0001\" cannot be a component"_s);
    EXPECT_THROW(logger.setLevelOfComponent(1, QString(QChar(0xD83D))), NSException);
    EXPECT_FALSE(logger.components().has_value());
}

TEST_F(KTLoggerTests, AProgramThatOnlyShowsLeavesTheLogAlone)
{
    writeFile(logPath(), "from last time\n");
    KTLogger::setKeepsLogFile(true);
    {
        KTLogger logger;
        logger.setLevelOfComponent(1, kLog_Tests);
        EXPECT_EQ(log(), u"from last time\n");
        logger.logComponent(kLog_Tests, 1, "f", 1, u"more");
        EXPECT_TRUE(log().startsWith(u"from last time\n"));
        EXPECT_TRUE(log().endsWith(u" more\n"));
    }
    KTLogger::setKeepsLogFile(false);
    const KTLogger next;
    EXPECT_TRUE(log().isEmpty());
}

TEST_F(KTLoggerTests, ArgumentsForgeNoLine)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    logger.logComponent(kLog_Tests, 1, "f\n.cpp", 1, u"%@\n%s", u"a\nSun Nov 15 2026 forged",
                        "\x1b[2J\r");
    EXPECT_TRUE(log().endsWith(u"[f\\n.cpp:1][Tests] a\\nSun Nov 15 2026 forged\n\\u001b[2J\\r\n"))
        << log().toStdString();
    logger.setOutputToConsole(nullptr);
    logger.setDisplayFileLine(nullptr);
    const QString console = standardErrorOf(
        [&] { logger.logComponent(kLog_Tests, 1, "f\n.cpp", 1, u"%@\n%d", u"a\nb", 7); });
    EXPECT_TRUE(console.endsWith(u"] [f\\n.cpp:1][Tests] a\\nb\n7\n")) << console.toStdString();
}

TEST_F(KTLoggerTests, LinesAreUTF8WhateverTheyAreMadeOf)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    logger.logComponent(kLog_Tests, 1, "\xFF\xFE.cpp", 1, u"%@", QString(u"end"_s + QChar(0xD83D)));
    EXPECT_TRUE(contentsOf(logPath()).endsWith("[\uFFFD\uFFFD.cpp:1][Tests] end\uFFFD\n"))
        << contentsOf(logPath()).toStdString();
}

TEST_F(KTLoggerTests, ADescriptionThatRaisesEndsInTheMessage)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    RaisingObject object;
    EXPECT_NO_THROW(logger.logComponent(kLog_Tests, 1, "f", 1, u"it: %@!", &object));
    EXPECT_TRUE(log().endsWith(u"[Tests] it: <description raised Broken: by hand>\n"))
        << log().toStdString();
}

TEST_F(KTLoggerTests, ALargeMessageLeavesNothingBehind)
{
    const QString large(1'000'000, u'x');
    auto state = KTLogLine::takeState();
    state->message.append(large);
    KTLogLine::keepState(std::move(state));
    EXPECT_LT(KTLogLine::takeState()->message.capacity(), 1'000);
    state = KTLogLine::takeState();
    state->message.append(u"short");
    const KTLogLine::State *const kept = state.get();
    KTLogLine::keepState(std::move(state));
    EXPECT_EQ(KTLogLine::takeState().get(), kept);
}

TEST_F(KTLoggerTests, WithoutASettingsFileOtherSettingsStay)
{
    KTLogger logger;
    logger.setLevelOfComponent(2, kLog_Undo);
    logger.setOutputToConsole(nullptr);
    logger.loadConfigFile(home + u"/nothing.plist"_s);
    EXPECT_FALSE(logger.writeToFile());
    EXPECT_FALSE(logger.components().has_value());
    logger.loadConfigFile(QString());
    EXPECT_FALSE(logger.writeToFile());
}

TEST_F(KTLoggerTests, WithoutALibraryFolderNothingIsSaved)
{
    qputenv("HOME", "");
    const QTemporaryDir temporary;
    const testing_support::EnvironmentGuard guard("TMPDIR", temporary.path().toLocal8Bit());
    KTLogger logger;
    EXPECT_TRUE(logger.configFilePath().isNull());
    EXPECT_TRUE(logger.userFile().isNull());
    EXPECT_EQ(logger.logFolder(), temporary.filePath(u"Logs"_s));
    EXPECT_TRUE(QFile::exists(temporary.filePath(u"Logs/cobble.log"_s)));
    EXPECT_FALSE(logger.setLevelOfComponent(4, kLog_Undo));
    EXPECT_FALSE(logger.components().has_value());
    testing_support::useFreshHome();
}

TEST_F(KTLoggerTests, ALogFolderThatCannotBeMadeIsNoLogFile)
{
    writeFile(library() + u"/Logs"_s, "a file");
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    logger.logComponent(kLog_Tests, 1, "f", 1, u"dropped");
    EXPECT_EQ(contentsOf(library() + u"/Logs"_s), "a file");
}

TEST_F(KTLoggerTests, AFullDiskDropsTheLine)
{
    QDir().mkpath(library() + u"/Logs"_s);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, logPath()));
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    for (int line = 0; line < 3; ++line)
        logger.logComponent(kLog_Tests, 1, "f", 1, u"dropped");
    EXPECT_TRUE(logger.shouldLogComponent(kLog_Tests, 1));
}

TEST_F(KTLoggerTests, WritesHostileMessagesAndNames)
{
    KTLogger logger;
    for (const QString &text : testing_support::hostileTexts()) {
        logger.setLevelOfComponent(1, kLog_Tests);
        const qsizetype before = contentsOf(logPath()).size();
        logger.logComponent(kLog_Tests, 1, "f", 1, u"%@", text);
        EXPECT_GE(contentsOf(logPath()).size() - before, text.size());
        EXPECT_FALSE(logger.shouldLogComponent(text, 1));
    }
}

TEST_F(KTLoggerTests, LinesOfSeveralThreadsDoNotMix)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&logger, thread] {
            for (int line = 0; line < 200; ++line)
                logger.logComponent(kLog_Tests, 1, "f", 1, u"<%d %@>", thread, QString(50, u'x'));
        });
    for (std::thread &thread : threads)
        thread.join();
    static const QRegularExpression form(u"\\] <\\d x{50}>$"_s);
    const QStringList lines = log().split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(lines.size(), 800);
    for (const QString &line : lines)
        EXPECT_TRUE(form.match(line).hasMatch()) << line.toStdString();
}

TEST_F(KTLoggerTests, WhatIsDestroyedLastMayLog)
{
    KTLogger logger;
    logger.setLevelOfComponent(1, kLog_Tests);
    std::thread([&logger] {
        thread_local LogsAtTheEnd last;
        last.logger = &logger;
        logger.logComponent(kLog_Tests, 1, "f", 1, u"<%d>", 1);
    }).join();
    static const QRegularExpression form(u"\\A[^<]* <1>\\n[^<]* <2>\\n[^<]* <3>\\n\\z"_s);
    EXPECT_TRUE(form.match(log()).hasMatch()) << log().toStdString();
}

TEST(KTLogger, KTLogEvaluatesNoArgumentWhenOff)
{
    int evaluations = 0;
    const auto argument = [&] { return ++evaluations; };
    KTLog(kLog_Printing, 4, u"%d", argument());
    EXPECT_EQ(evaluations, 0);
    KTLogCapture capture(kLog_Printing, 4);
    KTLog(kLog_Printing, 4, u"%d", argument());
    KTLog(kLog_Printing, 5, u"%d", argument());
    EXPECT_EQ(evaluations, 1);
    EXPECT_EQ(capture.messages(), QStringList{u"1"_s});
}

TEST(KTLogger, KTLogEvaluatesComponentAndLevelOnce)
{
    KTLogCapture capture(kLog_Printing, 7);
    int evaluations = 0;
    KTLog(kLog_Printing, ++evaluations, u"once");
    EXPECT_EQ(evaluations, 1);
    ASSERT_EQ(capture.entries().size(), 1);
    EXPECT_EQ(capture.entries()[0].level, 1);
    EXPECT_EQ(capture.entries()[0].file, u"KTLoggerTests.cpp"_s);
    EXPECT_EQ(capture.entries()[0].component, kLog_Printing);
    EXPECT_GT(capture.entries()[0].lineNumber, 1);
}

TEST(KTLogger, KTLogIsOneStatement)
{
    KTLogCapture capture(kLog_Printing);
    if (capture.messages().isEmpty())
        KTLog(kLog_Printing, 1, u"then");
    else
        KTLog(kLog_Printing, 1, u"else");
    EXPECT_EQ(capture.messages(), QStringList{u"then"_s});
}

TEST(KTLogger, KTLogHidesNoNameOfTheCaller)
{
    KTLogCapture capture(kLog_Printing);
    const int ktLevel_ = 2;
    const QString ktComponent_ = kLog_Printing;
    KTLog(ktComponent_, ktLevel_, u"%d %@", ktLevel_, ktComponent_);
    EXPECT_EQ(capture.messages(), QStringList{u"2 Printing"_s});
}

TEST(KTLogger, KTLogMayStandInAnArgumentOfAnother)
{
    KTLogCapture capture(kLog_Printing);
    capture.setLevelOfComponent(3, kLog_Undo);
    const auto inner = [] {
        KTLog(kLog_Undo, 3, u"inner");
        return 1;
    };
    KTLog(QString(kLog_Printing), 2, u"outer %d %d", inner(), [] {
        KTLog(kLog_Undo, 1, u"innermost");
        return 2;
    }());
    ASSERT_EQ(capture.entries().size(), 3);
    const KTLogCapture::Entry outer = capture.entries().last();
    EXPECT_EQ(outer.message, u"outer 1 2"_s);
    EXPECT_EQ(outer.component, kLog_Printing);
    EXPECT_EQ(outer.level, 2);
}

#include "KTLoggerTests.moc"
