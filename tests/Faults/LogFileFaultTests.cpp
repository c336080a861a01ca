// The log file while the disk fails.

#include "FaultInjector.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogger>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
class LogFileFaultTests : public testing::TestWithParam<Fault>
{
protected:
    LogFileFaultTests() : home(testing_support::useFreshHome()), logger()
    {
        logger.setLevelOfComponent(4, kLog_Tests);
    }

    void log(const char16_t *text)
    {
        logger.logComponent(kLog_Tests, 4, "File.cpp", 1, u"<%@>", QString::fromUtf16(text));
    }

    /// What was logged, without dates; a line that is not whole as it is.
    QStringList messages() const
    {
        const QString text =
            QString::fromUtf8(testing_support::contentsOf(logger.logFolder() + u"/cobble.log"));
        QStringList messages = text.split(u'\n');
        for (QString &message : messages) {
            if (message.endsWith(u'>'))
                message = message.mid(message.indexOf(u'<'));
        }
        EXPECT_EQ(messages.takeLast(), QString()) << "the last line has no end";
        return messages;
    }

    QString home;
    KTLogger logger;
};

std::string nameOfFault(const testing::TestParamInfo<Fault> &fault)
{
    return nameOf(fault.param);
}
} // namespace

TEST_P(LogFileFaultTests, LaterLinesArriveWhole)
{
    const auto outcome = FaultInjector::during(home, GetParam(), 1, [this] {
        log(u"one");
        log(u"two");
    });
    EXPECT_TRUE(outcome.wasHit);
    EXPECT_EQ(outcome.call, FileCall::Write);
    log(u"three");
    log(u"four");
    QStringList lines = messages();
    const bool isPassing = GetParam() == Fault::Interrupted || GetParam() == Fault::ShortWrite;
    EXPECT_EQ(lines.removeAll(u"<one>"_s), isPassing ? 1 : 0);
    // Half of a line may be there, but nothing hangs on it.
    const bool isFull = GetParam() == Fault::DiskFull;
    EXPECT_EQ(lines.removeAll(u"<two>"_s), isFull ? 0 : 1);
    EXPECT_FALSE(isFull && lines.takeFirst().contains(u'<'));
    EXPECT_EQ(lines, QStringList({u"<three>"_s, u"<four>"_s}));
}

TEST_P(LogFileFaultTests, WithoutAFileLinesAreLostAndTheProgramGoesOn)
{
    const QString another = testing_support::useFreshHome();
    std::unique_ptr<KTLogger> made;
    for (int number = 1;; ++number) {
        const auto outcome = FaultInjector::during(
            another, GetParam(), number, [&made] { made = std::make_unique<KTLogger>(); });
        made->setLevelOfComponent(4, kLog_Tests);
        made->logComponent(kLog_Tests, 4, "File.cpp", 1, u"<one>");
        EXPECT_EQ(made->levelOfComponent(kLog_Tests), 4);
        if (!outcome.wasHit)
            break;
    }
    const QByteArray text = testing_support::contentsOf(made->logFolder() + u"/cobble.log");
    EXPECT_TRUE(text.endsWith("<one>\n"));
}

TEST_P(LogFileFaultTests, SettingsThatWereMissedAtTheStartAreKept)
{
    std::unique_ptr<KTLogger> made;
    for (int number = 1;; ++number) {
        const auto outcome = FaultInjector::during(
            home, GetParam(), number, [&made] { made = std::make_unique<KTLogger>(); });
        made->setLevelOfComponent(number, kLog_Undo);
        EXPECT_EQ(KTLogger().levelOfComponent(kLog_Undo), number) << nameOf(outcome.call);
        EXPECT_EQ(KTLogger().levelOfComponent(kLog_Tests), 4) << nameOf(outcome.call);
        if (!outcome.wasHit)
            break;
    }
}

TEST_P(LogFileFaultTests, SettingsThatCannotBeReadAreNotWrittenOver)
{
    for (int number = 1;; ++number) {
        std::unique_ptr<KTLogger> made;
        const auto outcome = FaultInjector::during(
            home, GetParam(), number, [&made] { made = std::make_unique<KTLogger>(); });
        // The first call is that which reads what was missed, if something was.
        FaultInjector::during(home, GetParam(), 1,
                              [&made] { made->setLevelOfComponent(2, kLog_Undo); });
        EXPECT_EQ(KTLogger().levelOfComponent(kLog_Tests), 4) << nameOf(outcome.call);
        if (!outcome.wasHit)
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, LogFileFaultTests,
                         testing::Values(Fault::InputOutput, Fault::NoSpace, Fault::DiskFull,
                                         Fault::Interrupted, Fault::ShortWrite),
                         nameOfFault);
