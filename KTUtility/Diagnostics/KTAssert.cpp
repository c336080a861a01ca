#include "KTAssert.h"

#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>

using namespace Qt::StringLiterals;

namespace {
/// The line that every assertion reports.
constexpr int AssertionLine = 28;
} // namespace

void KTAssert::failAssertion(const QString &message)
{
    NSLog(u"ASSERTION FAILED: %@", message);
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        u"KTAssertWithFormat:"_s, NSAssertionSubject::classNamed(u"KTAssert"_s),
        QString::fromUtf8(__FILE__), AssertionLine, message);
}

void KTAssert::reportVerification(const QString &message)
{
    NSLog(u"VERIFICATION FAILED: %@", message);
}
