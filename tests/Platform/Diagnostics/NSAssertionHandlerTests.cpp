#include <KTUtility/NSAssertionHandler>
#include <KTUtility/NSException>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <thread>

using namespace Qt::StringLiterals;

namespace {
class RecordingHandler : public NSAssertionHandler
{
public:
    void handleFailureInMethod(const QString &method, const NSAssertionSubject &, const QString &,
                               int lineNumber, const QString &description,
                               std::span<const NSFormatArgument>) override
    {
        record = NSString::stringWithFormat(u"%@ %d %@", method, lineNumber, description);
    }
    QString record;
};

void fail(const NSAssertionSubject &subject)
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(u"check:"_s, subject,
                                                                u"dir/File.cpp"_s, 9, u"why"_s);
}
} // namespace

TEST(NSAssertionHandler, LogsAndRaises)
{
    const TestField field;
    const QString log = testing_support::standardErrorOf([&] {
        EXPECT_RAISES(fail(NSAssertionSubject(&field)), NSInternalInconsistencyException, u"why"_s);
    });
    EXPECT_TRUE(log.endsWith(u"*** Assertion failure in -[TestField check:], dir/File.cpp:9\n"))
        << log.toStdString();
}

TEST(NSAssertionHandler, ClassesAreMarkedWithAPlus)
{
    const QString log = testing_support::standardErrorOf(
        [] { EXPECT_THROW(fail(NSAssertionSubject::classNamed(u"A"_s)), NSException); });
    EXPECT_TRUE(log.contains(u"in +[A check:]"));
}

TEST(NSAssertionHandler, CanBeReplacedForOneThread)
{
    RecordingHandler handler;
    NSAssertionHandler::setCurrentHandler(&handler);
    fail(NSAssertionSubject::classNamed(u"A"_s));
    bool isOwnInThread = false;
    std::thread([&] { isOwnInThread = NSAssertionHandler::currentHandler() != &handler; }).join();
    NSAssertionHandler::setCurrentHandler(nullptr);
    EXPECT_EQ(handler.record, u"check: 9 why"_s);
    EXPECT_TRUE(isOwnInThread);
    EXPECT_NE(NSAssertionHandler::currentHandler(), &handler);
}
