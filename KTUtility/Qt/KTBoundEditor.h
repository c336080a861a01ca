#pragma once

#include "KTBindingOptions.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSEditor.h>
#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>
#include <KTUtility/Platform/Keys/KTText.h>

#include <memory>

class QWidget;
namespace KTPrivate {
class EditorBinding;
}

/// What the editors of this room have in common: a property "value" that follows a key path of an
/// object, such as "selection.amount" of a NSArrayController, and sets it when the user has changed
/// it.
///
/// Where the key path has no single value, the editor shows a placeholder, and while there is
/// nothing to be edited, it is disabled (see KTBindingOptions). While somebody types, it is
/// registered with the controller, see NSArrayController::commitEditing(). What the object does not
/// take stays in the editor, or is put back by those that cannot show it, and the editor says why.
/// Nothing is thrown after bindTo().
///
/// Derive an editor of your own from it and from a widget: give it Q_PROPERTY(QVariant value …) with
/// a setter that shows the value and calls showEnabledFor(), and call commitValue() when the user
/// has changed it.
///
/// \code
/// auto *const paid = new KTBoundCheckBox(tr("Paid"));
/// paid->bindTo(&controller, u"selection.isPaid");
/// \endcode
class KTUTILITY_EXPORT KTBoundEditor : public NSKeyValueBinding, public NSEditor
{
public:
    ~KTBoundEditor() override;

    /// Binds "value" in place of what was bound before.
    /// \param object is not kept alive; once it is destroyed, nothing is bound.
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key.
    void bindTo(QObject *object, const KTText &keyPath, const KTBindingOptions &options = {});
    /// Ends it; what is shown stays.
    void unbind();
    /// What is bound; null for nothing.
    QObject *boundObject() const;
    /// What the editor shows in place of values; set by bindTo().
    const KTBindingOptions &bindingOptions() const;

    // --- Something typed; the controller that is bound asks for it

    /// Nothing is left to be stored, unless the editor says otherwise.
    bool commitEditing() override;
    /// Gives nothing up, unless the editor says otherwise.
    void discardEditing() override;

    // --- By name, for forms whose bindings are known at run time only

    /// "value".
    QStringList exposedBindings() const override;
    /// \param options of NSKeyValueBinding; placeholders are texts.
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options) override;
    void unbind(const QString &binding) override;

protected:
    /// \param editor the widget itself.
    explicit KTBoundEditor(QWidget *editor);

    /// Sets the object's value to the editor's; the editor may be destroyed by it.
    /// \return why it was not set, for a person; nil if it was, or nothing is bound.
    QString commitValue();
    /// Disables the editor for a value that cannot be edited, and enables it again.
    void showEnabledFor(const QVariant &value);
    /// Makes the reason known below the mouse and to screen readers; nil for none.
    void showReason(const QString &reason);

    /// Remembers which objects are selected now, for which something is typed, and registers the
    /// editor with their controller.
    void beginEditing();
    /// Forgets it: it is stored, or given up.
    void endEditing();
    /// Whether others are selected since beginEditing().
    bool hasSelectionMoved() const;
    /// Sets a value in the objects that were selected at beginEditing(), and forgets them.
    /// \return as commitValue().
    QString commitToEdited(const QVariant &value);

private:
    std::unique_ptr<KTPrivate::EditorBinding> _binding;
};
