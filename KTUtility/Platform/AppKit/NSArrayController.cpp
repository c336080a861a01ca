#include "NSArrayController.h"

#include "ContentWatch_p.h"
#include "Editors_p.h"
#include "RankedSelection_p.h"
#include "SelectionProxy_p.h"

#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Queries/SortedOrder_p.h>
#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QHash>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

using namespace KTPrivate;

namespace {
/// So many list elements may be gone through for objects that are destroyed in one turn of the event
/// loop. What goes beyond that waits for its end.
constexpr qsizetype WorkOfTurn = 1'000'000;

/// Where the objects of a list are.
using PlacesOfObjects = QHash<const QObject *, QList<qsizetype>>;

PlacesOfObjects placesOfObjects(const QVariantList &list)
{
    PlacesOfObjects places;
    places.reserve(list.size());
    for (qsizetype index = 0; index < list.size(); ++index) {
        if (const QObject *const object = ContentWatch::objectIn(list.at(index)))
            places[object] += index;
    }
    return places;
}

std::vector<qsizetype> placesOfGone(const QVariantList &list, const QObject *object)
{
    std::vector<qsizetype> places;
    for (qsizetype index = 0; index < list.size(); ++index) {
        if (ContentWatch::isGone(list.at(index), object))
            places.push_back(index);
    }
    return places;
}

/// \param places ascending.
void removeFrom(QVariantList *list, const std::vector<qsizetype> &places)
{
    auto next = places.begin();
    qsizetype index = 0;
    if (!places.empty())
        list->removeIf([&](const QVariant &) {
            const bool goes = next != places.end() && *next == index++;
            next += goes ? 1 : 0;
            return goes;
        });
}

/// Calls what may raise where nothing may.
template<typename Function>
void logged(const Function &function)
{
    try {
        function();
    } catch (const std::exception &failure) {
        NSLog(u"While objects were arranged: %@", QString::fromUtf8(failure.what()));
    } catch (...) {
        NSLog(u"While objects were arranged: unknown exception");
    }
}
} // namespace

/// What is known of the objects that were destroyed in this turn of the event loop.
struct NSArrayController::Deaths
{
    qsizetype work = 0;    ///< elements that were gone through
    bool willEnd = false;  ///< the turn, which is waited for
    quint64 knownTurn = 0; ///< of the lists, at which the places were found
    PlacesOfObjects content;
    PlacesOfObjects arranged;
    // Where nil stands for dead objects, ascending once they are removed.
    std::vector<qsizetype> deadContent;
    std::vector<qsizetype> deadArranged;
};

NSArrayController::NSArrayController()
    : _selection(std::make_unique<SelectionProxy>())
    , _order(std::make_unique<SortedOrder>())
    , _editors(std::make_unique<Editors>())
    , _deaths(std::make_unique<Deaths>())
    , _watch(std::make_unique<ContentWatch>([this](QObject *object) { objectIsGone(object); },
                                            [this] { rearrangeLater(); }))
{
}

NSArrayController::~NSArrayController() = default;

/// The objects of a content that are shown. What the filter or a key raises leaves everything as it
/// was.
QVariantList NSArrayController::arranged(const QVariantList &content, const NSPredicate &filter,
                                         SortedOrder *order) const
{
    // They may be replaced by what is called here.
    const auto list = QVariantList(content);
    const QList<NSSortDescriptor> descriptors = _sortDescriptors;
    if (filter.isNil() && descriptors.isEmpty())
        return list;
    SortedOrder::Places places;
    for (qsizetype index = 0; index < list.size(); ++index) {
        if (filter.isNil() || filter.evaluateWithObject(list.at(index)))
            places.push_back(index);
    }
    if (!descriptors.isEmpty())
        places = order->sort(list, places, descriptors);
    QVariantList shown;
    shown.reserve(qsizetype(places.size()));
    for (const qsizetype place : places)
        shown += list.at(place);
    return shown;
}

void NSArrayController::setContent(const QVariantList &content)
{
    const QVariantList objects = content;
    removeDead();
    replaceContent(objects, nullptr, {}, [&] { _watch->setContent(objects); });
}

void NSArrayController::addObject(const QVariant &object)
{
    // It may be one of those that are replaced.
    const QVariant added = object;
    removeDead();
    QVariantList content = _content;
    content.append(added);
    const RankedSelection selected = RankedSelection::last(added);
    replaceContent(content, &selected, *_order, [&] { _watch->add(added); });
}

void NSArrayController::removeObject(const QVariant &object)
{
    // It may be one of the list.
    const auto equal = QVariant(object);
    removeDead();
    SortedOrder::Places places;
    QVariantList removed;
    for (qsizetype index = 0; index < _content.size(); ++index) {
        if (NSObject::isEqual(_content.at(index), equal)) {
            places.push_back(index);
            removed += _content.at(index);
        }
    }
    QVariantList content = _content;
    removeFrom(&content, places);
    SortedOrder order = *_order;
    order.removePlaces(places);
    replaceContent(content, nullptr, order, [&] {
        for (const QVariant &each : std::as_const(removed))
            _watch->remove(each);
    });
}

