#include "Editors_p.h"

#include "NSEditor.h"

#include <algorithm>

using namespace KTPrivate;

void Editors::begin(QObject *editor)
{
    _editors.removeAll(nullptr);
    if (dynamic_cast<NSEditor *>(editor) && !_editors.contains(editor))
        _editors += editor;
}

void Editors::end(QObject *editor)
{
    _editors.removeAll(editor);
}

bool Editors::isEmpty() const
{
    return std::ranges::none_of(_editors, [](const auto &editor) { return !editor.isNull(); });
}

bool Editors::commit()
{
    const QList<QPointer<QObject>> editors = _editors;
    return std::ranges::all_of(editors, [](const QPointer<QObject> &editor) {
        auto *const asked = dynamic_cast<NSEditor *>(editor.data());
        return !asked || asked->commitEditing();
    });
}

void Editors::discard()
{
    const QList<QPointer<QObject>> editors = _editors;
    for (const QPointer<QObject> &editor : editors) {
        if (auto *const asked = dynamic_cast<NSEditor *>(editor.data()))
            asked->discardEditing();
    }
}
