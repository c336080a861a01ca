#include "ObservedKey_p.h"

#include "KeyPathObserver_p.h"
#include "KeyValueTarget.h"
#include "NSKeyValueCodingObject.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

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

/// Connects a signal to a slot of this class by their names, where these say which they are: Qt then
/// calls the slot itself instead of looking for it, each time, from the top of the class.
bool connectByName(QObject *object, const QMetaMethod &signal, ObservedKey *receiver)
{
    const QByteArray signature = signal.methodSignature();
    return object->metaObject()->indexOfSignal(signature.constData()) == signal.methodIndex() &&
           QObject::connect(object, QByteArray('2' + signature).constData(), receiver,
                            SLOT(notified()));
}

int indexOfSlot(const char *name)
{
    return ObservedKey::staticMetaObject.indexOfSlot(name);
}

/// What signals and events say of a change.
constinit const NSKeyValueChange PlainSetting{};

/// For what observers raise, out of a signal or an event.
constexpr QStringView Observer = u"an observer of the key";
} // namespace

NSKeyValueCodingObject::~NSKeyValueCodingObject() = default;
bool NSKeyValueCodingObject::answersKeyPaths() const
{
    return false;
}
void NSKeyValueCodingObject::firstObserverCame(const QString &) {}
void NSKeyValueCodingObject::lastObserverWent(const QString &) {}

/// While observers are notified of changes, entries keep their places.
class ObservedKey::Telling
{
public:
    explicit Telling(ObservedKey *key) : _key(key) { ++key->_telling; }
    ~Telling()
    {
        if (--_key->_telling == 0 && !_key->isSettled())
            _key->settle();
    }
    Telling(const Telling &) = delete;
    Telling &operator=(const Telling &) = delete;

private:
    ObservedKey *_key;
};

ObservedKey *ObservedKey::of(QObject *object, const QString &key)
{
    if (ObservedKey *const known = existing(object, key))
        return known;
    std::unique_ptr<ObservedKey> made(new ObservedKey(object, key));
    made->tellThatFirstObserverCame();
    return made->_object ? made.release() : nullptr;
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
    if (index < 0)
        object->installEventFilter(this);
    else
        connectTo(object, type->property(index));
}

void ObservedKey::connectTo(QObject *object, const QMetaProperty &property)
{
    if (property.hasNotifySignal()) {
        if (connectByName(object, property.notifySignal(), this))
            return;
        static const int slot = indexOfSlot("notified()");
        QMetaObject::connect(object, property.notifySignalIndex(), this, slot);
    } else if (property.isBindable()) {
        _notifier = std::make_unique<QPropertyNotifier>(
            property.bindable(object).addNotifier([this] { notified(); }));
    }
}

QString ObservedKey::changingName() const
{
    return KeyValueTarget::of(_object.data()).description() + u'.' + _key;
}

/// The object may be destroyed by whoever is notified; Qt must not go on with it then.
bool ObservedKey::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<QObject> object = watched;
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == _key.toUtf8())
        notified();
    return !object;
}

/// Where an observer's step is among the entries, or would be.
std::vector<ObservedKey::Entry>::iterator ObservedKey::placeOf(quint64 serial, size_t step)
{
    const auto isBefore = [](const Entry &entry, const std::pair<quint64, size_t> &wanted) {
        return std::pair(entry.serial, entry.step) < wanted;
    };
    return std::lower_bound(_entries.begin(), _entries.end(), std::pair(serial, step), isBefore);
}

void ObservedKey::insert(const Entry &entry)
{
    const auto place = placeOf(entry.serial, entry.step);
    const bool wasHere =
        place != _entries.end() && place->serial == entry.serial && place->step == entry.step;
    if (!wasHere) {
        _entries.insert(place, entry);
        return;
    }
    _gaps -= place->observer ? 0 : 1;
    *place = entry;
}

void ObservedKey::add(KeyPathObserver *observer, size_t step)
{
    const Entry entry{observer, observer->serial(), step};
    if (_telling > 0)
        _added.push_back(entry);
    else
        insert(entry);
}

