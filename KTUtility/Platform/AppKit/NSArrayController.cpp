#include "NSArrayController.h"

#include "SelectionProxy_p.h"

#include <KTUtility/Platform/Keys/NSCollections.h>

#include <QPointer>

#include <algorithm>
#include <set>

using namespace KTPrivate;

NSArrayController::NSArrayController() : _selection(std::make_unique<SelectionProxy>()) {}
NSArrayController::~NSArrayController() = default;

void NSArrayController::setContent(const QVariantList &content)
{
    const QVariantList selected = selectedObjects();
    _content = content;
    tellContent(selected);
}

void NSArrayController::addObject(const QVariant &object)
{
    _content.append(object);
    tellContent({object});
}

void NSArrayController::removeObject(const QVariant &object)
{
    const QVariantList selected = selectedObjects();
    _content.removeIf([&](const QVariant &each) { return NSObject::isEqual(each, object); });
    tellContent(selected);
}

/// Notifies of the content, and shows it. Whoever is notified may delete this object, here and
/// below.
void NSArrayController::tellContent(const QVariantList &selected)
{
    const QPointer<NSArrayController> self = this;
    Q_EMIT contentChanged();
    if (self)
        rearrangeAndSelect(selected);
}

void NSArrayController::setFilterPredicate(const NSPredicate &predicate)
{
    _filterPredicate = predicate;
    rearrangeObjects();
}

void NSArrayController::setSortDescriptors(const QList<NSSortDescriptor> &descriptors)
{
    _sortDescriptors = descriptors;
    rearrangeObjects();
}

void NSArrayController::rearrangeObjects()
{
    rearrangeAndSelect(selectedObjects());
}

/// Filters and sorts, and selects those of some objects that are shown.
void NSArrayController::rearrangeAndSelect(const QVariantList &selected)
{
    QVariantList shown;
    for (const QVariant &object : std::as_const(_content)) {
        if (_filterPredicate.isNil() || _filterPredicate.evaluateWithObject(object))
            shown += object;
    }
    _arrangedObjects = NSSortDescriptor::sorted(shown, _sortDescriptors);
    NSSet wanted;
    for (const QVariant &object : selected)
        wanted.addObject(object);
    QList<qsizetype> indexes;
    for (qsizetype index = 0; index < _arrangedObjects.size(); ++index) {
        if (wanted.contains(_arrangedObjects.at(index)))
            indexes += index;
    }
    // Whoever is notified of one finds the other as it will be.
    _selectionIndexes = indexes;
    const QPointer<NSArrayController> self = this;
    Q_EMIT arrangedObjectsChanged();
    if (self)
        tellSelection();
}

void NSArrayController::setSelectionIndexes(const QList<qsizetype> &indexes)
{
    const std::set<qsizetype> ascending(indexes.begin(), indexes.end());
    _selectionIndexes.clear();
    for (const qsizetype index : ascending) {
        if (index >= 0 && index < _arrangedObjects.size())
            _selectionIndexes += index;
    }
    tellSelection();
}

void NSArrayController::tellSelection()
{
    const QPointer<NSArrayController> self = this;
    _selection->setObjects(selectedObjects());
    if (self)
        Q_EMIT selectionChanged();
}

qsizetype NSArrayController::selectionIndex() const
{
    return _selectionIndexes.isEmpty() ? -1 : _selectionIndexes.first();
}

QVariantList NSArrayController::selectedObjects() const
{
    QVariantList objects;
    for (const qsizetype index : _selectionIndexes)
        objects += _arrangedObjects.at(index);
    return objects;
}

bool NSArrayController::canSelectNext() const
{
    return !_selectionIndexes.isEmpty() && _selectionIndexes.last() + 1 < _arrangedObjects.size();
}

bool NSArrayController::canSelectPrevious() const
{
    return !_selectionIndexes.isEmpty() && _selectionIndexes.first() > 0;
}

void NSArrayController::selectNext()
{
    if (canSelectNext())
        setSelectionIndex(_selectionIndexes.last() + 1);
}

void NSArrayController::selectPrevious()
{
    if (canSelectPrevious())
        setSelectionIndex(_selectionIndexes.first() - 1);
}

QObject *NSArrayController::selection() const
{
    return _selection.get();
}
