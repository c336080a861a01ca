#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSPredicate.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Keys/NSSortDescriptor.h>

#include <QObject>
#include <QVariantList>

#include <memory>

namespace KTPrivate {
class RankedSelection;
class SelectionProxy;
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
/// always the same object. The objects are not owned; take them out of the content
/// before they are destroyed. For the main thread.
///
/// \code
/// NSArrayController controller;
/// controller.setContent({QVariant::fromValue(ada), QVariant::fromValue(bob)});
/// controller.setSelectionIndexes({0});
/// view->bind(NSValueBinding, &controller, u"selection.name"_s, {});
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

    /// The positions of the selected objects among the arranged ones, ascending.
    const QList<qsizetype> &selectionIndexes() const { return _selectionIndexes; }
    /// Selects these objects only; positions that there are not are left out. What getters of the
    /// objects or observers raise is thrown when the objects are selected and all are notified.
    void setSelectionIndexes(const QList<qsizetype> &indexes);
    /// The first selected position, −1 if nothing is selected.
    qsizetype selectionIndex() const;
    /// Selects one object, or nothing for a position that there is not.
    void setSelectionIndex(qsizetype index) { setSelectionIndexes({index}); }
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

Q_SIGNALS:
    void contentChanged();
    void arrangedObjectsChanged();
    void selectionChanged();
    /// Others are set; before the objects are arranged by them.
    void sortDescriptorsChanged();

private:
    QVariantList arranged(const QVariantList &content, const NSPredicate &filter) const;
    void replaceContent(const QVariantList &content, const KTPrivate::RankedSelection &selected);
    void show(const QVariantList &objects, const KTPrivate::RankedSelection &selected);
    KTPrivate::RankedSelection ranked() const;
    void tellSelection();

    QVariantList _content;
    QVariantList _arrangedObjects;
    NSPredicate _filterPredicate;
    QList<NSSortDescriptor> _sortDescriptors;
    QList<qsizetype> _selectionIndexes;
    quint64 _turn = 0; ///< changes with the content and how it is arranged
    std::unique_ptr<KTPrivate::SelectionProxy> _selection;
};
