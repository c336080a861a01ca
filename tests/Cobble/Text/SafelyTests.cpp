#include "Text/Safely.h"

#include <KTUtility/NSException>

#include "support/TestSupport.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

TEST(Safely, GivesWhatTheFunctionGives)
{
    EXPECT_EQ(*safely([] { return Outcome<int>(3); }), 3);
    EXPECT_TRUE(safely([] { return Outcome<>(); }));
    EXPECT_EQ(safely([] { return Outcome<int>(Failure{u"locked"_s}); }).reason(), u"locked"_s);
}

TEST(Safely, WhatIsThrownIsTheReason)
{
    const auto thrown = [](const auto &exception) {
        return safely([&]() -> Outcome<int> { throw exception; }).reason();
    };
    EXPECT_EQ(thrown(std::runtime_error("no room")), u"no room"_s);
    EXPECT_FALSE(thrown(std::bad_alloc()).isEmpty());
    EXPECT_EQ(safely([]() -> Outcome<> {
                  NSException::raise(NSInvalidArgumentException, u"Wrong."_s);
                  return {};
              })
                  .reason()
                  .contains(u"Wrong."),
              true);
}
