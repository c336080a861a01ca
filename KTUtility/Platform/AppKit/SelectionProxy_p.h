#pragma once

#include <KTUtility/Platform/Keys/NSKeyValueCodingObject.h>
#include <KTUtility/Platform/Keys/NSKeyValueObservation.h>

#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSError.h>

#include <QHash>
#include <QStringList>
#include <QVariantList>

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace KTPrivate {
/// Stands for the selected objects of a controller: answers their keys and key paths, and notifies
/// when they change.
///
/// As long as the objects have several values, a change that leaves it at that is no news: then
/// nobody is notified, and a program that changes all of many objects costs no time for each but
/// its own.
class SelectionProxy : public QObject, public NSKeyValueCodingObject
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueCodingObject)

public:
    /// Stands for other objects from now on. What a getter or an observer raises is thrown when all
    /// objects are observed and all observers notified; each of them may destroy this object.
    void setObjects(const QVariantList &objects);

    /// One of the objects has been destroyed: it has no values from now on.
    /// \param object what is left of it; only for its address.
    void objectIsGone(const QObject *object);

    std::optional<QVariant> valueForKey(const QString &key) const override;
    bool setValueForKey(const QVariant &value, const QString &key) override;
    bool answersKeyPaths() const override { return true; }
    void firstObserverCame(const QString &key) override;
    void lastObserverWent(const QString &key) override;
    /// Asks all of the objects.
    Q_INVOKABLE bool validateValue(QVariant *value, const QString &key, NSError *error);

private:
    /// What is known of a path that is observed: the values of the objects, as hashes, since it
    /// only matters whether there are several.
    struct Watch
    {
        bool hasSeveralValues() const { return counts.size() > 1; }
        void setValue(size_t index, const QVariant &value);

        QString key;
        std::vector<NSKeyValueObservation> observations;
        std::vector<size_t> hashes;
        QHash<size_t, int> counts;
    };

    bool isCurrent(const std::shared_ptr<Watch> &watch) const;
    void observe(const QString &key, FirstFailure *failure);
    void observe(const QVariant &object, size_t index, const std::shared_ptr<Watch> &watch,
                 FirstFailure *failure);
    void follow(QObject *record, const QString &path, size_t index,
                const std::shared_ptr<Watch> &watch);
    void finishSetting();
    void valueHasChanged(const QString &key, bool isNews);

    QVariantList _objects;
    /// Where they are, once one of them has been looked for.
    std::optional<QHash<const QObject *, QList<qsizetype>>> _places;
    std::map<QString, std::shared_ptr<Watch>> _watches;
    // While the objects are being set.
    int _setting = 0;
    QStringList _changedWhileSetting;
};
} // namespace KTPrivate
