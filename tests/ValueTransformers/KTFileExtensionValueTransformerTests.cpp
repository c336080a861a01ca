#include <KTUtility/KTFileExtensionValueTransformer>
#include <KTUtility/NSUserDefaults>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The flag of the user defaults as long as it lives.
class ShowsAllExtensions
{
public:
    explicit ShowsAllExtensions(bool isSet)
    {
        NSUserDefaults::standardUserDefaults()->setBool(isSet, Key);
    }
    ~ShowsAllExtensions() { NSUserDefaults::standardUserDefaults()->removeObjectForKey(Key); }

private:
    const QString Key = u"AppleShowAllExtensions"_s;
};

const QVariant nil;
} // namespace

TEST(KTFileExtensionValueTransformer, HidesTheExtension)
{
    const auto transformer = KTFileExtensionValueTransformer::valueTransformer();
    EXPECT_EQ(transformer->transformedValue(u"Report.cobble"_s), QVariant(u"Report"_s));
    EXPECT_EQ(transformer->transformedValue(u"a.b.c"_s), QVariant(u"a.b"_s));
    EXPECT_EQ(transformer->transformedValue(5), QVariant(5));
    EXPECT_FALSE(transformer->transformedValue(nil).isValid());
    EXPECT_FALSE(transformer->reverseTransformedValue(u"a"_s).isValid());
    const ShowsAllExtensions flag(true);
    EXPECT_EQ(transformer->transformedValue(u"a.b.c"_s), QVariant(u"a.b.c"_s));
}
