#include "KeyPath.h"

#include "KeyValueOperators_p.h"
#include "NSCollections.h"
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSStringValues.h>

#include <algorithm>
#include <cmath>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
double numberOf(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<NSDecimalNumber>())
        return value.value<NSDecimalNumber>().doubleValue();
    return NSObject::isNumber(value) ? value.toDouble() : NSString::doubleValue(value.toString());
}

double sumOf(const QVariantList &values)
{
    double sum = 0;
    for (const QVariant &value : values)
        sum += numberOf(value);
    return sum;
}

QVariant extremeOf(const QVariantList &values, bool isMaximum)
{
    QVariant extreme;
    for (const QVariant &value : values) {
        const auto order = NSObject::compare(value, extreme);
        if (!NSObject::isNil(value) && !isNSNull(value) &&
            (NSObject::isNil(extreme) || (isMaximum ? order > 0 : order < 0)))
            extreme = value;
    }
    return extreme;
}

QVariantList distinct(const QVariantList &values)
{
    NSSet seen;
    QVariantList result;
    for (const QVariant &value : values) {
        if (!isNSNull(value) && seen.addObject(value))
            result += value;
    }
    return result;
}

/// The elements of the collections among some values.
QVariantList allElementsOf(const QVariantList &collections)
{
    QVariantList elements;
    for (const QVariant &each : collections) {
        if (KeyValueTarget::ofVariant(each).kind == KeyValueTarget::Kind::Collection)
            elements += each.value<QVariantList>();
    }
    return elements;
}

QVariantList withoutNull(QVariantList values)
{
    values.removeIf(isNSNull);
    return values;
}
} // namespace

QVariant KTPrivate::collected(const QVariant &collection, const QVariantList &values)
{
    if (collection.metaType() != QMetaType::fromType<NSSet>())
        return values;
    return QVariant::fromValue(NSSet(withoutNull(values)));
}

bool KTPrivate::isCollectionOperator(const QString &key)
{
    return key.startsWith(u'@') && key != u"@count";
}

QVariant KTPrivate::applyCollectionOperator(const QString &key, const QVariantList &values)
{
    if (key == u"@sum")
        return sumOf(values);
    if (key == u"@avg")
        return values.isEmpty() ? 0.0 : sumOf(values) / double(values.size());
    if (key == u"@min" || key == u"@max")
        return extremeOf(values, key == u"@max");
    if (key == u"@distinctUnionOfObjects")
        return distinct(values);
    if (key == u"@unionOfObjects")
        return withoutNull(values);
    if (key == u"@unionOfArrays")
        return withoutNull(allElementsOf(values));
    if (key == u"@distinctUnionOfArrays" || key == u"@distinctUnionOfSets")
        return distinct(allElementsOf(values));
    NSException::raise(NSInvalidArgumentException, u"unknown collection operator "_s + key);
}

KeyPath::KeyPath(const QString &path)
{
    if (path.isNull()) {
        _steps.emplace_back(path);
        return;
    }
    const QStringList keys = path.split(u'.');
    _steps.reserve(size_t(keys.size()));
    for (const QString &key : keys)
        _steps.emplace_back(key);
}

QString KeyPath::remainder(size_t step) const
{
    QStringList keys;
    for (; step < _steps.size(); ++step)
        keys += _steps[step].key();
    return keys.join(u'.');
}

const QVariant &KeyPath::read(const KeyValueTarget &target)
{
    // One key of one class is the rule.
    if (_steps.size() == 1 && _steps.front().knowsClassOf(target))
        return _steps.front().read(target);
    KeyValueTarget here = target;
    for (size_t step = 0;; ++step) {
        if (here.kind == KeyValueTarget::Kind::Collection)
            return readCollection(*static_cast<const QVariant *>(here.instance), step);
        if (isOneKeyFor(here, step))
            return _collected = KeyAccessor(remainder(step)).read(here);
        const QVariant &value = _steps[step].read(here);
        if (step + 1 == _steps.size())
            return value;
        here = KeyValueTarget::ofVariant(value);
    }
}

/// Whether the path goes on behind a step, and the object there takes all of that.
bool KeyPath::isOneKeyFor(const KeyValueTarget &target, size_t step) const
{
    return step + 1 < _steps.size() && !_steps[step].knowsClassOf(target) &&
           target.answersKeyPaths();
}

/// The rest of the path, applied to each element or to an operator.
const QVariant &KeyPath::readCollection(const QVariant &collection, size_t step)
{
    const QString &key = _steps[step].key();
    const QVariantList elements = collection.value<QVariantList>();
    if (key == u"@count")
        return _collected = QVariant(elements.size());
    const bool isOperator = isCollectionOperator(key);
    KeyPath rest(remainder(step + isOperator));
    QVariantList values;
    for (const QVariant &element : elements) {
        const bool isElement = isOperator && step + 1 == _steps.size();
        const QVariant &value = isElement ? element : rest.read(KeyValueTarget::ofVariant(element));
        values += NSObject::isNil(value) ? NSNull() : value;
    }
    return _collected =
               isOperator ? applyCollectionOperator(key, values) : collected(collection, values);
}
