#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Queries/NSPredicate.h>
#include <KTUtility/Platform/Queries/NSSortDescriptor.h>

#include <QObject>
#include <QVariantList>

#include <functional>
#include <memory>
#include <vector>

namespace KTPrivate {
class ContentWatch;
class Editors;
class RankedSelection;
class SelectionProxy;
class SortedOrder;
} // namespace KTPrivate

/// What stands between a list of records and the views that show it: filters and sorts the list,
/// and keeps what is selected.
///
/// Bind tables to "arrangedObjects", details to "selection" and a key: "selection.name" is the
/// value of the selected object. It is a marker if nothing is selected, if several objects with
/// different values are, or if one lacks the key; setting it sets all selected objects, and is
/// notified once. "selection.library.name" compares and sets the values at the end of the path.
/// While the selected objects have several values, changes that leave it at that are not notified
/// of. "selection.@count" says how many are selected. The selected objects' keys and all other
/// properties can be observed, but not what an operator makes of the elements of
/// "arrangedObjects" and "content": that is notified of with the list. "selection" by itself is
/// always the same object. For the main thread.
///
/// The objects are not owned. One that is destroyed leaves by itself: content, what is shown and
/// what is selected are without it at once. Only if very many go in one turn of the event loop, the
/// others are nil until its end, and leave together then.
///
/// Editors in which somebody types register themselves (see NSEditor), so that a window can have
/// everything stored before it closes.
///
/// \code
/// NSArrayController controller;
/// controller.setContent({QVariant::fromValue(ada), QVariant::fromValue(bob)});
/// controller.setSelectionIndexes({0});
/// view->bind(NSValueBinding, &controller, u"selection.name"_s, {});
/// controller.setAutomaticallyRearranges(true);    // a new name moves the record
/// if (!controller.commitEditing())
///     return;                                     // something typed cannot be stored
/// \endcode
class KTUTILITY_EXPORT NSArrayController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(QVariantList arrangedObjects READ arrangedObjects NOTIFY arrangedObjectsChanged)
    Q_PROPERTY(QObject *selection READ selection CONSTANT)
    Q_PROPERTY(QVariantList selectedObjects READ selectedObjects NOTIFY selectionChanged)
    Q_PROPERTY(qsizetype selectionIndex READ selectionIndex WRITE setSelectionIndex NOTIFY
                   selectionChanged)
    Q_PROPERTY(bool canSelectNext READ canSelectNext NOTIFY selectionChanged)
    Q_PROPERTY(bool canSelectPrevious READ canSelectPrevious NOTIFY selectionChanged)
    Q_PROPERTY(
        bool automaticallyRearranges READ automaticallyRearranges WRITE setAutomaticallyRearranges)
    Q_PROPERTY(
        bool commitsBeforeSelecting READ commitsBeforeSelecting WRITE setCommitsBeforeSelecting)

