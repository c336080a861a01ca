#include <KTUtility/Platform/Values/WhileAlive_p.h>

#include <gtest/gtest.h>

#include <memory>

using namespace KTPrivate;

TEST(WhileAlive, CallsAsLongAsTheObjectLives)
{
    auto context = std::make_unique<QObject>();
    int sum = 0;
    const std::function<void(int, int)> add = [&](int left, int right) { sum += left * right; };
    const auto call = whileAlive(context.get(), add);
    call(2, 3);
    EXPECT_EQ(sum, 6);
    context.reset();
    call(2, 3);
    EXPECT_EQ(sum, 6);
}

TEST(WhileAlive, WithoutObjectOrFunctionNothingIsCalled)
{
    int calls = 0;
    whileAlive(nullptr, std::function<void()>([&] { ++calls; }))();
    EXPECT_EQ(calls, 0);
    QObject context;
    EXPECT_NO_THROW(whileAlive(&context, std::function<void()>())());
}