/// Notifies of the content, and shows it. Whoever is notified may delete this object, or change the
/// content once more, here and below.
/// \param selected what is selected then; null for what is selected at that time.
void NSArrayController::replaceContent(const QVariantList &content, const RankedSelection *selected,
                                       const SortedOrder &knownOrder,
                                       const std::function<void()> &watch)
{
    SortedOrder order = knownOrder;
    const QVariantList shown = arranged(content, _filterPredicate, &order);
    const quint64 turn = ++_turn;
    _content = content;
    *_order = std::move(order);
    const QPointer<NSArrayController> self = this;
    watch();
    if (self)
        Q_EMIT contentChanged();
    if (self)
        showReplaced(shown, turn, selected);
    // What has left the content may be destroyed as long as it is shown.
    if (self)
        _watch->endUnused();
}

/// \param turn the one in which those that are shown were arranged.
void NSArrayController::showReplaced(const QVariantList &shown, quint64 turn,
                                     const RankedSelection *selected)
{
    const QVariantList objects =
        turn == _turn ? shown : arranged(_content, _filterPredicate, _order.get());
    show(objects, selected ? *selected : ranked());
}

void NSArrayController::setFilterPredicate(const NSPredicate &predicate)
{
    removeDead();
    const quint64 turn = _turn + 1;
    const QVariantList shown = arranged(_content, predicate, _order.get());
    ++_turn;
    _filterPredicate = predicate;
    const QPointer<NSArrayController> self = this;
    followChanges();
    if (self)
        showReplaced(shown, turn, nullptr);
}

void NSArrayController::setSortDescriptors(const QList<NSSortDescriptor> &descriptors)
{
    removeDead();
    ++_turn;
    _sortDescriptors = descriptors;
    _order->forget();
    const QPointer<NSArrayController> self = this;
    followChanges();
    if (self)
        Q_EMIT sortDescriptorsChanged();
    if (self)
        rearrangeObjects();
}

void NSArrayController::rearrangeObjects()
{
    removeDead();
    // A getter may destroy what is being arranged.
    const quint64 turn = _turn;
    showReplaced(arranged(_content, _filterPredicate, _order.get()), turn, nullptr);
}

// --- Changes of objects -------------------------------------------------------------------------

void NSArrayController::setAutomaticallyRearranges(bool automatically)
{
    if (std::exchange(_rearrangesItself, automatically) != automatically)
        followChanges();
}

void NSArrayController::followChanges()
{
    if (_rearrangesItself)
        _watch->followChanges(_sortDescriptors, !_filterPredicate.isNil());
    else
        _watch->ignoreChanges();
}

/// Once for all changes of a turn.
void NSArrayController::rearrangeLater()
{
    if (!std::exchange(_willRearrange, true))
        QMetaObject::invokeMethod(
            this, [this] { logged([this] { rearrangeIfOthers(); }); }, Qt::QueuedConnection);
}

void NSArrayController::rearrangeIfOthers()
{
    _willRearrange = false;
    removeDead();
    const QVariantList shown = arranged(_content, _filterPredicate, _order.get());
    if (_rearrangesItself && shown != _arrangedObjects)
        show(shown, ranked());
}

/// Called while the object is being destroyed. What it wanted to be told would meet what is left of
/// it.
void NSArrayController::objectIsGone(QObject *object)
{
    QObject::disconnect(this, nullptr, object, nullptr);
    _deaths->work += _content.size();
    if (!std::exchange(_deaths->willEnd, true))
        QMetaObject::invokeMethod(
            this,
            [this] {
                _deaths->willEnd = false;
                _deaths->work = 0;
                removeDead();
            },
            Qt::QueuedConnection);
    if (_deaths->work <= WorkOfTurn)
        removeAtOnce(object);
    else
        removeLater(object);
}

void NSArrayController::removeAtOnce(const QObject *object)
{
    const QPointer<NSArrayController> self = this;
    _selection->objectIsGone(object);
    forget(placesOfGone(_content, object), placesOfGone(_arrangedObjects, object));
    if (self)
        removeDead();
}

