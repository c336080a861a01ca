#include "PlugInCode_p.h"

#include "KTPlugInClass.h"

#include <exception>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Runs code of a plug-in; what it threw, or nil.
template<typename Action>
QString failureOf(const Action &action)
{
    try {
        action();
        return {};
    } catch (const std::exception &exception) {
        return u"threw "_s + QString::fromUtf8(exception.what());
    } catch (...) {
        return u"threw something that is no std::exception"_s;
    }
}

/// A class as one that can be notified; null if it is merely a registered one.
const KTPlugInClass *receiverOf(const NSClass *principalClass)
{
    return dynamic_cast<const KTPlugInClass *>(principalClass);
}

/// Sends a class something, if it is more than a registered class.
QString tell(const NSClass *principalClass, void (KTPlugInClass::*message)() const)
{
    const KTPlugInClass *const receiver = receiverOf(principalClass);
    if (!receiver)
        return {};
    const QString failure = failureOf([&] { (receiver->*message)(); });
    return failure.isNull() ? QString() : receiver->name() + u' ' + failure;
}
} // namespace

std::unique_ptr<QObject> PlugInCode::newInstance(const NSClass &principalClass,
                                                 const NSBundle &bundle, QObject *coordinator,
                                                 QString *error)
{
    std::unique_ptr<QObject> object;
    const QString failure = failureOf([&] {
        if (const KTPlugInClass *const receiver = receiverOf(&principalClass))
            receiver->pluginDidLoadBundle(bundle, coordinator);
        object = principalClass.newInstance();
    });
    if (!object && !failure.isNull())
        *error = principalClass.name() + u' ' + failure;
    return object;
}

bool PlugInCode::canTellDidLoad(const NSClass &principalClass)
{
    const KTPlugInClass *const receiver = receiverOf(&principalClass);
    return receiver && receiver->respondsToPluginDidLoadBundle();
}

QString PlugInCode::tellDidLoad(const NSClass &principalClass, const NSBundle &bundle,
                                QObject *coordinator)
{
    if (!canTellDidLoad(principalClass))
        return {};
    const QString failure =
        failureOf([&] { receiverOf(&principalClass)->pluginDidLoadBundle(bundle, coordinator); });
    return failure.isNull() ? QString() : u"pluginDidLoadBundle "_s + failure;
}

QString PlugInCode::tellWillUnload(const NSClass *principalClass)
{
    return tell(principalClass, &KTPlugInClass::pluginWillUnload);
}

QString PlugInCode::tellDidUnload(const NSClass *principalClass)
{
    return tell(principalClass, &KTPlugInClass::pluginDidUnload);
}
