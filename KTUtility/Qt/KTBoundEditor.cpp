#include "KTBoundEditor.h"

#include "EditorBinding_p.h"

using namespace KTPrivate;

KTBoundEditor::KTBoundEditor(QWidget *editor) : _binding(std::make_unique<EditorBinding>(editor)) {}

KTBoundEditor::~KTBoundEditor() = default;

void KTBoundEditor::bindTo(QObject *object, const KTText &keyPath, const KTBindingOptions &options)
{
    _binding->bind(object, keyPath, options);
}

void KTBoundEditor::unbind()
{
    _binding->unbind();
}

QObject *KTBoundEditor::boundObject() const
{
    return _binding->binder.observedObject();
}

const KTBindingOptions &KTBoundEditor::bindingOptions() const
{
    return _binding->options;
}

bool KTBoundEditor::commitEditing()
{
    return true;
}

void KTBoundEditor::discardEditing() {}

QStringList KTBoundEditor::exposedBindings() const
{
    return {NSValueBinding};
}

void KTBoundEditor::bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
                         const QVariantMap &options)
{
    if (_binding->binder.willHandleBindingName(binding))
        _binding->bind(toObject, withKeyPath, options);
}

void KTBoundEditor::unbind(const QString &binding)
{
    if (_binding->binder.willHandleBindingName(binding))
        _binding->unbind();
}

QString KTBoundEditor::commitValue()
{
    return _binding->commit();
}

void KTBoundEditor::showEnabledFor(const QVariant &value)
{
    _binding->showEnabledFor(value);
}

void KTBoundEditor::showReason(const QString &reason)
{
    _binding->showReason(reason);
}

void KTBoundEditor::beginEditing()
{
    _binding->beginEditing();
}

void KTBoundEditor::endEditing()
{
    _binding->endEditing();
}

bool KTBoundEditor::hasSelectionMoved() const
{
    return _binding->hasSelectionMoved();
}

QString KTBoundEditor::commitToEdited(const QVariant &value)
{
    return _binding->commitToEdited(value);
}