void ObservedKey::remove(KeyPathObserver *observer, size_t step)
{
    std::erase_if(_added, [&](const Entry &entry) {
        return entry.observer == observer && entry.step == step;
    });
    const auto place = placeOf(observer->serial(), step);
    if (place != _entries.end() && place->observer == observer && place->step == step) {
        place->observer = nullptr;
        ++_gaps;
    }
    goIfUnused();
}

void ObservedKey::goIfUnused()
{
    if (_telling == 0)
        settle();
}

/// Whether nothing came or went while observers were notified.
bool ObservedKey::isSettled() const
{
    return _added.empty() && _gaps == 0 && !_entries.empty();
}

void ObservedKey::takeInAdded()
{
    for (const Entry &entry : std::exchange(_added, {}))
        insert(entry);
}

/// Takes in what changed while observers were notified. Without observers the key is destroyed, so
/// that this is the last thing that any function does. Gaps stay as long as they are few, so that
/// all observers are taken away in linear time.
void ObservedKey::settle()
{
    takeInAdded();
    if (2 * _gaps > _entries.size()) {
        std::erase_if(_entries, [](const Entry &entry) { return !entry.observer; });
        _gaps = 0;
    }
    if (!_entries.empty())
        return;
    // Out of the table first: whoever begins to observe the key now begins anew. What the object
    // does when it is told, as to notify of a change or to go, does not destroy the key as well.
    forget();
    ++_telling;
    tellThatLastObserverWent();
    delete this;
}

/// The object may have the key observed meanwhile and let go of it, or be destroyed: the key stays.
/// If the object raises, whoever made the key destroys it.
void ObservedKey::tellThatFirstObserverCame()
{
    NSKeyValueCodingObject *const coding = codingObject(_object);
    if (!coding)
        return;
    ++_telling;
    coding->firstObserverCame(_key);
    --_telling;
    takeInAdded();
}

void ObservedKey::tellThatLastObserverWent() const
{
    NSKeyValueCodingObject *const coding = _object ? codingObject(_object) : nullptr;
    if (coding)
        guarded(Observer, _key, [&] { coding->lastObserverWent(_key); });
}

/// The key is there as long as it is telling.
void ObservedKey::tell(const Entry &entry, const NSKeyValueChange &change, Raised raised) const
{
    KeyPathObserver *const observer = entry.observer;
    if (!observer)
        return;
    if (raised == Raised::Passes) {
        observer->keyChanged(entry.step, change);
        return;
    }
    try {
        observer->keyChanged(entry.step, change);
    } catch (...) {
        logException(Observer, _key);
    }
}

void ObservedKey::tell(const NSKeyValueChange &change, Raised raised)
{
    const Telling telling(this);
    const ChangeChain chain(this);
    if (chain.isEndless())
        return;
    if (!_added.empty()) {
        tellAdded(change, raised);
        return;
    }
    // Entries keep their places meanwhile.
    const Entry *const end = _entries.data() + _entries.size();
    for (const Entry *entry = _entries.data(); entry != end; ++entry)
        tell(*entry, change, raised);
}

/// The same when some were added while observers were notified of another change: these are not among
/// the entries yet.
void ObservedKey::tellAdded(const NSKeyValueChange &change, Raised raised)
{
    const std::vector<Entry> added = _added;
    for (size_t index = 0; index < _entries.size(); ++index)
        tell(_entries[index], change, raised);
    for (const Entry &entry : added) {
        if (std::find(_added.begin(), _added.end(), entry) != _added.end())
            tell(entry, change, raised);
    }
}

/// Called through Qt's signals and events, which no exception may leave.
void ObservedKey::notified()
{
    if (_changing == 0)
        tell(PlainSetting, Raised::IsReported);
}

void ObservedKey::objectIsGone()
{
    const Telling telling(this);
    // Whoever observes another object at the same address does so anew.
    forget();
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
    const QPointer<ObservedKey> self = this;
    try {
        tell({kind, {}, {}, indexes, true}, Raised::Passes);
    } catch (...) {
        // What an observer raises ends the change before it began. The last one may have gone.
        if (self)
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
        tell({kind, {}, {}, indexes, false}, Raised::Passes);
}
