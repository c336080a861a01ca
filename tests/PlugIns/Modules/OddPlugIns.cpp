// Principal classes that each do one thing differently, in one module.

#include "TestExporter.h"

#include <KTUtility/KTPlugInClass>
#include <KTUtility/NSBundle>
#include <KTUtility/NSException>

#include <cstdlib>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {
/// What the classes have in common.
class Odd : public QObject, public TestExporter
{
public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
    QString fileType() const override { return u"odd"_s; }
};
} // namespace

/// Does not say that it conforms to anything.
class NonconformingExporter : public Odd
{
public:
    static void pluginDidLoadBundle(const NSBundle &, QObject *updateHandler)
    {
        addEvent(updateHandler, u"nonconforming did load"_s);
    }
};
KT_PRINCIPAL_CLASS(NonconformingExporter)

/// Does not want to know when it is loaded.
class QuietExporter final : public Odd
{
};
KT_PRINCIPAL_CLASS(QuietExporter, TestExporter)

class ThrowingExporter : public Odd
{
public:
    ThrowingExporter() { throw std::runtime_error("no licence"); }
};
KT_PRINCIPAL_CLASS(ThrowingExporter, TestExporter)

/// Takes the whole program along.
class EndingExporter : public Odd
{
public:
    EndingExporter() { std::abort(); }
};
KT_PRINCIPAL_CLASS(EndingExporter, TestExporter)

class RaisingExporter : public Odd
{
public:
    RaisingExporter() { NSException::raise(NSRangeException, u"too far"_s); }
};
KT_PRINCIPAL_CLASS(RaisingExporter, TestExporter)

class ThrowingNumbersExporter : public Odd
{
public:
    ThrowingNumbersExporter() { throw 5; }
};
KT_PRINCIPAL_CLASS(ThrowingNumbersExporter, TestExporter)

/// Cannot be made without arguments.
class DemandingExporter : public Odd
{
public:
    explicit DemandingExporter(int) {}
};
KT_PRINCIPAL_CLASS(DemandingExporter, TestExporter)

/// Its class throws when it is notified of something.
class NervousExporter : public Odd
{
public:
    static void pluginDidLoadBundle(const NSBundle &, QObject *updateHandler)
    {
        if (!updateHandler || updateHandler->property("nervous").toBool())
            throw std::runtime_error("not now");
    }
    static void pluginWillUnload() { throw std::runtime_error("not yet"); }
    static void pluginDidUnload() { throw std::runtime_error("not ever"); }
};
KT_PRINCIPAL_CLASS(NervousExporter, TestExporter)

namespace Acme {
class Exporter : public Odd
{
};
} // namespace Acme
KT_PRINCIPAL_CLASS(Acme::Exporter, TestExporter)

/// A class that is registered, but not as a principal class.
class BareExporter : public Odd
{
};
KT_REGISTER_CLASS(BareExporter, TestExporter)
