#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QWidget>

#include <memory>

/// Interface files: forms of Qt Designer whose objects are tied to an owner.
///
/// - Widgets of classes that are registered (KT_REGISTER_CLASS) are made by their class name.
/// - Outlets: every property of the owner that is a pointer to an object, and writable, receives
///   the object of its name, if the form has one of that class.
/// - A widget with the dynamic property "delegateOutlet" of the text "owner" is given the owner by
///   its invokable `setDelegate(QObject *)`.
/// - At the end, every widget from the innermost on, then the owner, are sent the invokable
///   `awakeFromNib()` if they answer it.
///
/// \code
/// QString error;
/// std::unique_ptr<QWidget> window = NSNib::instantiate(path, this, &error);
/// \endcode
namespace NSNib {
/// Makes the widgets of a file.
/// \param path nil is a file that does not exist.
/// \param owner may be null.
/// \param error receives why it failed; may be null.
/// \return the outermost widget; null if the file cannot be read, is no form, or there is no
/// QApplication.
KTUTILITY_EXPORT std::unique_ptr<QWidget> instantiate(const QString &path, QObject *owner,
                                                      QString *error = nullptr);
} // namespace NSNib