public:
    NSArrayController();
    ~NSArrayController() override;

    /// All objects, in the order in which they were given.
    const QVariantList &content() const { return _content; }
    /// Replaces all objects. Those that were selected stay so, if they are still there; of equal
    /// ones, the same as before: if the second was selected, the second.
    void setContent(const QVariantList &content);
    /// Appends an object and selects it.
    void addObject(const QVariant &object);
    /// Takes an object away, wherever it is.
    void removeObject(const QVariant &object);

    /// The objects that fulfil the filter, in the order of the sort descriptors.
    const QVariantList &arrangedObjects() const { return _arrangedObjects; }
    /// Which objects are shown; nil shows all. If it raises for one of them, nothing changes.
    void setFilterPredicate(const NSPredicate &predicate);
    /// The order; without any, it is that of the content.
    void setSortDescriptors(const QList<NSSortDescriptor> &descriptors);
    /// What was set.
    const QList<NSSortDescriptor> &sortDescriptors() const { return _sortDescriptors; }
    /// Filters and sorts again, after objects have changed.
    void rearrangeObjects();
    /// Whether objects are filtered and sorted again at the end of the turn of the event loop in
    /// which what they are sorted by has changed; under a filter, anything of them. Not at first:
    /// each object is observed then. Changes are known by NOTIFY signals, and those of what the
    /// objects are sorted by also as NSKeyValueObservation knows them.
    bool automaticallyRearranges() const { return _rearrangesItself; }
    /// Has them filtered and sorted again, or not. What raises then is written to the log, and
    /// everything stays as it was.
    void setAutomaticallyRearranges(bool automatically);

    /// The positions of the selected objects among the arranged ones, ascending.
    const QList<qsizetype> &selectionIndexes() const { return _selectionIndexes; }
    /// Selects these objects only; positions that there are not are left out. What getters of the
    /// objects or observers raise is thrown when the objects are selected and all are notified.
    /// \return false if something typed cannot be stored, and others are only selected when it is;
    /// see setCommitsBeforeSelecting().
    bool setSelectionIndexes(const QList<qsizetype> &indexes);
    /// The first selected position, −1 if nothing is selected.
    qsizetype selectionIndex() const;
    /// Selects one object, or nothing for a position that there is not.
    bool setSelectionIndex(qsizetype index) { return setSelectionIndexes({index}); }
    /// The selected objects, in the order in which they are arranged.
    QVariantList selectedObjects() const;
    /// Whether something is selected, and something follows it.
    bool canSelectNext() const;
    /// Whether something is selected, and something precedes it.
    bool canSelectPrevious() const;
    /// Selects the object behind the last selected one only, if there is one.
    void selectNext();
    /// Selects the object before the first selected one only, if there is one.
    void selectPrevious();

    /// What answers the keys of the selected objects.
    QObject *selection() const;

    // --- What is being typed

    /// An editor says that somebody has begun to type something for the objects.
    /// \param editor is an NSEditor; it may be destroyed.
    void objectDidBeginEditing(QObject *editor);
    /// It is stored, or given up.
    void objectDidEndEditing(QObject *editor);
    /// Whether something is being typed.
    bool isEditing() const;
    /// Has the editors store what is typed.
    /// \return false if one cannot: it says why, and those behind it are not asked.
    [[nodiscard]] bool commitEditing();
    /// Has them give it up.
    void discardEditing();
    /// Whether others are selected by setSelectionIndexes() only if all that is typed can be stored.
    /// Not at first: the selection changes, and what cannot be stored is lost, which its editor
    /// tells.
    bool commitsBeforeSelecting() const { return _commitsBeforeSelecting; }
    /// Has others selected only then, or not.
    void setCommitsBeforeSelecting(bool commits) { _commitsBeforeSelecting = commits; }

Q_SIGNALS:
    void contentChanged();
    void arrangedObjectsChanged();
    void selectionChanged();
    /// Others are set; before the objects are arranged by them.
    void sortDescriptorsChanged();
    /// An object has been destroyed: it is nil now, and leaves at once, or, as one of very many, at
    /// the turn's end.
    void arrangedObjectIsGone(qsizetype index);

private:
    struct Deaths;

    QVariantList arranged(const QVariantList &content, const NSPredicate &filter,
                          KTPrivate::SortedOrder *order) const;
    void replaceContent(const QVariantList &content, const KTPrivate::RankedSelection *selected,
                        const KTPrivate::SortedOrder &order, const std::function<void()> &watch);
    void showReplaced(const QVariantList &shown, quint64 turn,
                      const KTPrivate::RankedSelection *selected);
    void show(const QVariantList &objects, const KTPrivate::RankedSelection &selected);
    KTPrivate::RankedSelection ranked() const;
    void tellSelection();
    void objectIsGone(QObject *object);
    void removeAtOnce(const QObject *object);
    void removeLater(const QObject *object);
    void forget(const std::vector<qsizetype> &ofContent, const std::vector<qsizetype> &ofArranged);
    bool commitBeforeSelecting(QList<qsizetype> *indexes);
    QList<qsizetype> selectable(const QList<qsizetype> &indexes) const;
    void removeDead();
    void removePlaces(const std::vector<qsizetype> &ofContent,
                      const std::vector<qsizetype> &ofArranged);
    void tellRemoved(const QList<qsizetype> &selectedBefore);
    void followChanges();
    void rearrangeLater();
    void rearrangeIfOthers();

    QVariantList _content;
    QVariantList _arrangedObjects;
    NSPredicate _filterPredicate;
    QList<NSSortDescriptor> _sortDescriptors;
    QList<qsizetype> _selectionIndexes;
    quint64 _turn = 0; ///< changes with the content and how it is arranged
    bool _rearrangesItself = false;
    bool _willRearrange = false;
    bool _commitsBeforeSelecting = false;
    std::unique_ptr<KTPrivate::SelectionProxy> _selection;
    std::unique_ptr<KTPrivate::SortedOrder> _order; ///< of the content
    std::unique_ptr<KTPrivate::Editors> _editors;
    std::unique_ptr<Deaths> _deaths;
    std::unique_ptr<KTPrivate::ContentWatch> _watch;
};
