#include <KTUtility/Formatters/NameSearch_p.h>

#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <set>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Owners = std::vector<qsizetype>;

QString someText(QRandomGenerator &random, int longest)
{
    QString text(random.bounded(1, longest + 1), u' ');
    for (QChar &unit : text)
        unit = QChar(char16_t(u'a' + random.bounded(3)));
    return text;
}
} // namespace

TEST(NameSearch, RunsItsExample)
{
    NameSearch search;
    search.add(u"euro"_s, 0);
    search.add(u"dollar"_s, 1);
    search.prepare();
    EXPECT_EQ(search.foundIn(u"5 dollars"), Owners({1}));
    EXPECT_EQ(search.foundIn(u"euro, dollar"), Owners({0, 1}));
    EXPECT_EQ(search.foundIn(u"5 eur"), Owners());
    EXPECT_EQ(search.foundIn(u""), Owners());
}

TEST(NameSearch, FindsNamesThatBeginAlikeOrStandInEachOther)
{
    NameSearch search;
    search.add(u"kr"_s, 3);
    search.add(u"kr"_s, 1);
    search.add(u"krone"_s, 2);
    search.add(u"one"_s, 0);
    search.prepare();
    EXPECT_EQ(search.foundIn(u"5 krone"), Owners({0, 1, 2, 3}));
    EXPECT_EQ(search.foundIn(u"5 krkr"), Owners({1, 3}));
    EXPECT_EQ(search.foundIn(u"\u016Bne \u016Fne"), Owners());
}

TEST(NameSearch, FindsWhatLookingForEachFinds)
{
    QRandomGenerator random(9);
    for (int round = 0; round < 300; ++round) {
        NameSearch search;
        std::vector<QString> names;
        for (int count = random.bounded(30); count > 0; --count) {
            names.push_back(someText(random, 5));
            search.add(names.back(), qsizetype(names.size()) % 7);
        }
        search.prepare();
        for (int count = 0; count < 20; ++count) {
            const QString text = someText(random, 12);
            std::set<qsizetype> expected;
            for (size_t index = 0; index < names.size(); ++index) {
                if (text.contains(names[index]))
                    expected.insert(qsizetype(index + 1) % 7);
            }
            EXPECT_EQ(search.foundIn(text), Owners(expected.begin(), expected.end()));
        }
    }
}
