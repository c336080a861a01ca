#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/NSData_KTAdditions>

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
