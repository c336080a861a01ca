#include <KTUtility/NSException>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSException, CarriesNameAndReason)
{
    const NSException exception(NSRangeException, u"index 9 beyond 3"_s);
    EXPECT_EQ(exception.name(), NSRangeException);
    EXPECT_EQ(exception.reason(), u"index 9 beyond 3"_s);
    EXPECT_STREQ(exception.what(), "NSRangeException: index 9 beyond 3");
}

TEST(NSException, RaiseThrows)
{
    EXPECT_RAISES(NSException::raise(NSInvalidArgumentException, u"nil argument"_s),
                  NSInvalidArgumentException, u"nil argument"_s);
}

TEST(NSException, IsAStandardExceptionAndCopyable)
{
    try {
        NSException::raise(NSInternalInconsistencyException, u"Größe"_s);
        FAIL() << "nothing was raised";
    } catch (const std::exception &exception) {
        EXPECT_STREQ(exception.what(), "NSInternalInconsistencyException: Größe");
    }
}

TEST(NSException, TheUndefinedKeyNameIsThePlatforms)
{
    EXPECT_EQ(NSUndefinedKeyException, u"NSUnknownKeyException"_s);
}
