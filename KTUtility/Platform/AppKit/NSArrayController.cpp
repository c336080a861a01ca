#include "NSArrayController.h"

#include "SelectionProxy_p.h"

#include <KTUtility/Platform/Keys/NSCollections.h>
#include <KTUtility/Platform/Values/ValueHash_p.h>

#include <QHash>
#include <QPointer>

#include <algorithm>
#include <exception>
#include <set>

using namespace KTPrivate;

NSArrayController::NSArrayController() : _selection(std::make_unique<SelectionProxy>()) {}
NSArrayController::~NSArrayController() = default;

namespace {
/// Where some objects are among others. Of equal ones, as many as are wanted: the first, or the
/// last.
QList<qsizetype> indexesOf(const QVariantList &objects, const QVariantList &among, bool areLast)
{
    NSSet wanted;
    QHash<size_t, int> left;
    for (const QVariant &object : objects) {
        wanted.addObject(object);
        ++left[hashOf(object)];
    }
    QList<qsizetype> indexes;
    for (qsizetype step = 0; step < among.size(); ++step) {
        const qsizetype index = areLast ? among.size() - 1 - step : step;
        if (wanted.contains(among.at(index)) && left[hashOf(among.at(index))]-- > 0)
            indexes += index;
    }
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}
} // namespace

/// The objects of a content that are shown. What the filter raises leaves everything as it was.
QVariantList NSArrayController::arranged(const QVariantList &content,
                                         const NSPredicate &filter) const
{
    QVariantList shown;
    for (const QVariant &object : content) {
        if (filter.isNil() || filter.evaluateWithObject(object))
            shown += object;
    }
    return NSSortDescriptor::sorted(shown, _sortDescriptors);
}

void NSArrayController::setContent(const QVariantList &content)
{
    replaceContent(content, selectedObjects(), Equal::First);
}

void NSArrayController::addObject(const QVariant &object)
{
    QVariantList content = _content;
    content.append(object);
    replaceContent(content, {object}, Equal::Last);
}

void NSArrayController::removeObject(const QVariant &object)
{
    QVariantList content = _content;
    content.removeIf([&](const QVariant &each) { return NSObject::isEqual(each, object); });
    replaceContent(content, selectedObjects(), Equal::First);
}

/// Notifies of the content, and shows it. Whoever is notified may delete this object, or change the
/// content once more, here and below.
void NSArrayController::replaceContent(const QVariantList &content, const QVariantList &selected,
                                       Equal which)
{
    const QVariantList shown = arranged(content, _filterPredicate);
    const quint64 turn = ++_turn;
    _content = content;
    const QPointer<NSArrayController> self = this;
    Q_EMIT contentChanged();
    if (self)
        show(turn == _turn ? shown : arranged(_content, _filterPredicate), selected, which);
}

void NSArrayController::setFilterPredicate(const NSPredicate &predicate)
{
    const QVariantList shown = arranged(_content, predicate);
    ++_turn;
    _filterPredicate = predicate;
    show(shown, selectedObjects(), Equal::First);
}

void NSArrayController::setSortDescriptors(const QList<NSSortDescriptor> &descriptors)
{
    ++_turn;
    _sortDescriptors = descriptors;
    rearrangeObjects();
}

void NSArrayController::rearrangeObjects()
{
    show(arranged(_content, _filterPredicate), selectedObjects(), Equal::First);
}

/// Shows some objects, and selects those that are among them.
void NSArrayController::show(const QVariantList &objects, const QVariantList &selected, Equal which)
{
    // Whoever is notified of one finds the other as it will be.
    _arrangedObjects = objects;
    _selectionIndexes = indexesOf(selected, objects, which == Equal::Last);
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
    std::exception_ptr failure;
    try {
        _selection->setObjects(selectedObjects());
    } catch (...) {
        failure = std::current_exception();
    }
    if (self)
        Q_EMIT selectionChanged();
    if (failure)
        std::rethrow_exception(failure);
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
