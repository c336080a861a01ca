#pragma once

#include <KTUtility/NSAnimation>

#include "support/ClockedTest.h"

#include <functional>

/// Counts the ends of animations, and says whether they may start.
class TestDelegate : public NSAnimationDelegate
{
public:
    bool animationShouldStart(NSAnimation *) override { return allows; }
    void animationDidEnd(NSAnimation *) override
    {
        ++ends;
        if (atEnd)
            atEnd();
    }
    bool allows = true;
    int ends = 0;
    std::function<void()> atEnd;
};
