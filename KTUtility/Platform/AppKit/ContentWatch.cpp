#include "ContentWatch_p.h"

#include <KTUtility/Platform/Keys/NotifySignals_p.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QMetaMethod>
#include <QMetaProperty>

#include <algorithm>
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
    return element.isValid() &&
           KeyValueTarget::ofVariant(element).kind == KeyValueTarget::Kind::Nil;
}

void ContentWatch::setContent(const QVariantList &content)
{
    for (auto &each : _watched)
        each.second.count = 0;
    _watched.reserve(size_t(content.size()));
    for (const QVariant &element : content)
        add(element);
    std::erase_if(_watched, [this](const auto &each) {
        if (each.second.count == 0)
            end(each.first);
        return each.second.count == 0;
    });
}

void ContentWatch::add(const QVariant &element)
{
    QObject *const object = objectIn(element);
    if (!object)
        return;
    const auto [watched, isNew] = _watched.try_emplace(object);
    ++watched->second.count;
    if (isNew)
        begin(object, &watched->second);
}

void ContentWatch::remove(const QVariant &element)
{
    const auto watched = _watched.find(objectIn(element));
    if (watched == _watched.end() || --watched->second.count > 0)
        return;
    end(watched->first);
    _watched.erase(watched);
}

void ContentWatch::begin(QObject *object, Watched *watched)
{
    static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
    static const int slot = staticMetaObject.indexOfSlot("objectIsGone(QObject*)");
    QMetaObject::connect(object, destroyed, this, slot);
    if (!_isFollowing)
        return;
    connectNotifySignals(object, this, "objectChanged()");
    observeKeys(object, watched);
}

void ContentWatch::end(QObject *object)
{
    QObject::disconnect(object, nullptr, this, nullptr);
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
    for (auto &[object, watched] : _watched) {
        if (!wasFollowing)
            connectNotifySignals(object, this, "objectChanged()");
        observeKeys(object, &watched);
    }
}

void ContentWatch::ignoreChanges()
{
    if (!std::exchange(_isFollowing, false))
        return;
    for (auto &[object, watched] : _watched) {
        QObject::disconnect(object, nullptr, this, SLOT(objectChanged()));
        watched.observations.clear();
    }
}

/// Observes the keys whose changes no signal of the object tells.
void ContentWatch::observeKeys(QObject *object, Watched *watched)
{
    watched->observations.clear();
    for (const NSSortDescriptor &key : std::as_const(_keys)) {
        const bool isTold =
            !key.key.contains(u'.') && signalOf(object->metaObject(), firstKeyOf(key)) >= 0;
        if (key.member || key.key.isNull() || isTold)
            continue;
        try {
            watched->observations.emplace_back(object, key.key, NSKeyValueObservingOptions(),
                                               [this](const NSKeyValueChange &) { _changed(); });
        } catch (const NSException &) {
            continue; // It lacks the key: there is nothing to be observed.
        }
    }
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
    const QMetaObject *const type = sender()->metaObject();
    if (!_followsAll && !_signals.contains(type))
        _signals.insert(type, signalsThatCount(type));
    if (_followsAll || _signals.value(type).contains(senderSignalIndex()))
        _changed();
}
