#include "ContentWatch_p.h"

#include <KTUtility/Platform/Keys/NotifySignals_p.h>

#include <QMetaMethod>
#include <QMetaProperty>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace KTPrivate;

namespace {
/// The first key of a path.
QByteArray firstKeyOf(const NSSortDescriptor &descriptor)
{
    return descriptor.key.section(u'.', 0, 0).toUtf8();
}

/// The signal of a property; −1 if it has none.
int signalOf(const QMetaObject *type, const QByteArray &key)
{
    const int index = type->indexOfProperty(key.constData());
    return index < 0 ? -1 : type->property(index).notifySignalIndex();
}
} // namespace

QObject *ContentWatch::objectIn(const QVariant &element)
{
    // It may be about to be destroyed, and is not asked for anything.
    if (element.metaType().flags() & QMetaType::PointerToQObject)
        return *static_cast<QObject *const *>(element.constData());
    const KeyValueTarget target = KeyValueTarget::ofVariant(element);
    return target.kind == KeyValueTarget::Kind::Object ? target.object() : nullptr;
}

bool ContentWatch::isGone(const QVariant &element, const QObject *object)
{
    if (element.metaType().flags() & QMetaType::PointerToQObject)
        return *static_cast<QObject *const *>(element.constData()) == object;
    // Nils of other types stand for no object.
    return element.metaType().flags() & QMetaType::TrackingPointerToQObject &&
           KeyValueTarget::ofVariant(element).kind == KeyValueTarget::Kind::Nil;
}

void ContentWatch::setContent(const QVariantList &content)
{
    for (auto &each : _watched)
        each.second.count = 0;
    _watched.reserve(size_t(content.size()));
    // All are watched before the first one is asked for something, which may destroy others.
    Objects added;
    for (const QVariant &element : content) {
        if (QObject *const object = count(element); object && _isFollowing)
            added.emplace_back(object);
    }
    for (const auto &[object, watched] : _watched) {
        if (watched.count == 0)
            _unused.push_back(object);
    }
    observeKeys(added);
}

void ContentWatch::add(const QVariant &element)
{
    if (QObject *const object = count(element))
        observeKeys({object});
}

void ContentWatch::remove(const QVariant &element)
{
    const auto watched = _watched.find(objectIn(element));
    if (watched != _watched.end() && watched->second.count > 0 && --watched->second.count == 0)
        _unused.push_back(watched->first);
}

void ContentWatch::endUnused()
{
    for (QObject *const object : std::exchange(_unused, {})) {
        const auto watched = _watched.find(object);
        if (watched == _watched.end() || watched->second.count > 0)
            continue;
        QObject::disconnect(object, nullptr, this, nullptr);
        // It is out of the way when the object learns that it is observed no more.
        const auto ended = _watched.extract(watched);
    }
}

/// \return the object that an element is, if it was not watched before.
QObject *ContentWatch::count(const QVariant &element)
{
    QObject *const object = objectIn(element);
    if (!object)
        return nullptr;
    const auto [watched, isNew] = _watched.try_emplace(object);
    ++watched->second.count;
    if (isNew)
        begin(object);
    return isNew ? object : nullptr;
}

void ContentWatch::begin(QObject *object)
{
    static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
    static const int slot = staticMetaObject.indexOfSlot("objectIsGone(QObject*)");
    QMetaObject::connect(object, destroyed, this, slot);
    if (_isFollowing)
        connectNotifySignals(object, this, "objectChanged()");
}

void ContentWatch::objectIsGone(QObject *object)
{
    _watched.erase(object);
    _gone(object);
}

// --- Changes ------------------------------------------------------------------------------------

void ContentWatch::followChanges(const QList<NSSortDescriptor> &keys, bool all)
{
    const bool wasFollowing = std::exchange(_isFollowing, true);
    const bool areOthers = std::exchange(_keys, keys) != keys || !wasFollowing;
    _followsAll = all || std::ranges::any_of(keys, [](const NSSortDescriptor &key) {
                      return key.member || key.key.isNull() || key.key == u"self";
                  });
    if (!areOthers)
        return;
    _signals.clear();
    ++_round;
    Objects objects;
    for (const auto &each : _watched) {
        objects.emplace_back(each.first);
        if (!wasFollowing)
            connectNotifySignals(each.first, this, "objectChanged()");
    }
    observeKeys(objects);
}

void ContentWatch::ignoreChanges()
{
    if (!std::exchange(_isFollowing, false))
        return;
    ++_round;
    // They are out of the way when the objects learn that they are observed no more.
    std::vector<NSKeyValueObservation> ended;
    for (auto &[object, watched] : _watched) {
        QObject::disconnect(object, nullptr, this, SLOT(objectChanged()));
        std::ranges::move(watched.observations, std::back_inserter(ended));
        watched.observations.clear();
    }
}

/// Observes the keys whose changes no signal of the objects tells. That calls getters, which may
/// destroy objects and this one, or lead here again.
void ContentWatch::observeKeys(const Objects &objects)
{
    const QPointer<ContentWatch> self = this;
    const quint64 round = _round;
    for (const QPointer<QObject> &object : objects) {
        if (!_isFollowing || !object)
            continue;
        std::vector<NSKeyValueObservation> observations = observationsOf(object);
        if (!self || _round != round)
            return;
        const auto watched = object ? _watched.find(object) : _watched.end();
        if (watched != _watched.end())
            watched->second.observations.swap(observations);
    }
}

std::vector<NSKeyValueObservation> ContentWatch::observationsOf(const QPointer<QObject> &object)
{
    const QPointer<ContentWatch> self = this;
    const auto tell = [self](const NSKeyValueChange &) {
        if (self)
            self->_changed();
    };
    std::vector<NSKeyValueObservation> observations;
    const QList<NSSortDescriptor> keys = _keys;
    for (const NSSortDescriptor &key : keys) {
        const bool isTold = object && !key.key.contains(u'.') &&
                            signalOf(object->metaObject(), firstKeyOf(key)) >= 0;
        if (!object || key.member || key.key.isNull() || isTold)
            continue;
        try {
            observations.emplace_back(object, key.key, NSKeyValueObservingOptions(), tell);
        } catch (...) {
            continue; // It lacks the key, or does not tell it: there is nothing to be observed.
        }
    }
    return observations;
}

QSet<int> ContentWatch::signalsThatCount(const QMetaObject *type) const
{
    QSet<int> counting;
    for (const NSSortDescriptor &key : _keys)
        counting += signalOf(type, firstKeyOf(key));
    return counting;
}

void ContentWatch::objectChanged()
{
    // One that lives in another thread may have been let go since it changed.
    if (!sender())
        return;
    const QMetaObject *const type = sender()->metaObject();
    if (!_followsAll && !_signals.contains(type))
        _signals.insert(type, signalsThatCount(type));
    if (_followsAll || _signals.value(type).contains(senderSignalIndex()))
        _changed();
}
