#include <KTUtility/KTAssert>
#include <KTUtility/NSAssertionHandler>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::standardErrorOf;

namespace {
/// Keeps what is reported to it and lets the caller go on.
class KeepingHandler : public NSAssertionHandler
{
public:
    KeepingHandler() { setCurrentHandler(this); }
    ~KeepingHandler() override { setCurrentHandler(nullptr); }

    void handleFailureInMethod(const QString &method, const NSAssertionSubject &object,
                               const QString &file, int lineNumber, const QString &description,
                               std::span<const NSFormatArgument> arguments) override
    {
        place = NSString::stringWithFormat(u"%@ %@ %@:%d", object.className(), method, file,
                                           lineNumber);
        isClass = object.isClass();
        text = description;
        argumentCount = arguments.size();
    }

    QString place;
    QString text;
    bool isClass = false;
    size_t argumentCount = 99;
};
} // namespace

TEST(KTAssert, AssertionsLogFirstAndThenRaise)
{
    const QString log = standardErrorOf([] {
        EXPECT_RAISES(KTAssert::KTAssertWithFormat(u"kind %d of %@", 7, u"é"),
                      NSInternalInconsistencyException, u"kind 7 of é"_s);
    });
    const QStringList lines = log.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].endsWith(u"] ASSERTION FAILED: kind 7 of é"));
    EXPECT_TRUE(lines[1].endsWith(u"] *** Assertion failure in +[KTAssert KTAssertWithFormat:], "
                                  u"KTUtility/Diagnostics/KTAssert.cpp:28"))
        << lines[1].toStdString();
}

TEST(KTAssert, TheHandlerLearnsThePlaceOfTheClassAndTheMessageAsFormat)
{
    KeepingHandler handler;
    standardErrorOf([] { KTAssert::KTAssertWithFormat(u"%@", u"100%d"); });
    EXPECT_EQ(handler.place,
              u"KTAssert KTAssertWithFormat: KTUtility/Diagnostics/KTAssert.cpp:28"_s);
    EXPECT_TRUE(handler.isClass);
    EXPECT_EQ(handler.text, u"100%d"_s);
    EXPECT_EQ(handler.argumentCount, 0U);
}

TEST(KTAssert, PercentSequencesAreFormattedASecondTime)
{
    standardErrorOf([] {
        EXPECT_RAISES(KTAssert::KTAssertWithFormat(u"%@", u"a %d %@ %% %s %n"),
                      NSInternalInconsistencyException, u"a 0 (null) % (null) %n"_s);
    });
}

TEST(KTAssert, ANilFormatMakesANilMessage)
{
    const QString log = standardErrorOf([] {
        EXPECT_THROW(KTAssert::KTAssertWithFormat(QStringView()), NSException);
        EXPECT_FALSE(KTAssert::KTVerifyCondition(false, QStringView()));
    });
    EXPECT_TRUE(log.contains(u"ASSERTION FAILED: (null)\n"));
    EXPECT_TRUE(log.endsWith(u"VERIFICATION FAILED: (null)\n"));
}

TEST(KTAssert, ATrueConditionWritesNothing)
{
    EXPECT_TRUE(standardErrorOf([] {
                    EXPECT_TRUE(KTAssert::KTVerifyCondition(true, u"%d", 1));
                }).isEmpty());
}

TEST(KTAssert, AFalseConditionReportsAndReturns)
{
    const QString log = standardErrorOf(
        [] { EXPECT_FALSE(KTAssert::KTVerifyCondition(false, u"library %d has no name", 3)); });
    EXPECT_EQ(log.count(u'\n'), 1);
    EXPECT_TRUE(log.endsWith(u"] VERIFICATION FAILED: library 3 has no name\n"));
}