/// Puts nil in the place of an object, quickly.
void NSArrayController::removeLater(const QObject *object)
{
    _selection->objectIsGone(object);
    if (_deaths->knownTurn == _turn) {
        const QList<qsizetype> ofContent = _deaths->content.take(object);
        const QList<qsizetype> ofArranged = _deaths->arranged.take(object);
        forget({ofContent.begin(), ofContent.end()}, {ofArranged.begin(), ofArranged.end()});
        return;
    }
    const QPointer<NSArrayController> self = this;
    removeDead();
    if (!self)
        return;
    _deaths->content = placesOfObjects(_content);
    _deaths->arranged = placesOfObjects(_arrangedObjects);
    _deaths->knownTurn = _turn;
    // A QPointer to it has forgotten where it pointed, so that it is not among those.
    forget(placesOfGone(_content, object), placesOfGone(_arrangedObjects, object));
}

/// Puts nil in some places: nobody must meet a destroyed object there until they are removed.
void NSArrayController::forget(const std::vector<qsizetype> &ofContent,
                               const std::vector<qsizetype> &ofArranged)
{
    for (const qsizetype place : ofContent)
        _content[place] = QVariant();
    for (const qsizetype place : ofArranged)
        _arrangedObjects[place] = QVariant();
    std::ranges::copy(ofContent, std::back_inserter(_deaths->deadContent));
    std::ranges::copy(ofArranged, std::back_inserter(_deaths->deadArranged));
    const QPointer<NSArrayController> self = this;
    for (const qsizetype place : ofArranged) {
        if (self)
            Q_EMIT arrangedObjectIsGone(place);
    }
}

/// Removes the nils that stand for destroyed objects.
void NSArrayController::removeDead()
{
    std::vector<qsizetype> ofContent = std::exchange(_deaths->deadContent, {});
    std::vector<qsizetype> ofArranged = std::exchange(_deaths->deadArranged, {});
    std::sort(ofContent.begin(), ofContent.end());
    std::sort(ofArranged.begin(), ofArranged.end());
    removePlaces(ofContent, ofArranged);
}

/// Takes elements out of the lists; the others stay in their order without being asked for anything,
/// since their owners may be about to go, too.
void NSArrayController::removePlaces(const std::vector<qsizetype> &ofContent,
                                     const std::vector<qsizetype> &ofArranged)
{
    if (ofContent.empty() && ofArranged.empty())
        return;
    ++_turn;
    removeFrom(&_content, ofContent);
    removeFrom(&_arrangedObjects, ofArranged);
    _order->removePlaces(ofContent);
    const QList<qsizetype> before = std::exchange(_selectionIndexes, {});
    for (const qsizetype index : before) {
        const auto place = std::lower_bound(ofArranged.begin(), ofArranged.end(), index);
        if (place == ofArranged.end() || *place != index)
            _selectionIndexes += index - (place - ofArranged.begin());
    }
    tellRemoved(before);
}

/// \param selectedBefore what was selected, at the places of then.
void NSArrayController::tellRemoved(const QList<qsizetype> &selectedBefore)
{
    const bool areFewer = selectedBefore.size() != _selectionIndexes.size();
    const bool areOthers = selectedBefore != _selectionIndexes;
    const QPointer<NSArrayController> self = this;
    Q_EMIT contentChanged();
    if (self)
        Q_EMIT arrangedObjectsChanged();
    if (self && areFewer)
        logged([this] { tellSelection(); });
    else if (self && areOthers)
        Q_EMIT selectionChanged();
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

bool NSArrayController::setSelectionIndexes(const QList<qsizetype> &indexes)
{
    QList<qsizetype> wanted = selectable(indexes);
    if (_commitsBeforeSelecting && !commitBeforeSelecting(&wanted))
        return false;
    _selectionIndexes = wanted;
    tellSelection();
    return true;
}

/// The indexes that there are, ascending.
QList<qsizetype> NSArrayController::selectable(const QList<qsizetype> &indexes) const
{
    const std::set<qsizetype> ascending(indexes.begin(), indexes.end());
    QList<qsizetype> those;
    for (const qsizetype index : ascending) {
        if (index >= 0 && index < _arrangedObjects.size())
            those += index;
    }
    return those;
}

/// What is committed may bring the objects into another order.
/// \param indexes where the same objects are afterwards.
/// \return whether others may be selected.
bool NSArrayController::commitBeforeSelecting(QList<qsizetype> *indexes)
{
    if (!isEditing())
        return true;
    const QPointer<NSArrayController> self = this;
    const RankedSelection wanted(_arrangedObjects, *indexes);
    if (!commitEditing() || !self)
        return false;
    *indexes = wanted.indexesIn(_arrangedObjects);
    return true;
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

// --- What is being typed ------------------------------------------------------------------------

void NSArrayController::objectDidBeginEditing(QObject *editor)
{
    _editors->begin(editor);
}

void NSArrayController::objectDidEndEditing(QObject *editor)
{
    _editors->end(editor);
}

bool NSArrayController::isEditing() const
{
    return !_editors->isEmpty();
}

bool NSArrayController::commitEditing()
{
    return _editors->commit();
}

void NSArrayController::discardEditing()
{
    _editors->discard();
}
