#include "FaultInjector.h"
#include "FaultScenario.h"

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLogger>

#include <QDir>

#include <gtest/gtest.h>

#include <optional>

namespace {
constexpr std::array<Fault, 7> AllFaults = {
    Fault::InputOutput, Fault::NoSpace,    Fault::DiskFull, Fault::NoAccess,
    Fault::Interrupted, Fault::ShortWrite, Fault::ShortRead};

/// Far more calls than any of them makes.
constexpr int MostCalls = 5000;

QList<FaultRow> allScenarios()
{
    return platformScenarios() + frameworkScenarios() + hostScenarios();
}

using Answer = FaultScenario::Answer;
using Kinds = std::array<int, FileCallKinds>;

std::string textOf(const FileState &state)
{
    QByteArray text;
    for (auto entry = state.begin(); entry != state.end(); ++entry)
        text += "  " + entry.key().toUtf8() + ": " + QByteArray::number(entry->size()) + '\n';
    return text.toStdString();
}

class FaultTests : public testing::TestWithParam<std::tuple<FaultRow, Fault>>
{
protected:
    FaultTests() : row(std::get<0>(GetParam())), fault(std::get<1>(GetParam()))
    {
        testing_support::needApplication();
        // It makes its file in the home that is there when it is first asked for.
        KTLogger::sharedLogger();
    }

    void SetUp() override
    {
        begin();
        before = stateOf(home);
        EXPECT_TRUE(scenario->seenAfter(scenario->act()).isDone);
        scenario->settle();
        after = stateOf(home);
        EXPECT_NE(before, after);
    }
    void TearDown() override
    {
        scenario.reset();
        // What comes after this is to find room where it had it before.
        temporaryFolder.reset();
    }

    /// The state before, in an empty home. Temporary files lie there, too.
    void begin()
    {
        scenario.reset();
        if (home.isNull())
            home = testing_support::useFreshHome();
        QDir(home).removeRecursively();
        QDir().mkpath(home + u"/tmp");
        temporaryFolder.reset();
        temporaryFolder.emplace("TMPDIR", (home + u"/tmp").toLocal8Bit());
        scenario = row.make(home);
    }

    /// Lets the \a number th call fail.
    /// \return whether there are that many.
    bool failCall(int number)
    {
        begin();
        Answer answer;
        const auto outcome =
            FaultInjector::during(home, fault, number, [&] { answer = scenario->act(); });
        answer = scenario->seenAfter(answer);
        if (!outcome.wasHit) {
            seen = outcome.seen;
            expectDone(answer);
            return false;
        }
        failed[size_t(outcome.call)] += 1;
        SCOPED_TRACE(std::string(nameOf(outcome.call)) + ", call " + std::to_string(number));
        check(answer, outcome.call);
        return true;
    }

    /// The old files or the new ones, and the caller knows which.
    void check(const Answer &answer, FileCall call)
    {
        scenario->settle();
        const FileState now = stateOf(home);
        const bool isAsTold =
            answer.isDone ? scenario->isAsAfter(now, after) : scenario->isAsBefore(now, before);
        EXPECT_TRUE(isAsTold) << (answer.isDone ? "done" : "not done") << ", and now:\n"
                              << textOf(now) << "before:\n"
                              << textOf(before) << "after:\n"
                              << textOf(after);
        EXPECT_FALSE(!answer.isDone && row.givesReasons && answer.reason.isEmpty());
        EXPECT_TRUE(answer.isDone || !mustSucceed(call)) << answer.reason.toStdString();
        if (!answer.isDone && scenario->canBeTriedAgain())
            expectDone(scenario->seenAfter(scenario->act()));
    }

    /// Whether going on is all that there is to do.
    bool mustSucceed(FileCall call) const
    {
        const bool isPassing =
            fault == Fault::ShortWrite || fault == Fault::ShortRead || fault == Fault::Interrupted;
        return isPassing && !(row.usesDatabase && call == FileCall::Flush);
    }

    void expectDone(const Answer &answer)
    {
        EXPECT_TRUE(answer.isDone) << answer.reason.toStdString();
        scenario->settle();
        const FileState now = stateOf(home);
        EXPECT_TRUE(now == after) << "now:\n" << textOf(now) << "expected:\n" << textOf(after);
    }

    /// Each kind of call that is made and can fail so did fail.
    void expectAllKindsFailed() const
    {
        for (size_t kind = 0; kind < seen.size(); ++kind) {
            const bool canFail = FaultInjector::canHit(fault, FileCall(kind));
            EXPECT_TRUE(failed[kind] > 0 || seen[kind] == 0 || !canFail) << nameOf(FileCall(kind));
        }
    }

    void recordCounts() const
    {
        for (size_t kind = 0; kind < failed.size(); ++kind)
            RecordProperty(std::string("failed_") + nameOf(FileCall(kind)), failed[kind]);
    }

    FaultRow row;
    Fault fault;
    QString home;
    std::optional<testing_support::EnvironmentGuard> temporaryFolder;
    std::unique_ptr<FaultScenario> scenario;
    FileState before;
    FileState after;
    Kinds seen{};
    Kinds failed{};
};

std::string nameOfCase(const testing::TestParamInfo<std::tuple<FaultRow, Fault>> &info)
{
    return std::string(std::get<0>(info.param).name) + "_" + nameOf(std::get<1>(info.param));
}
} // namespace

TEST_P(FaultTests, LeavesTheOldFilesOrTheNew)
{
    int number = 1;
    while (number < MostCalls && failCall(number))
        ++number;
    EXPECT_LT(number, MostCalls);
    expectAllKindsFailed();
    recordCounts();
}

INSTANTIATE_TEST_SUITE_P(Files, FaultTests,
                         testing::Combine(testing::ValuesIn(allScenarios()),
                                          testing::ValuesIn(AllFaults)),
                         nameOfCase);
