#include <KTUtility/Platform/Keys/MissingSelector_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
class Receiver : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void none() {}
    Q_INVOKABLE void one(int) {}
    Q_INVOKABLE void two(int, int) {}
    Q_INVOKABLE void twice(int) {}
    Q_INVOKABLE void twice(const QString &) {}
};

QString reportOf(const QObject *receiver, const char *selector, int arguments)
{
    return testing_support::standardErrorOf(
        [&] { reportMissingSelector(receiver, selector, arguments, u"a test"); });
}
} // namespace

TEST(MissingSelector, SaysNothingOfWhatCanBeSent)
{
    const Receiver receiver;
    for (const char *const selector : {"none", "one", "one:", ""})
        EXPECT_EQ(reportOf(&receiver, selector, 1), QString()) << selector;
    EXPECT_EQ(reportOf(&receiver, "two:two:", 2), QString());
    EXPECT_EQ(reportOf(nullptr, "none", 0), QString());
}

TEST(MissingSelector, IsToldOnceForEachClassAndSelector)
{
    const Receiver receiver, other;
    const QString told = reportOf(&receiver, "nnoe:", 1);
    EXPECT_TRUE(told.endsWith(u"*** a test: -[Receiver nnoe:]: there is no such method\n"))
        << told.toStdString();
    EXPECT_EQ(reportOf(&other, "nnoe:", 1), QString());
    EXPECT_NE(reportOf(&other, "nnoee:", 1), QString());
    const QObject plain;
    EXPECT_TRUE(reportOf(&plain, "nnoe:", 1).contains(u"-[QObject nnoe:]"));
}

TEST(MissingSelector, MethodsTakeNoMoreArgumentsThanThereAre)
{
    const Receiver receiver;
    EXPECT_NE(reportOf(&receiver, "two:two:", 1), QString());
    EXPECT_NE(reportOf(&receiver, "two", 1), QString());
}

TEST(MissingSelector, TwoMethodsAreTold)
{
    const Receiver receiver;
    EXPECT_TRUE(reportOf(&receiver, "twice:", 1).contains(u"the selector fits both"));
}

#include "MissingSelectorTests.moc"
