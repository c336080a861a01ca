#pragma once

#include <KTUtility/Platform/Keys/NSKeyValueCodingObject.h>
#include <KTUtility/Platform/Keys/NSKeyValueObservation.h>

#include <QStringList>
#include <QVariantList>

#include <map>
#include <vector>

namespace KTPrivate {
/// Stands for the selected objects of a controller: answers their keys, and notifies when they
/// change.
class SelectionProxy : public QObject, public NSKeyValueCodingObject
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueCodingObject)

public:
    /// Stands for other objects from now on.
    void setObjects(const QVariantList &objects);

    std::optional<QVariant> valueForKey(const QString &key) const override;
    bool setValueForKey(const QVariant &value, const QString &key) override;
    void firstObserverCame(const QString &key) override;
    void lastObserverWent(const QString &key) override;

private:
    void observe(const QString &key);
    void finishSetting();
    void valueHasChanged(const QString &key);

    QVariantList _objects;
    std::map<QString, std::vector<NSKeyValueObservation>> _observations;
    // While the objects are being set.
    int _setting = 0;
    QStringList _changedWhileSetting;
};
} // namespace KTPrivate
