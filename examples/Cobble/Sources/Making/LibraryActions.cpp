#include "LibraryActions.h"

#include "FieldSheet.h"
#include "NameSheet.h"

#include <KTUtility/NSMenuItem>

#include <QWidget>

LibraryActions::LibraryActions(QWidget *window, const Window &does)
    : QObject(window), _window(window), _does(does)
{
}

bool LibraryActions::validateMenuItem(QAction *item) const
{
    return NSMenuItem::action(item) == NSSelector("newLibrary:") || _does.library();
}

void LibraryActions::newLibrary(QAction *)
{
    auto *const sheet =
        new NameSheet(_window, tr("New Library"), [this](const QString &name, FieldType) {
            const Outcome<> made = LibrarySteps::makeLibrary(_does.change, name);
            if (made)
                _does.show(name);
            return made;
        });
    sheet->open();
}

void LibraryActions::renameLibrary(QAction *)
{
    const std::optional<Library> library = _does.library();
    if (!library)
        return;
    auto *const sheet = new NameSheet(
        _window, tr("Rename Library"), [this, library](const QString &name, FieldType) {
            return LibrarySteps::renameLibrary(_does.change, *library, name);
        });
    sheet->setName(library->name);
    sheet->open();
}

void LibraryActions::removeLibrary(QAction *)
{
    const std::optional<Library> library = _does.library();
    if (!library)
        return;
    const Outcome<> removed = LibrarySteps::removeLibrary(_does.change, *library);
    _does.tell(removed ? tr("Removed the library “%1”").arg(library->name) : removed.reason());
}

void LibraryActions::newField(QAction *)
{
    const std::optional<Library> library = _does.library();
    if (!library)
        return;
    auto *const sheet = new NameSheet(
        _window, tr("New Field"), [this, library](const QString &name, FieldType type) {
            return LibrarySteps::addField(_does.change, *library, name, type);
        });
    sheet->needType();
    sheet->open();
}

void LibraryActions::editFields(QAction *)
{
    const std::optional<Library> library = _does.library();
    if (!library)
        return;
    auto *const sheet =
        new FieldSheet(_window, _does.bundle(), *library, [this](const FieldPlan &plan) {
            return LibrarySteps::changeFields(_does.change, plan);
        });
    sheet->open();
}
