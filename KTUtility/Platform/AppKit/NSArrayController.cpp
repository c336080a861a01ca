#include "NSArrayController.h"

#include "RankedSelection_p.h"
#include "SelectionProxy_p.h"

#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QPointer>

#include <set>

using namespace KTPrivate;

NSArrayController::NSArrayController() : _selection(std::make_unique<SelectionProxy>()) {}
NSArrayController::~NSArrayController() = default;

/// The objects of a content that are shown. What the filter raises leaves everything as it was.
QVariantList NSArrayController::arranged(const QVariantList &content,
                                         const NSPredicate &filter) const
{
    QVariantList shown = filter.isNil() ? content : QVariantList();
    for (const QVariant &object : filter.isNil() ? QVariantList() : content) {
        if (filter.evaluateWithObject(object))
            shown += object;
    }
    return _sortDescriptors.isEmpty() ? shown : NSSortDescriptor::sorted(shown, _sortDescriptors);
}

void NSArrayController::setContent(const QVariantList &content)
{
    replaceContent(content, ranked());
}

void NSArrayController::addObject(const QVariant &object)
{
    QVariantList content = _content;
    content.append(object);
    replaceContent(content, RankedSelection::last(object));
}

void NSArrayController::removeObject(const QVariant &object)
{
    QVariantList content = _content;
    content.removeIf([&](const QVariant &each) { return NSObject::isEqual(each, object); });
    replaceContent(content, ranked());
}

/// Notifies of the content, and shows it. Whoever is notified may delete this object, or change the
/// content once more, here and below.
void NSArrayController::replaceContent(const QVariantList &content, const RankedSelection &selected)
{
    const QVariantList shown = arranged(content, _filterPredicate);
    const quint64 turn = ++_turn;
    _content = content;
    const QPointer<NSArrayController> self = this;
    Q_EMIT contentChanged();
    if (self)
        show(turn == _turn ? shown : arranged(_content, _filterPredicate), selected);
}

void NSArrayController::setFilterPredicate(const NSPredicate &predicate)
{
    const QVariantList shown = arranged(_content, predicate);
    ++_turn;
    _filterPredicate = predicate;
    show(shown, ranked());
}

void NSArrayController::setSortDescriptors(const QList<NSSortDescriptor> &descriptors)
{
    ++_turn;
    _sortDescriptors = descriptors;
    const QPointer<NSArrayController> self = this;
    Q_EMIT sortDescriptorsChanged();
    if (self)
        rearrangeObjects();
}

void NSArrayController::rearrangeObjects()
{
    show(arranged(_content, _filterPredicate), ranked());
}

/// What is selected, to be found again when other objects are shown or in another order.
RankedSelection NSArrayController::ranked() const
{
    return {_arrangedObjects, _selectionIndexes};
}

/// Shows some objects, and selects those that are among them.
void NSArrayController::show(const QVariantList &objects, const RankedSelection &selected)
{
    // Whoever is notified of one finds the other as it will be.
    const QList<qsizetype> indexes = selected.indexesIn(objects);
    _arrangedObjects = objects;
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

/// What observers of the selected objects' keys raise keeps nobody from learning that others are
/// selected.
void NSArrayController::tellSelection()
{
    const QPointer<NSArrayController> self = this;
    FirstFailure failure;
    failure.call([this] { _selection->setObjects(selectedObjects()); });
    if (self)
        Q_EMIT selectionChanged();
    failure.rethrow();
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
