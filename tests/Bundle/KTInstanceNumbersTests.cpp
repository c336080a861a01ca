#include <KTUtility/Bundle/KTInstanceNumbers_p.h>
#include <KTUtility/Bundle/KTMediaNames_p.h>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/NSFileManager>

#include "support/FileTree.h"
#include "support/LoopbackServer.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

using Munger = KTMediaFilenameMunger;
using testing_support::FileTree;
using testing_support::LoopbackServer;
using testing_support::rowsOf;

namespace {
QJsonValue valueOf(const QString &text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

template<QString (*Method)(const QString &)>
QJsonValue call(const QString &text, const QString &)
{
    return valueOf(Method(text));
}

/// The search for a number as its rules have it, asking the file system for each.
int nextNumberStepByStep(const QString &path, QList<int> *asked)
{
    const auto isTaken = [&](int number) {
        *asked += number;
        return NSFileManager::fileExistsAtPath(
            KTMediaNames::pathByAddingExtComment(path, QString::number(number)));
    };
    int number = 0;
    for (; number <= 3; ++number) {
        if (!isTaken(number))
            return number;
    }
    int low = 0;
    for (number = 4; isTaken(number); number *= 2)
        low = number;
    int lastFree = number;
    while (!isTaken(number)) {
        lastFree = number;
        number = (low + number) / 2;
    }
    for (; number <= lastFree; ++number) {
        if (!isTaken(number))
            return number;
    }
    return -1;
}

/// A folder of copies with random gaps; each call makes another kind.
void addRandomCopies(const FileTree &tree, QRandomGenerator &random, int dense, int scattered)
{
    tree.addCopies(u"photo.%d.jpg"_s, 0, dense - 1);
    for (int count = 0; count < scattered; ++count) {
        const int number = random.bounded(2 * dense + 10);
        tree.addCopies(u"photo.%d.jpg"_s, number, number);
    }
    for (int count = random.bounded(4); count > 0; --count)
        QFile::remove(tree.path(u"photo.%1.jpg"_s.arg(random.bounded(dense + 1))));
}

void expectSameSearch(const QString &path)
{
    QList<int> expectedSteps;
    const int expected = nextNumberStepByStep(path, &expectedSteps);
    QList<int> steps;
    EXPECT_EQ(KTInstanceNumbers(path).next([&](int number) { steps += number; }), expected);
    EXPECT_EQ(steps, expectedSteps);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), expected);
}
} // namespace

TEST(KTInstanceNumbers, AreThoseOfTheSteps)
{
    QRandomGenerator random(11);
    for (int round = 0; round < 60; ++round) {
        const FileTree tree;
        addRandomCopies(tree, random, random.bounded(1, 90), random.bounded(40));
        expectSameSearch(tree.path(u"photo.jpg"_s));
    }
}

TEST(KTInstanceNumbers, AreThoseOfTheStepsInLargeFolders)
{
    // The copies on which the search comes to a long walk, from 10,240 up to the first gap.
    for (const int gap : {10500, 11239, 11240, 11241, 11800, 12287, 12288}) {
        const FileTree tree;
        tree.addCopies(u"photo.%d.jpg"_s, 0, 3);
        for (int number = 4; number <= 8192; number *= 2)
            tree.addCopies(u"photo.%d.jpg"_s, number, number);
        tree.addCopies(u"photo.%d.jpg"_s, 10240, gap - 1);
        tree.addCopies(u"photo.%d.jpg"_s, gap + 1, std::min(gap + 20, 12287));
        tree.addCopies(u"photo.0%d.jpg"_s, gap, gap);
        tree.addCopies(u"photo.%d.jpg.jpg"_s, gap, gap);
        tree.addCopies(u"other.%d.jpg"_s, gap, gap);
        QFile::link(tree.path(u"nowhere"_s), tree.path(u"photo.%1.jpg"_s.arg(gap)));
        expectSameSearch(tree.path(u"photo.jpg"_s));
        expectSameSearch(tree.path(u"photo.jpg"_s) + u'/');
        expectSameSearch(tree.path(u"none/../photo.jpg"_s));
        QFile::link(tree.path(u"photo.0.jpg"_s), tree.path(u"photo.%1.jpg"_s.arg(gap + 100)));
        expectSameSearch(tree.path(u"photo.jpg"_s));
    }
}

TEST(KTInstanceNumbers, GapsBelowAreNotReused)
{
    const FileTree tree;
    tree.addCopies(u"a.%d.jpg"_s, 0, 8);
    QFile::remove(tree.path(u"a.5.jpg"_s));
    QList<int> asked;
    EXPECT_EQ(KTInstanceNumbers(tree.path(u"a.jpg"_s)).next([&](int number) { asked += number; }),
              9);
    EXPECT_EQ(asked, QList<int>({0, 1, 2, 3, 4, 8, 16, 16, 12, 10, 9, 8, 8, 9}));
}

TEST(KTInstanceNumbers, LinksCountIfTheyLeadSomewhere)
{
    const FileTree tree;
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"a.0.jpg"_s));
    const QString path = tree.path(u"a.jpg"_s);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), 0);
    tree.add(u"nowhere"_s);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(path), 1);
}

TEST(KTInstanceNumbers, NumbersEndBeforeTheyOverflow)
{
    const FileTree tree;
    tree.addCopies(u"a.%d.jpg"_s, 0, 3);
    for (int number = 4; number > 0 && number <= 1 << 30; number += number < 1 << 30 ? number : 1)
        tree.addCopies(u"a.%d.jpg"_s, number, number);
    EXPECT_EQ(Munger::nextInstanceNumberForOriginalFilename(tree.path(u"a.jpg"_s)), -1);
}
