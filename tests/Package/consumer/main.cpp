// A program of somebody else, built against the installed framework.

#include <KTUtility/Additions/NSArray_KTAdditions.h>
#include <KTUtility/Additions/NSString_KTNaming.h>
#include <KTUtility/KTAssert.h>
#include <KTUtility/KTLogger.h>

#include <cstdio>

int main()
{
    const QVariantList taken = {QVariantMap{{QStringLiteral("name"), QStringLiteral("Field")}}};
    const QString name = KTAdditions::uniqueStringWithBase(taken, QStringLiteral("Field"));
    KTLogger *logger = KTLogger::sharedLogger();
    logger->setLevelOfComponent(4, kLog_SchemaManager);
    KTLog(kLog_SchemaManager, 4, u"made %@", name);
    KTAssert::KTVerifyCondition(name == u"Field 1", u"unexpected name %@", name);
    std::printf("%s %s\n", qPrintable(name), qPrintable(KTAdditions::tableColumnString(name)));
    return 0;
}
