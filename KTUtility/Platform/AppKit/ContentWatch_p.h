#pragma once

#include <KTUtility/Platform/Keys/NSKeyValueObservation.h>
#include <KTUtility/Platform/Queries/NSSortDescriptor.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QVariantList>

#include <functional>
#include <unordered_map>
#include <vector>

namespace KTPrivate {
/// Knows when objects of a list are destroyed, and, if it is to, when what they are sorted or
/// filtered by has changed. For the former one connection for each object is made; for the latter
/// one for each signal of it, and an observation for each key that lies behind another object or has
/// no signal.
class ContentWatch : public QObject
{
    Q_OBJECT

public:
    using Gone = std::function<void(QObject *object)>;
    using Changed = std::function<void()>;

    ContentWatch(Gone gone, Changed changed) : _gone(std::move(gone)), _changed(std::move(changed))
    {
    }

    /// Watches the objects of another list. Those that are in none any more are watched until
    /// endUnused(), for whoever still shows them.
    void setContent(const QVariantList &content);
    /// One more time, or one time less; likewise.
    void add(const QVariant &element);
    void remove(const QVariant &element);
    /// Watches objects that are not in the list no longer.
    void endUnused();

    /// Tells of changes, too.
    /// \param keys what the elements are sorted by.
    /// \param all whether all that changes counts, as for a filter.
    void followChanges(const QList<NSSortDescriptor> &keys, bool all);
    /// Does so no more.
    void ignoreChanges();

    /// The object that an element is; null for everything else.
    static QObject *objectIn(const QVariant &element);
    /// Whether an element is an object that has been destroyed, at an address or in a QPointer.
    static bool isGone(const QVariant &element, const QObject *object);

private Q_SLOTS:
    void objectIsGone(QObject *object);
    void objectChanged();

private:
    struct Watched
    {
        int count = 0; ///< how often it is in the list
        std::vector<NSKeyValueObservation> observations;
    };

    using Objects = std::vector<QPointer<QObject>>;

    QObject *count(const QVariant &element);
    void begin(QObject *object);
    void observeKeys(const Objects &objects);
    std::vector<NSKeyValueObservation> observationsOf(const QPointer<QObject> &object);
    QSet<int> signalsThatCount(const QMetaObject *type) const;

    Gone _gone;
    Changed _changed;
    std::unordered_map<QObject *, Watched> _watched;
    std::vector<QObject *> _unused; ///< may be watched no more; only for their addresses
    quint64 _round = 0;             ///< changes with what is observed
    bool _isFollowing = false;
    bool _followsAll = false;
    QList<NSSortDescriptor> _keys;
    QHash<const QMetaObject *, QSet<int>> _signals; ///< of classes, that count
};
} // namespace KTPrivate
