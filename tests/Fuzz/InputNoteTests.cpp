#include "InputNote.h"

#include "FuzzTarget.h"

#include <gtest/gtest.h>

TEST(InputNote, SaysAtWhichInputAPromiseWasBroken)
{
    EXPECT_DEATH(
        {
            const InputNote note(3, 17);
            fuzzFailed("2 + 2 == 5", "file", 1);
        },
        "broken: 2 \\+ 2 == 5\ninput 3 of 17 bytes");
}

TEST(InputNote, IsSilentOnceTheInputIsThrough)
{
    EXPECT_DEATH(
        {
            {
                const InputNote note(3, 17);
            }
            fuzzFailed("2 + 2 == 5", "file", 1);
        },
        "broken: 2 \\+ 2 == 5\n$");
}
