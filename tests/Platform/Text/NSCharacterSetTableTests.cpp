#include <KTUtility/NSCharacterSet>

#include "support/NamedCharacterSets.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::rowsOf;

TEST(NSCharacterSetTable, EveryRowIsAMemberOrNot)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/character_sets.jsonl"_s)) {
        const QString code = row.value(u"codepoint"_s).toString();
        const QString name = row.value(u"set"_s).toString();
        if (!code.startsWith(u"U+"))
            continue;
        const char32_t character = code.mid(2).toUInt(nullptr, 16);
        EXPECT_EQ(testing_support::characterSetNamed(name).characterIsMember(character),
                  row.value(u"member"_s).toBool())
            << name.toStdString() << ' ' << code.toStdString();
        ++rows;
    }
    EXPECT_GE(rows, 150);
}
