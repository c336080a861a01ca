// The logger beside Qt's messages, in programs of their own.

#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogger>

#include "support/RunNamedProgram.h"
#include "support/TestSupport.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

using testing_support::runNamedProgram;

namespace {
class QtMessagesTests : public testing::Test
{
protected:
    /// The messages of the log, without what stands before them.
    QStringList logged() const
    {
        QStringList lines = QString::fromUtf8(testing_support::contentsOf(
                                                  home + u"/.local/share/Cobble/Logs/cobble.log"))
                                .split(u'\n', Qt::SkipEmptyParts);
        for (QString &line : lines)
            line = line.mid(line.indexOf(u"][") + 1);
        return lines;
    }

    QString home = testing_support::useFreshHome();
};

/// A handler that others put before the logger's.
QtMessageHandler behindOther = nullptr;
int heardByOther = 0;

void otherHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    ++heardByOther;
    if (behindOther)
        behindOther(type, context, message);
}

/// Whether a message of Qt comes to the logger.
bool isHeardByLogger()
{
    const KTLogCapture capture(u"default"_s, 2);
    qWarning("heard");
    return capture.messages() == QStringList{u"heard"_s};
}

const QStringList SpokenIntoTheLog{u"[expenses.books] a debug\\nmessage"_s,
                                   u"[expenses.books] a warning"_s};
} // namespace

TEST_F(QtMessagesTests, CategoriesThatAreOnGoToTheLog)
{
    const auto result = runNamedProgram({u"follow Qt"_s, u"hear Qt"_s, u"speak in Qt"_s});
    EXPECT_EQ(logged(), SpokenIntoTheLog);
    EXPECT_FALSE(result.console.contains(u"a warning"));
    // What is off goes where it went before.
    EXPECT_TRUE(result.console.contains(u"an information"));
    // Behind those that were there before.
    const QStringList menu = result.texts(u"menu"_s);
    EXPECT_EQ(menu.mid(menu.indexOf(u"Sync"_s) + 1),
              (QStringList{u"expenses.books"_s, u"default"_s}));
}

TEST_F(QtMessagesTests, CapturesCatchThem)
{
    const auto result = runNamedProgram({u"follow Qt"_s, u"capture Qt"_s});
    EXPECT_TRUE(result.console.contains(u"caught expenses.books: a warning\n"));
    EXPECT_FALSE(result.console.contains(u"caught expenses.books: a debug"));
    EXPECT_EQ(logged(), QStringList());
}

TEST_F(QtMessagesTests, TheFormerHandlerComesBack)
{
    const auto result =
        runNamedProgram({u"follow Qt"_s, u"hear Qt"_s, u"do not follow Qt"_s, u"speak in Qt"_s});
    EXPECT_EQ(logged(), QStringList());
    EXPECT_TRUE(result.console.contains(u"expenses.books: a warning"));
}

TEST_F(QtMessagesTests, TheLoggerCanWriteToACategory)
{
    const auto result = runNamedProgram({u"log in Qt"_s, u"raise levels"_s, u"log"_s});
    EXPECT_EQ(logged(), QStringList());
    EXPECT_TRUE(result.console.contains(u"expenses.log: [Import] org.cobble.Cobble at work"))
        << result.console.toStdString();
}

TEST_F(QtMessagesTests, RulesOfQtDecideWhatOfTheCategoryShows)
{
    const auto result =
        runNamedProgram({u"log in Qt"_s, u"raise levels"_s, u"log details"_s, u"log"_s},
                        {{u"QT_LOGGING_RULES"_s, u"expenses.log.debug=false"_s}});
    EXPECT_FALSE(result.console.contains(u"details"));
    EXPECT_TRUE(result.console.contains(u"at work"));
}

TEST_F(QtMessagesTests, BothWaysAtOnceEnd)
{
    const auto result = runNamedProgram({u"follow Qt"_s, u"hear Qt"_s, u"log in Qt"_s,
                                         u"raise levels"_s, u"log"_s, u"speak in Qt"_s});
    EXPECT_EQ(logged(), SpokenIntoTheLog);
    EXPECT_EQ(result.console.count(u"at work"), 1);
}

TEST_F(QtMessagesTests, ComeAgainAfterAnotherHandlerHasGone)
{
    const QtMessageHandler original = qInstallMessageHandler(nullptr);
    KTLogger::setForwardsQtCategories(true);
    EXPECT_TRUE(isHeardByLogger());
    qInstallMessageHandler(otherHandler);
    KTLogger::setForwardsQtCategories(false);
    qInstallMessageHandler(nullptr);
    KTLogger::setForwardsQtCategories(true);
    EXPECT_TRUE(isHeardByLogger());
    KTLogger::setForwardsQtCategories(false);
    qInstallMessageHandler(original);
}

TEST_F(QtMessagesTests, ComeBeforeAHandlerThatHandsOnToTheLogger)
{
    const QtMessageHandler original = qInstallMessageHandler(nullptr);
    KTLogger::setForwardsQtCategories(true);
    behindOther = qInstallMessageHandler(otherHandler);
    KTLogger::setForwardsQtCategories(false);
    KTLogger::setForwardsQtCategories(true);
    heardByOther = 0;
    EXPECT_TRUE(isHeardByLogger());
    EXPECT_EQ(heardByOther, 0);
    // What the logger does not want goes round once, and then where it went at first.
    const QString console = testing_support::standardErrorOf([] { qWarning("not wanted"); });
    EXPECT_EQ(heardByOther, 1);
    EXPECT_EQ(console.count(u"not wanted"), 1) << console.toStdString();
    KTLogger::setForwardsQtCategories(false);
    EXPECT_EQ(qInstallMessageHandler(original), otherHandler);
    behindOther = nullptr;
}

TEST_F(QtMessagesTests, OfCategoriesThatCannotBeStoredLeaveTheSettingsAlone)
{
    const auto result =
        runNamedProgram({u"follow Qt"_s, u"speak unspeakably"_s, u"raise levels"_s});
    EXPECT_FALSE(result.texts(u"menu"_s).contains(QString()));
    EXPECT_FALSE(result.texts(u"menu"_s).join(u'|').contains(QChar(1)));
    EXPECT_EQ(result.facts.value(u"importLevel"_s).toInt(), 7);
    runNamedProgram({u"follow Qt"_s, u"speak unspeakably"_s, u"switch off"_s});
    EXPECT_EQ(runNamedProgram({}).facts.value(u"importLevel"_s).toInt(), 0);
}

TEST_F(QtMessagesTests, AreOffAtFirst)
{
    EXPECT_FALSE(KTLogger::forwardsQtCategories());
    EXPECT_TRUE(KTLogger::qtCategory().isEmpty());
}

TEST_F(QtMessagesTests, CapturesComeBeforeACategory)
{
    KTLogger::setQtCategory("tests.capture");
    EXPECT_EQ(KTLogger::qtCategory(), "tests.capture");
    KTLogger logger;
    const KTLogCapture capture(u"Import"_s, 4, &logger);
    const QString console = testing_support::standardErrorOf(
        [&] { logger.logComponent(u"Import"_s, 4, "f.cpp", 1, u"caught"); });
    KTLogger::setQtCategory({});
    EXPECT_EQ(capture.messages(), QStringList{u"caught"_s});
    EXPECT_FALSE(console.contains(u"caught"));
}
