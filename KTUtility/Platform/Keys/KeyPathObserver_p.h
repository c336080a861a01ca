#pragma once

// Private to the library. For stand-ins that observe objects whose getters may raise.

#include "KeyPath.h"
#include "NSKeyValueObservation.h"

#include <QPointer>

#include <memory>
#include <vector>

namespace KTPrivate {
class ObservedKey;

/// An option beside the public ones: the observation begins although a getter raises, and there is
/// no value until the next change. Lacking keys end it as ever.
inline constexpr NSKeyValueObservingOptions ObservingWhatCannotBeRead = 1 << 16;

/// What an NSKeyValueObservation does: follows the path and notifies of changes at its end.
class KeyPathObserver : public std::enable_shared_from_this<KeyPathObserver>
{
public:
    KeyPathObserver(QObject *object, const QString &keyPath, NSKeyValueObservingOptions options,
                    NSKeyValueObservation::Callback callback);
    ~KeyPathObserver();
    KeyPathObserver(const KeyPathObserver &) = delete;
    KeyPathObserver &operator=(const KeyPathObserver &) = delete;

    /// \throws NSException as the observation's constructor says.
    void start();
    void stop();
    bool isActive() const { return _isActive; }
    /// Later observations have greater ones.
    quint64 serial() const { return _serial; }

    /// The key at a step of the path has changed, or is about to.
    void keyChanged(size_t step, const NSKeyValueChange &change);
    /// The object at a step of the path is destroyed.
    void objectIsGone(size_t step);

private:
    class Call;

    void followFrom(size_t step);
    void follow(size_t step);
    void followAgainBehind(size_t step);
    void setFollowed(size_t count);
    void leaveFrom(size_t step);
    QObject *objectBehind(size_t step);
    QString pathFrom(size_t step) const;
    QVariant read();
    QVariant value();
    bool wants(NSKeyValueObservingOptions options) const { return (_options & options) != 0; }
    void setValues(NSKeyValueChange *change);
    void tellInitial();
    void tellPrior(const NSKeyValueChange &change);
    void tell(const NSKeyValueChange &change);

    struct Step
    {
        QString key;
        QPointer<QObject> object;
        QPointer<ObservedKey> observed;
        // Whether the object takes the rest of the path as one key.
        bool takesRest = false;
    };

    QPointer<QObject> _root;
    NSKeyValueObservingOptions _options;
    NSKeyValueObservation::Callback _callback;
    quint64 _serial;
    std::vector<Step> _steps;
    // How many steps lead over objects, and the rest of the path from the last of them on.
    size_t _followed = 0;
    std::unique_ptr<KeyPath> _rest; // null: to be made
    // Changes whenever the steps lead elsewhere.
    quint64 _turn = 0;
    QVariant _lastValue;
    bool _isActive = false;
    // What is called may end the observation, and its owner go: then it keeps itself to the end.
    int _calls = 0;
    std::shared_ptr<KeyPathObserver> _keptByCalls;
};
} // namespace KTPrivate
