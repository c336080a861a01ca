// Observers that answer changes with changes.

#include <KTUtility/Platform/Keys/ChangeChain_p.h>

#include <KTUtility/NSKeyValueObservation>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
class NamedSource : public ChangeSource
{
public:
    explicit NamedSource(const QString &name) : _name(name) {}
    QString changingName() const override { return _name; }

private:
    QString _name;
};

/// Sets a record's number to one more than another's whenever that changes.
NSKeyValueObservation oneMore(ObservedRecord *from, ObservedRecord *to)
{
    return NSKeyValueObservation(
        from, u"number", NSKeyValueObservingOptionNew,
        [to](const NSKeyValueChange &change) { to->setNumber(change.newValue->toInt() + 1); });
}
} // namespace

TEST(ChangeChain, TellsTheWayOfWhatNeverSettles)
{
    const NamedSource a(u"a"_s);
    const NamedSource b(u"b"_s);
    int rounds = 0;
    const auto go = [&](const auto &self) -> void {
        const ChangeChain ofA(&a);
        if (ofA.isEndless())
            return;
        ++rounds;
        const ChangeChain ofB(&b);
        self(self);
        self(self);
    };
    const QString logged = testing_support::standardErrorOf([&] { go(go); });
    EXPECT_EQ(rounds, ChangeChain::MostRounds);
    EXPECT_EQ(logged.count(u"without end: a → b → a"_s), 1) << qPrintable(logged);
    // Once all has come back, it goes on.
    const ChangeChain again(&a);
    EXPECT_FALSE(again.isEndless());
}

TEST(ChangeChain, ObserversThatAnswerEachOtherEnd)
{
    ObservedRecord first(u"A"_s, 0);
    ObservedRecord second(u"B"_s, 0);
    const NSKeyValueObservation there = oneMore(&first, &second);
    const NSKeyValueObservation back = oneMore(&second, &first);
    const QString logged = testing_support::standardErrorOf([&] { first.setNumber(1); });
    EXPECT_TRUE(logged.contains(u".number → <ObservedRecord 0x"_s)) << qPrintable(logged);
    EXPECT_EQ(logged.count(u"without end"_s), 1);
    EXPECT_GT(first.number(), 100);
    EXPECT_LT(first.number(), 1000);
}

TEST(ChangeChain, ValuesThatSettleAreNoLoop)
{
    ObservedRecord first(u"A"_s, 0);
    int calls = 0;
    const NSKeyValueObservation upToHundred(&first, u"number", NSKeyValueObservingOptionNew,
                                            [&](const NSKeyValueChange &change) {
                                                ++calls;
                                                if (change.newValue->toInt() < 100)
                                                    first.setNumber(first.number() + 1);
                                            });
    const QString logged = testing_support::standardErrorOf([&] { first.setNumber(1); });
    EXPECT_EQ(logged, QString());
    EXPECT_EQ(first.number(), 100);
    EXPECT_EQ(calls, 100);
}
