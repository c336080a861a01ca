#include <KTUtility/Platform/Values/FirstFailure_p.h>

#include <gtest/gtest.h>

#include <stdexcept>

using KTPrivate::FirstFailure;

TEST(FirstFailure, AllCallsAreMadeAndTheFirstExceptionIsKept)
{
    FirstFailure failure;
    int calls = 0;
    failure.call([&] { ++calls; });
    for (const char *const text : {"first", "second"})
        failure.call([&] {
            ++calls;
            throw std::runtime_error(text);
        });
    failure.call([&] { ++calls; });
    EXPECT_EQ(calls, 4);
    try {
        failure.rethrow();
        FAIL();
    } catch (const std::runtime_error &first) {
        EXPECT_STREQ(first.what(), "first");
    }
}

TEST(FirstFailure, WithoutFailureNothingIsThrown)
{
    FirstFailure failure;
    failure.call([] {});
    EXPECT_NO_THROW(failure.rethrow());
}
