#include <KTUtility/NSException>

#include "support/TestSupport.h"

TEST(NSException, CarriesNameAndReason)
{
    const NSException exception(NSRangeException, QStringLiteral("index 9 beyond 3"));
    EXPECT_EQ(exception.name(), NSRangeException);
    EXPECT_EQ(exception.reason(), QStringLiteral("index 9 beyond 3"));
    EXPECT_STREQ(exception.what(), "NSRangeException: index 9 beyond 3");
}

TEST(NSException, RaiseThrows)
{
    EXPECT_RAISES(NSException::raise(NSInvalidArgumentException, QStringLiteral("nil argument")),
                  NSInvalidArgumentException, QStringLiteral("nil argument"));
}

TEST(NSException, IsAStandardExceptionAndCopyable)
{
    try {
        NSException::raise(NSInternalInconsistencyException, QStringLiteral("Größe"));
        FAIL() << "nothing was raised";
    } catch (const std::exception &exception) {
        EXPECT_STREQ(exception.what(), "NSInternalInconsistencyException: Größe");
    }
}

TEST(NSException, TheUndefinedKeyNameIsThePlatforms)
{
    EXPECT_EQ(NSUndefinedKeyException, QStringLiteral("NSUnknownKeyException"));
}
