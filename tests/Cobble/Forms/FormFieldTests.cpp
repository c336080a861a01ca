#include "Forms/FormField.h"

#include "support/TestSupport.h"

#include <KTUtility/NSKeyValueCoding>

using namespace Qt::StringLiterals;

TEST(FormField, RecordsAnswerTheirOwnKeysOnly)
{
    FormRecord record({{u"a"_s, QVariant()}});
    EXPECT_TRUE(record.valueForKey(u"a"_s).has_value());
    EXPECT_FALSE(record.valueForKey(u"b"_s).has_value());
    EXPECT_TRUE(record.setValueForKey(1, u"a"_s));
    EXPECT_FALSE(record.setValueForKey(1, u"b"_s));
}
