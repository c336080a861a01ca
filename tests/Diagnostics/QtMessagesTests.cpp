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
    EXPECT_EQ(result.texts(u"menu"_s).mid(41, 2), (QStringList{u"expenses.books"_s, u"default"_s}));
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
