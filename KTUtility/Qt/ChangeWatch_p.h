#pragma once

#include <KTUtility/Platform/Keys/ChangeChain_p.h>

#include <QObject>
#include <QPointer>
#include <QProperty>

#include <functional>
#include <memory>
#include <vector>

namespace KTPrivate {
/// Calls a function whenever a property of an object may have changed: by NOTIFY signals, and where
/// there are none as bindable properties. What the function raises is logged.
class ChangeWatch : public QObject,
                    public ChangeSource,
                    public std::enable_shared_from_this<ChangeWatch>
{
    Q_OBJECT

public:
    ChangeWatch(QObject *object, std::function<void()> changed);

    /// Whether the object is there.
    bool isActive() const { return !_object.isNull(); }
    QObject *object() const { return _object; }
    void stop();
    QString changingName() const override;

private Q_SLOTS:
    void objectChanged();

private:
    QPointer<QObject> _object;
    std::function<void()> _changed; ///< none once it has stopped and returned
    int _calls = 0;
    std::vector<QPropertyNotifier> _notifiers;
};
} // namespace KTPrivate
