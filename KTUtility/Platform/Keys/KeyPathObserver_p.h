#pragma once

// Private to the library. For stand-ins that observe objects whose getters may raise.

#include "KeyPath.h"
#include "NSKeyValueObservation.h"

#include <QPointer>
#include <QVarLengthArray>

#include <memory>

namespace KTPrivate {
class ObservedKey;

/// An option beside the public ones: the observation begins although a getter raises, and there is
/// no value until the next change. Lacking keys end it as ever.
inline constexpr NSKeyValueObservingOptions ObservingWhatCannotBeRead = 1 << 16;

/// What an NSKeyValueObservation does: follows the path and notifies of changes at its end.
///
/// It has one owner, who lets go of it with end(). What is called meanwhile may be that owner, so that
/// it destroys itself when the last call has come back.
class KeyPathObserver
{
public:
    /// One call by a key on the path, or by whoever starts it; as long as there is one, it stays.
    class Call
    {
    public:
        explicit Call(KeyPathObserver *observer) : _observer(observer) { ++observer->_calls; }
        ~Call()
        {
            if (--_observer->_calls == 0 && !_observer->_isOwned)
                delete _observer;
        }
        Call(const Call &) = delete;
        Call &operator=(const Call &) = delete;

    private:
        KeyPathObserver *_observer;
    };

    KeyPathObserver(const QString &keyPath, NSKeyValueObservingOptions options,
                    NSKeyValueObservation::Callback callback);
    KeyPathObserver(const KeyPathObserver &) = delete;
    KeyPathObserver &operator=(const KeyPathObserver &) = delete;

    /// Observes an object; nothing if it is null.
    /// \throws NSException as the observation's constructor says.
    void start(QObject *object);
    /// Ends the observation; the owner has to forget the observer before.
    void end();
    /// Whether there is an owner still.
    bool isOwned() const { return _isOwned; }
    bool isActive() const { return _isActive; }
    /// Later observations have greater ones.
    quint64 serial() const { return _serial; }

    /// The key at a step of the path has changed, or is about to.
    void keyChanged(size_t step, const NSKeyValueChange &change);
    /// The object at a step of the path is destroyed.
    void objectIsGone(size_t step);

private:
    ~KeyPathObserver() = default;

    void stop();
    void followFrom(size_t step, QObject *object);
    void follow(size_t step, QObject *object);
    void followAgainBehind(size_t step);
    void setFollowed(size_t count);
    void leaveFrom(size_t step);
    QObject *objectAt(size_t step) const;
    QObject *objectBehind(size_t step);
    QString pathFrom(size_t step) const;
    QVariant read();
    QVariant value();
    bool wants(NSKeyValueObservingOptions options) const { return (_options & options) != 0; }
    void setValues(NSKeyValueChange *change);
    void tellInitial(const QVariant &value);
    void tellPrior(const NSKeyValueChange &change);
    void tell(const NSKeyValueChange &change);
    void tellValues(const NSKeyValueChange &change);

    struct Step
    {
        QString key;
        QPointer<ObservedKey> observed; // of the object there
        // Whether the object takes the rest of the path as one key.
        bool takesRest = false;
    };

    size_t stepCount() const { return size_t(_steps.size()); }
    Step &stepAt(size_t step) { return _steps[qsizetype(step)]; }
    const Step &stepAt(size_t step) const { return _steps[qsizetype(step)]; }

    NSKeyValueObservingOptions _options;
    int _calls = 0;
    NSKeyValueObservation::Callback _callback;
    quint64 _serial;
    // Most paths are one key.
    QVarLengthArray<Step, 1> _steps;
    std::unique_ptr<KeyPath> _rest; // from the last step that was followed on; null: to be made
    // Of those who want old values.
    std::unique_ptr<QVariant> _lastValue;
    // Changes whenever the steps lead elsewhere.
    quint64 _turn = 0;
    // How many steps lead over objects.
    uint _followed = 0;
    bool _isActive = false;
    bool _isOwned = true;
};
} // namespace KTPrivate
