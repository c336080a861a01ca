#pragma once

#include <QObject>
#include <QString>

#include <memory>

class NSBundle;
class NSClass;

// Calls into the code of a plug-in. Whatever that throws ends here and becomes a text: what went
// wrong, for a person to read; nil if nothing did.
namespace KTPrivate::PlugInCode {
/// Tells a class that its bundle was loaded, if it can hear that, and makes an instance of it.
/// \param error becomes what went wrong if there is no instance.
std::unique_ptr<QObject> newInstance(const NSClass &principalClass, const NSBundle &bundle,
                                     QObject *coordinator, QString *error);

/// Tells a class that its bundle was loaded, which it must be able to hear here.
QString tellDidLoad(const NSClass &principalClass, const NSBundle &bundle, QObject *coordinator);

// These tell a class that is more than a registered one; nothing happens to others, and to null.

/// Its instance is about to go.
QString tellWillUnload(const NSClass *principalClass);
/// Its instance has left the manager.
QString tellDidUnload(const NSClass *principalClass);
} // namespace KTPrivate::PlugInCode
