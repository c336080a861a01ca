#include <KTUtility/SharedFunction>

#include "support/TestSupport.h"

using namespace KTPrivate;

namespace {
using IntFunction = SharedFunction<int(int)>;

int doubled(int value)
{
    return 2 * value;
}
int tripled(int value)
{
    return 3 * value;
}
} // namespace

TEST(SharedFunction, CallsFunctionsAndLambdas)
{
    const int offset = 4;
    EXPECT_EQ(IntFunction(doubled)(3), 6);
    EXPECT_EQ(IntFunction([](int value) { return value + 1; })(3), 4);
    EXPECT_EQ(IntFunction([offset](int value) { return value + offset; })(3), 7);
    EXPECT_TRUE(IntFunction(doubled));
    EXPECT_FALSE(IntFunction());
    EXPECT_FALSE(IntFunction(nullptr));
}

TEST(SharedFunction, CopiesAreEqual)
{
    const int offset = 4;
    const auto lambda = [offset](int value) { return value + offset; };
    const IntFunction function = lambda;
    const IntFunction copy = function;
    EXPECT_EQ(copy, function);
    EXPECT_NE(IntFunction(lambda), function);
    EXPECT_EQ(IntFunction(doubled), IntFunction(doubled));
    EXPECT_NE(IntFunction(doubled), IntFunction(tripled));
    EXPECT_NE(IntFunction(), function);
    EXPECT_EQ(IntFunction(), IntFunction());
}
