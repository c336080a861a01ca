#include <KTUtility/NSException>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include "support/TestSupport.h"

#include <functional>
#include <stdexcept>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    std::function<void()> raise;
    QString logged;
    QString reason;
};

QList<Row> rows()
{
    return {
        {[] { NSException::raise(u"Broken"_s, u"by hand"_s); }, u"Broken: by hand"_s, u"by hand"_s},
        {[] { NSException::raise(u"Broken"_s, {}); }, u"Broken: "_s, u"Broken"_s},
        {[] { throw std::runtime_error("no more"); }, u"no more"_s, u"no more"_s},
        {[] { throw std::runtime_error(""); }, u"unknown exception"_s, u"unknown exception"_s},
        {[] { throw 5; }, u"unknown exception"_s, u"unknown exception"_s},
    };
}
} // namespace

TEST(ExceptionGuard, LogsWhatIsRaisedAndGoesOn)
{
    for (const Row &row : rows()) {
        const QString console = testing_support::standardErrorOf([&] {
            EXPECT_FALSE(guarded(u"a test", row.raise));
            EXPECT_FALSE(guarded(u"the test", u"x", row.raise));
        });
        EXPECT_TRUE(console.contains(u"*** exception in a test: " + row.logged.trimmed()))
            << console.toStdString();
        EXPECT_TRUE(console.contains(u"*** exception in the test x: " + row.logged.trimmed()));
        EXPECT_EQ(console.count(u'\n'), 2);
    }
}

TEST(ExceptionGuard, SaysNothingWhereNothingIsRaised)
{
    int calls = 0;
    const QString console = testing_support::standardErrorOf(
        [&] { EXPECT_TRUE(guarded(u"a test", [&] { ++calls; })); });
    EXPECT_EQ(console, QString());
    EXPECT_EQ(calls, 1);
}

TEST(ExceptionGuard, ReasonsAreNeverEmpty)
{
    for (const Row &row : rows()) {
        try {
            row.raise();
            FAIL();
        } catch (...) {
            EXPECT_EQ(reasonOfException(), row.reason);
        }
    }
}
