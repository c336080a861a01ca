#include <KTUtility/KTLogFormat>

#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLogger>

#include "support/TestSupport.h"

#include <type_traits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char16_t *format;
    std::size_t arguments;
};
} // namespace

TEST(KTLogFormat, CountsAsTheFormatIsRead)
{
    const Row rows[] = {
        {u"", 0},          {u"plain", 0},         {u"100%%", 0},        {u"%@", 1},
        {u"%@ has %d", 2}, {u"%-8.3f|%+05d", 2},  {u"%*d", 2},          {u"%.*f", 2},
        {u"%2$@ %1$@", 2}, {u"%1$@ %1$@", 1},     {u"%2$*1$d", 2},      {u"%lld %hhu %zu %Lf", 4},
        {u"%y %", 0},      {u"%-5% %C%S%s%p", 4}, {u"%i%D%U%O%a%A", 6}, {u"%'d", 1},
    };
    for (const Row &row : rows) {
        const FormatCount count{std::u16string_view(row.format)};
        for (std::size_t arguments = 0; arguments < 8; ++arguments)
            EXPECT_EQ(count.takes(arguments), arguments == row.arguments)
                << QString::fromUtf16(row.format).toStdString() << ' ' << arguments;
    }
    // The first argument would never show.
    EXPECT_FALSE(FormatCount(u"%2$@").takes(2));
    EXPECT_FALSE(FormatCount(u"%999999999999$@").takes(1));
}

/// What is counted is what is printed: with one argument less, something is missing.
TEST(KTLogFormat, CountsWhatIsPrinted)
{
    for (const char16_t *const format :
         {u"%@", u"%d %@", u"%*d", u"%2$@ %1$@", u"%y %@", u"%-5% %d"}) {
        const std::u16string_view text(format);
        const QString with = NSString::stringWithFormat(format, 3, 4);
        const QString without = NSString::stringWithFormat(format, 3);
        EXPECT_EQ(with != without, FormatCount(text).takes(2))
            << QString::fromUtf16(format).toStdString();
    }
}

TEST(KTLogFormat, TakesFormatsThatAreKnownLater)
{
    static_assert(std::is_convertible_v<QString, KTLogFormat<1>>);
    static_assert(std::is_convertible_v<QStringView, KTLogFormat<1>>);
    static_assert(std::is_convertible_v<const char16_t *, KTLogFormat<1>>);
    const KTLogCapture capture(kLog_Tests, 4);
    const QString later = u"%@ and %@"_s;
    KTLog(kLog_Tests, 4, later, 1);
    KTLog(kLog_Tests, 4, QStringView(later), 1, 2, 3);
    KTLog(kLog_Tests, 4, u"%d of %d", 1, 2);
    EXPECT_EQ(capture.messages(), (QStringList{u"1 and (null)"_s, u"1 and 2"_s, u"1 of 2"_s}));
}
