#include "EditorBinding_p.h"

#include "KTArrayColumn.h"
#include "TextReading_p.h"

#include <KTUtility/Platform/AppKit/NSArrayController.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>

#include <QAccessible>

#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
const QString SelectionPrefix = u"selection."_s;

/// The editor gets the markers themselves.
QVariantMap withMarkers(QVariantMap options)
{
    options.insert(NSMultipleValuesPlaceholderBindingOption, NSMultipleValuesMarker());
    options.insert(NSNoSelectionPlaceholderBindingOption, NSNoSelectionMarker());
    options.insert(NSNotApplicablePlaceholderBindingOption, NSNotApplicableMarker());
    return options;
}
} // namespace

EditorBinding::EditorBinding(QWidget *editor)
    : binder(NSValueBinding, NSValueBinding, editor), _editor(editor)
{
}

void EditorBinding::bind(QObject *object, const QString &keyPath, const KTBindingOptions &given)
{
    endEditing();
    options = given;
    binder.bind(NSValueBinding, object, keyPath, withMarkers({}));
}

void EditorBinding::bind(QObject *object, const QString &keyPath, const QVariantMap &given)
{
    endEditing();
    options = {
        .multiplePlaceholder = given.value(NSMultipleValuesPlaceholderBindingOption).toString(),
        .noSelectionPlaceholder = given.value(NSNoSelectionPlaceholderBindingOption).toString(),
        .notApplicablePlaceholder =
            given.value(NSNotApplicablePlaceholderBindingOption).toString()};
    binder.bind(NSValueBinding, object, keyPath, withMarkers(given));
}

/// What is typed is for nobody then.
void EditorBinding::unbind()
{
    endEditing();
    binder.unbind({});
}

QString EditorBinding::commit()
{
    // The record may have the editor destroyed.
    const auto reason = std::make_shared<QString>();
    binder.setValueWasRejected([reason](const QVariant &value, const QString &why) {
        *reason = rejectionForPeople(value, why);
    });
    binder.ownerKeyPathChanged();
    return *reason;
}

void EditorBinding::showEnabledFor(const QVariant &value)
{
    const bool disables = options.disablesWithoutValue && !KTBindingOptions::isEditable(value);
    if (!_editor || disables == _hasDisabled ||
        (disables && _editor->testAttribute(Qt::WA_ForceDisabled)))
        return;
    _hasDisabled = disables;
    _editor->setEnabled(!disables);
}

void EditorBinding::showReason(const QString &reason)
{
    if (!_editor || _editor->accessibleDescription() == reason)
        return;
    _editor->setToolTip(reason);
    _editor->setAccessibleDescription(reason);
}

/// What a controller has selected, if the binding is to a key path of that.
std::optional<EditorBinding::Edited> EditorBinding::selected() const
{
    const auto *const controller = qobject_cast<NSArrayController *>(binder.observedObject());
    if (!controller || !binder.keyPath().startsWith(SelectionPrefix))
        return std::nullopt;
    Edited edited{{}, binder.keyPath().sliced(SelectionPrefix.size())};
    for (const QVariant &object : controller->selectedObjects())
        edited.objects += objectOfRow(object);
    return edited;
}

void EditorBinding::beginEditing()
{
    if (!_edited)
        _edited = selected();
    _controller = qobject_cast<NSArrayController *>(binder.observedObject());
    if (_controller)
        _controller->objectDidBeginEditing(_editor);
}

void EditorBinding::endEditing()
{
    _edited.reset();
    if (_controller)
        _controller->objectDidEndEditing(_editor);
    _controller = nullptr;
}

bool EditorBinding::hasSelectionMoved() const
{
    const std::optional<Edited> now = selected();
    return _edited && now && now->objects != _edited->objects;
}

QString EditorBinding::commitToEdited(const QVariant &value)
{
    const std::optional<Edited> edited = std::exchange(_edited, std::nullopt);
    QString reason;
    for (const QPointer<QObject> &object : edited ? edited->objects : QList<QPointer<QObject>>()) {
        try {
            if (object)
                KTArrayColumn(edited->keyPath, {})
                    .setValue(value, QVariant::fromValue(object.data()));
        } catch (...) {
            reason = rejectionForPeople(value, reasonOfException());
        }
    }
    return reason;
}
