#pragma once

#include "KTBindingOptions.h"

#include <KTUtility/Bindings/KTPropertyBinder.h>
#include <KTUtility/Platform/AppKit/NSArrayController.h>
#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>

#include <QPointer>
#include <QVariantList>
#include <QWidget>

#include <optional>

namespace KTPrivate {
/// The binding of an editor's value: a KTPropertyBinder that hands markers on, since the editor
/// shows them itself, and knows for which objects something is typed.
class EditorBinding
{
public:
    explicit EditorBinding(QWidget *editor);

    void bind(QObject *object, const QString &keyPath, const KTBindingOptions &options);
    void bind(QObject *object, const QString &keyPath, const QVariantMap &options);
    void unbind();

    /// \return why the object did not take the editor's value; nil if it did.
    QString commit();
    void showEnabledFor(const QVariant &value);
    void showReason(const QString &reason);

    void beginEditing();
    void endEditing();
    bool hasSelectionMoved() const;
    QString commitToEdited(const QVariant &value);

    KTPropertyBinder binder;
    KTBindingOptions options;

private:
    /// What is selected, and the key path of it that is bound.
    struct Edited
    {
        QList<QPointer<QObject>> objects;
        QString keyPath;
    };
    std::optional<Edited> selected() const;

    QPointer<QWidget> _editor;
    std::optional<Edited> _edited;
    QPointer<NSArrayController> _controller; ///< with which the editor is registered
    bool _hasDisabled = false;
};
} // namespace KTPrivate
