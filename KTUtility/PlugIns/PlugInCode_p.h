#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QString>

#include <memory>

class NSBundle;
class NSClass;

// Calls into the code of a plug-in. Whatever that throws ends here and becomes a text: what went
// wrong, for a person to read; nil if nothing did.
namespace KTPrivate::PlugInCode {
/// Notifies a class that its bundle was loaded, if it can be notified, and makes an instance of it.
/// \param error becomes what was thrown if there is no instance; nil if the class just makes none.
KTUTILITY_EXPORT std::unique_ptr<QObject> newInstance(const NSClass &principalClass,
                                                      const NSBundle &bundle, QObject *coordinator,
                                                      QString *error);

/// Whether a class can be notified that its bundle was loaded.
KTUTILITY_EXPORT bool canTellDidLoad(const NSClass &principalClass);
/// Notifies a class that its bundle was loaded; nothing happens to one that cannot be notified.
KTUTILITY_EXPORT QString tellDidLoad(const NSClass &principalClass, const NSBundle &bundle,
                                     QObject *coordinator);

// These notify a class that is more than a registered one; nothing happens to others, and to null.

/// Its instance is about to be destroyed.
KTUTILITY_EXPORT QString tellWillUnload(const NSClass *principalClass);
/// Its instance has left the manager.
KTUTILITY_EXPORT QString tellDidUnload(const NSClass *principalClass);
} // namespace KTPrivate::PlugInCode
