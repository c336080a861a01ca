#include "ObservedKey_p.h"

#include "KeyPathObserver_p.h"
#include "NSKeyValueCodingObject.h"

#include <QDynamicPropertyChangeEvent>
#include <QHash>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QThread>

#include <algorithm>
#include <atomic>

using namespace KTPrivate;

namespace {
using KeysOfObject = QHash<QString, ObservedKey *>;

QHash<const QObject *, KeysOfObject> &observedKeys()
{
    static auto *const keys = new QHash<const QObject *, KeysOfObject>;
    return *keys;
}

/// The thread in which objects are observed, which is one. Whoever sets values of other objects in
/// another thread must not look at the table beside it.
std::atomic<Qt::HANDLE> &observingThread()
{
    static std::atomic<Qt::HANDLE> thread = nullptr;
    return thread;
}

NSKeyValueCodingObject *codingObject(QObject *object)
{
    return qobject_cast<NSKeyValueCodingObject *>(object);
}

quint64 nextKeySerial()
{
    static quint64 serial = 0;
    return ++serial;
}

int indexOfSlot(const char *name)
{
    return ObservedKey::staticMetaObject.indexOfSlot(name);
}
} // namespace

NSKeyValueCodingObject::~NSKeyValueCodingObject() = default;
void NSKeyValueCodingObject::firstObserverCame(const QString &) {}
void NSKeyValueCodingObject::lastObserverWent(const QString &) {}

/// While observers are notified of changes, entries keep their places.
class ObservedKey::Telling
{
public:
    explicit Telling(ObservedKey *key) : _key(key) { ++key->_telling; }
    ~Telling()
    {
        if (--_key->_telling == 0)
            _key->settle();
    }
    Telling(const Telling &) = delete;
    Telling &operator=(const Telling &) = delete;

private:
    ObservedKey *_key;
};

ObservedKey *ObservedKey::of(QObject *object, const QString &key)
{
    ObservedKey *const known = existing(object, key);
    return known ? known : new ObservedKey(object, key);
}

ObservedKey *ObservedKey::existing(const QObject *object, const QString &key)
{
    if (observingThread() != QThread::currentThreadId())
        return nullptr;
    const auto keys = observedKeys().constFind(object);
    return keys == observedKeys().constEnd() ? nullptr : keys->value(key);
}

QList<ObservedKey *> ObservedKey::allOf(const QObject *object)
{
    QList<ObservedKey *> keys = observedKeys().value(object).values();
    std::sort(keys.begin(), keys.end(), [](const ObservedKey *left, const ObservedKey *right) {
        return left->_serial < right->_serial;
    });
    return keys;
}

ObservedKey::ObservedKey(QObject *object, const QString &key)
    : _object(object), _address(object), _key(key), _serial(nextKeySerial())
{
    observingThread() = QThread::currentThreadId();
    connectTo(object);
    observedKeys()[object].insert(key, this);
    if (NSKeyValueCodingObject *const coding = codingObject(object)) {
        try {
            coding->firstObserverCame(_key);
        } catch (...) {
            forget();
            throw;
        }
    }
}

ObservedKey::~ObservedKey()
{
    forget();
}

void ObservedKey::forget()
{
    const auto keys = observedKeys().find(_address);
    if (keys == observedKeys().end())
        return;
    if (keys->value(_key) == this)
        keys->remove(_key);
    if (keys->isEmpty())
        observedKeys().erase(keys);
}

void ObservedKey::connectTo(QObject *object)
{
    QObject::connect(object, &QObject::destroyed, this, &ObservedKey::objectIsGone);
    const QMetaObject *const type = object->metaObject();
    const int index = type->indexOfProperty(_key.toUtf8().constData());
    if (index >= 0 && type->property(index).hasNotifySignal()) {
        static const int slot = indexOfSlot("notified()");
        QMetaObject::connect(object, type->property(index).notifySignalIndex(), this, slot);
    } else if (index < 0) {
        object->installEventFilter(this);
    }
}

bool ObservedKey::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == _key.toUtf8())
        notified();
    return false;
}

void ObservedKey::insert(const Entry &entry)
{
    const auto isBefore = [](const Entry &left, const Entry &right) {
        return left.observer->serial() < right.observer->serial();
    };
    _entries.insert(std::upper_bound(_entries.begin(), _entries.end(), entry, isBefore), entry);
}

void ObservedKey::add(KeyPathObserver *observer, size_t step)
{
    if (_telling > 0)
        _added.push_back({observer, step});
    else
        insert({observer, step});
}

void ObservedKey::remove(KeyPathObserver *observer, size_t step)
{
    const auto isIt = [&](const Entry &entry) {
        return entry.observer == observer && entry.step == step;
    };
    std::erase_if(_added, isIt);
    for (Entry &entry : _entries) {
        if (isIt(entry))
            entry.observer = nullptr;
    }
    _hasGaps = true;
    if (_telling == 0)
        settle();
}

/// Takes in what changed while observers were notified. Without observers the key is destroyed, so
/// that this is the last thing that any function does.
void ObservedKey::settle()
{
    if (std::exchange(_hasGaps, false))
        std::erase_if(_entries, [](const Entry &entry) { return !entry.observer; });
    for (const Entry &entry : std::exchange(_added, {}))
        insert(entry);
    if (!_entries.empty())
        return;
    // Out of the table first: whoever begins to observe the key now begins anew.
    forget();
    if (_object) {
        if (NSKeyValueCodingObject *const coding = codingObject(_object))
            coding->lastObserverWent(_key);
    }
    delete this;
}

void ObservedKey::tell(const NSKeyValueChange &change)
{
    const Telling telling(this);
    for (size_t index = 0; index < _entries.size(); ++index) {
        const Entry entry = _entries[index];
        if (entry.observer)
            entry.observer->keyChanged(entry.step, change);
    }
}

void ObservedKey::notified()
{
    if (_changing == 0)
        tell({});
}

void ObservedKey::objectIsGone()
{
    const Telling telling(this);
    for (size_t index = 0; index < _entries.size(); ++index) {
        const Entry entry = _entries[index];
        if (entry.observer)
            entry.observer->objectIsGone(entry.step);
    }
    // One may take others along.
    while (!_added.empty()) {
        const Entry entry = _added.back();
        _added.pop_back();
        entry.observer->objectIsGone(entry.step);
    }
}

void ObservedKey::willChange(NSKeyValueChangeKind kind, const QList<qsizetype> &indexes)
{
    ++_changing;
    try {
        tell({kind, {}, {}, indexes, true});
    } catch (...) {
        // What an observer raises ends the change before it began.
        cancelChange();
        throw;
    }
}

void ObservedKey::cancelChange()
{
    _changing = std::max(0, _changing - 1);
}

void ObservedKey::didChange(NSKeyValueChangeKind kind, const QList<qsizetype> &indexes)
{
    _changing = std::max(0, _changing - 1);
    if (_changing == 0)
        tell({kind, {}, {}, indexes, false});
}
