// Moves over random lists, beside the rules written out step by step.

#include <KTUtility/NSException>
#include <KTUtility/NSMutableArray_KTAdditions>

#include "support/Properties.h"
#include "support/TestSupport.h"

#include <optional>

using namespace testing_support;

namespace {
QStringList movedStepByStep(const QStringList &list, const QString &object, qsizetype toIndex)
{
    const std::optional<QString> anchor =
        toIndex >= 0 && toIndex < list.size() ? std::optional(list.at(toIndex)) : std::nullopt;
    if (anchor == object)
        return list;
    QStringList result;
    bool isPlaced = false;
    for (const QString &element : list) {
        if (element == object)
            continue;
        if (!isPlaced && element == anchor) {
            result += object;
            isPlaced = true;
        }
        result += element;
    }
    if (!isPlaced)
        result += object;
    return result;
}

QStringList someLetters(int longest)
{
    QStringList list;
    for (int count = someNumber(0, longest); count > 0; --count)
        list += QString(QChar(u'a' + char16_t(someNumber(0, 6))));
    return list;
}
} // namespace

TEST(NSMutableArray_KTAdditionsModel, MovesAreThoseOfTheSteps)
{
    checkProperty("a sequence of moves", 1500, [] {
        QStringList list = someLetters(8);
        for (int move = 0; move < 6; ++move) {
            const QString object = QString(QChar(u'a' + char16_t(someNumber(0, 6))));
            const int index = someNumber(-1, 10);
            const QStringList expected = movedStepByStep(list, object, index);
            KTMutableArrayAdditions::moveObject(list, object, index);
            RC_ASSERT((list == expected));
        }
    });
}

TEST(NSMutableArray_KTAdditionsModel, AMovedElementStandsBeforeItsAnchor)
{
    checkProperty("moves of distinct elements", 500, [] {
        QList<int> list;
        for (int count = someNumber(1, 9); count > 0; --count)
            list += int(list.size());
        const QList<int> before = list;
        const int object = someOf(before);
        const int index = someNumber(0, 10);
        KTMutableArrayAdditions::moveObject(list, object, index);
        QList<int> sorted = list;
        std::sort(sorted.begin(), sorted.end());
        RC_ASSERT((sorted == before));
        if (index >= before.size())
            RC_ASSERT((list.last() == object));
        else if (before.at(index) != object)
            RC_ASSERT((list.at(list.indexOf(before.at(index)) - 1) == object));
        else
            RC_ASSERT((list == before));
    });
}

TEST(NSMutableArray_KTAdditionsModel, BlocksAreInsertedWhole)
{
    checkProperty("insertObjects", 1000, [] {
        QStringList list = someLetters(6);
        const QStringList block = someLetters(6);
        const int index = someNumber(-1, 7);
        if (index < 0 || index > list.size()) {
            const QStringList before = list;
            RC_ASSERT_THROWS_AS(KTMutableArrayAdditions::insertObjects(list, block, index),
                                NSException);
            RC_ASSERT((list == before));
            return;
        }
        const QStringList expected = list.mid(0, index) + block + list.mid(index);
        KTMutableArrayAdditions::insertObjects(list, block, index);
        RC_ASSERT((list == expected));
    });
}
