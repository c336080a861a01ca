#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSAttributedString_KTAdditions>
#include <KTUtility/NSData_KTAdditions>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSStringFormat>
#include <KTUtility/NSString_KTAdditions>
#include <KTUtility/NSString_KTNaming>

#include <limits>

namespace {
const NSFormatArgument Arguments[] = {
    NSFormatArgument(42),
    NSFormatArgument(-1LL),
    NSFormatArgument(std::numeric_limits<double>::quiet_NaN()),
    NSFormatArgument(1e300),
    NSFormatArgument(u"text"),
    NSFormatArgument("utf8"),
    NSFormatArgument(nullptr),
    NSFormatArgument(char32_t(0x1F600)),
};
} // namespace

void fuzzNaming(FuzzInput &input)
{
    const QString text = input.text();
    const QString property = KTAdditions::propertyStringFromString(text);
    const QString entity = KTAdditions::entityStringFromString(text);
    KTAdditions::libraryEntityNameFromString(text);
    KTAdditions::lowerCaseNameFromString(text);
    KTAdditions::stringFromBumpyCaseString(text);
    KTAdditions::bumpyCaseStringFromString(text, input.flag());
    KTAdditions::labelString(text);
    KTAdditions::properNounString(text);
    FUZZ_REQUIRE(KTAdditions::tableColumnString(text) == KTAdditions::tableColumnString(text));
    FUZZ_REQUIRE(KTAdditions::tableNameString(text) == KTAdditions::tableNameString(text));
    FUZZ_REQUIRE(property == KTAdditions::propertyStringFromString(text));
    FUZZ_REQUIRE(entity == KTAdditions::entityStringFromString(text));
}

void fuzzFormat(FuzzInput &input)
{
    const size_t count = size_t(input.below(int(std::size(Arguments)) + 1));
    const QString format = input.text();
    const std::span<const NSFormatArgument> arguments(Arguments, count);
    const QString text = NSString::stringWithFormatArguments(format, arguments);
    FUZZ_REQUIRE(text == NSString::stringWithFormatArguments(format, arguments));
}

void fuzzEncodings(FuzzInput &input)
{
    const QByteArray data = input.rest();
    const QString text = QString::fromLatin1(data);
    const QByteArray decoded = KTAdditions::initWithBase64String(text);
    FUZZ_REQUIRE(decoded.size() <= data.size());
    KTAdditions::initWithStringArchive(text);
    FUZZ_REQUIRE(KTAdditions::initWithStringArchive(KTAdditions::archiveToString(data)) == data);
    FUZZ_REQUIRE(KTAdditions::md5Digest(data).size() == 16);
    FUZZ_REQUIRE(KTAdditions::sha1Digest(data).size() == 20);
}

void fuzzPropertyList(FuzzInput &input)
{
    const QVariant list = NSPropertyListSerialization::propertyListFromData(input.rest());
    if (!list.isValid())
        return;
    // Binary lists may hold texts that XML cannot.
    const QByteArray written = NSPropertyListSerialization::dataWithPropertyList(list);
    FUZZ_REQUIRE(NSPropertyListSerialization::isPropertyList(list) == !written.isNull());
    if (written.isNull())
        return;
    // Once written, a list stays as it is.
    const QVariant again = NSPropertyListSerialization::propertyListFromData(written);
    FUZZ_REQUIRE(NSPropertyListSerialization::dataWithPropertyList(again) == written);
}

void fuzzURLs(FuzzInput &input)
{
    const QString text = input.text();
    NSAttributedString attributed(text);
    KTURLTextAdditions::detectURLs(attributed);
    FUZZ_REQUIRE(attributed.string() == text);
    KTURLTextAdditions::_findURLInString(text);
    KTAdditions::integerNumberValue(text);
    KTAdditions::decimalNumberValue(text);
    KTAdditions::boolNumberValue(text);
    KTAdditions::shouldSearchWithCD(text);
}
