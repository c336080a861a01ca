#include "SortKeys_p.h"

#include "LocalInstants_p.h"
#include "NumberRanks_p.h"

#include <KTUtility/Platform/Text/NSStringCompare.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/VariantKind_p.h>

#include <QDateTime>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <type_traits>
#include <utility>

using namespace KTPrivate;

class SortKeys::Level
{
public:
    explicit Level(bool ascending) : _ascending(ascending) {}
    virtual ~Level() = default;
    std::weak_ordering compare(size_t left, size_t right) const
    {
        return _ascending ? compareAscending(left, right) : compareAscending(right, left);
    }
    bool isAscending() const { return _ascending; }
    /// Sorts all positions, which are in ascending order.
    /// \return false if there is no quicker way than comparing.
    virtual bool sort(std::vector<qsizetype> & /*positions*/) const { return false; }

private:
    virtual std::weak_ordering compareAscending(size_t left, size_t right) const = 0;

    bool _ascending;
};

namespace {
using Values = std::vector<QVariant>;

/// NaN comes behind every number.
std::weak_ordering orderOfKeys(double left, double right)
{
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(left) <=> std::isnan(right);
    return left < right   ? std::weak_ordering::less
           : left > right ? std::weak_ordering::greater
                          : std::weak_ordering::equivalent;
}
std::weak_ordering orderOfKeys(qint64 left, qint64 right)
{
    return left <=> right;
}
std::weak_ordering orderOfKeys(const QString &left, const QString &right)
{
    return QString::compare(left, right) <=> 0;
}
std::weak_ordering orderOfKeys(const QByteArray &left, const QByteArray &right)
{
    return left.compare(right) <=> 0;
}

/// Numbers are told from nil quickly.
bool mayBeNil(const QVariant &value)
{
    const int type = value.typeId();
    return type < QMetaType::Bool || type > QMetaType::Double;
}

/// Numbers of the usual types are read where they are: a conversion takes longer than the sorting.
qint64 integerOf(const QVariant &value, int type)
{
    switch (type) {
    case QMetaType::Int:
        return *static_cast<const int *>(value.constData());
    case QMetaType::LongLong:
        return *static_cast<const qint64 *>(value.constData());
    default:
        return value.toLongLong();
    }
}

qint64 asInteger(const QVariant &value)
{
    return integerOf(value, value.typeId());
}

double asDouble(const QVariant &value)
{
    return value.typeId() == QMetaType::Double ? *static_cast<const double *>(value.constData())
                                               : value.toDouble();
}

/// Values of one kind, nil first.
template<typename T>
class KeysOfKind : public SortKeys::Level
{
public:
    /// False for nil.
    using Key = std::pair<bool, T>;

    KeysOfKind(std::vector<Key> keys, bool ascending) : Level(ascending), _keys(std::move(keys)) {}

    template<typename Conversion>
    KeysOfKind(const Values &values, bool ascending, Conversion converted) : Level(ascending)
    {
        _keys.reserve(values.size());
        for (const QVariant &value : values) {
            const bool isThere = mayBeNil(value) ? !NSObject::isNil(value) : true;
            _keys.emplace_back(isThere, isThere ? converted(value) : T());
        }
    }

    /// Numbers are sorted by their ranks, with their positions beside them, and not looked up.
    bool sort(std::vector<qsizetype> &positions) const override
    {
        if constexpr (std::is_arithmetic_v<T>) {
            std::vector<qsizetype> nil;
            std::vector<RankedPosition> there = rankedPositions(positions, &nil);
            sortByRank(&there);
            auto at = positions.begin();
            if (this->isAscending())
                at = std::copy(nil.begin(), nil.end(), at);
            for (const RankedPosition &each : there)
                *at++ = each.position;
            if (!this->isAscending())
                std::copy(nil.begin(), nil.end(), at);
        }
        return std::is_arithmetic_v<T>;
    }

private:
    /// Those that are not nil, the first to come with the least rank.
    std::vector<RankedPosition> rankedPositions(const std::vector<qsizetype> &positions,
                                                std::vector<qsizetype> *nil) const
    {
        const quint64 reversed = this->isAscending() ? 0 : ~quint64(0);
        std::vector<RankedPosition> ranked;
        ranked.reserve(positions.size());
        for (const qsizetype position : positions) {
            if (const auto &[isThere, key] = _keys[size_t(position)]; isThere)
                ranked.push_back({rankOf(key) ^ reversed, position});
            else
                nil->push_back(position);
        }
        return ranked;
    }

    std::weak_ordering compareAscending(size_t left, size_t right) const override
    {
        const auto &[isLeftThere, leftKey] = _keys[left];
        const auto &[isRightThere, rightKey] = _keys[right];
        return isLeftThere && isRightThere ? orderOfKeys(leftKey, rightKey)
                                           : isLeftThere <=> isRightThere;
    }

    std::vector<Key> _keys;
};

/// Values of any kind.
class KeysOfAnyKind : public SortKeys::Level
{
public:
    KeysOfAnyKind(Values values, const NSSortDescriptor &descriptor)
        : Level(descriptor.ascending)
        , _values(std::move(values))
        , _comparator(descriptor.comparator)
        , _isLocalized(descriptor.localized)
    {
    }

private:
    static bool isText(const QVariant &value)
    {
        return kindOf(value) == VariantKind::Text && !NSObject::isNil(value);
    }
    std::weak_ordering compareAscending(size_t left, size_t right) const override
    {
        const QVariant &leftValue = _values[left];
        const QVariant &rightValue = _values[right];
        if (_isLocalized && isText(leftValue) && isText(rightValue))
            return NSString::localizedCompare(leftValue.toString(), rightValue.toString());
        return _comparator(leftValue, rightValue);
    }

    Values _values;
    NSComparator _comparator;
    bool _isLocalized;
};

/// How a kind is compared; for all that can only be compared as variants, that kind itself.
VariantKind comparedAs(VariantKind kind)
{
    return kind == VariantKind::Bool ? VariantKind::Signed : kind;
}

/// The kind that all values have but nil; VariantKind::Other if there are several, or none.
VariantKind commonKind(const Values &values)
{
    VariantKind common = VariantKind::Nil;
    QMetaType commonType;
    for (const QVariant &value : values) {
        const bool isKnown = value.isValid() && value.metaType() == commonType;
        if (isKnown || NSObject::isNil(value))
            continue;
        commonType = value.metaType();
        const VariantKind kind = comparedAs(kindOf(value));
        if (common != VariantKind::Nil && kind != common)
            return VariantKind::Other;
        common = kind;
    }
    return common;
}

/// What is read of elements: whole numbers as such as long as there is nothing else, since a list
/// of variants takes longer to make than to sort.
class ReadValues
{
public:
    using Integers = std::vector<std::pair<bool, qint64>>;

    /// \param mayBeIntegers whether the types of numbers do not matter.
    ReadValues(size_t size, bool mayBeIntegers) : _size(size), _areIntegers(mayBeIntegers)
    {
        reserve();
    }

    void append(const QVariant &value)
    {
        const int type = value.typeId();
        const bool isInteger = type == QMetaType::Int || type == QMetaType::LongLong;
        if (_areIntegers && !isInteger && type != QMetaType::UnknownType)
            becomeMixed();
        if (_areIntegers)
            _integers.emplace_back(isInteger, isInteger ? integerOf(value, type) : 0);
        else
            _values.push_back(value);
    }

    bool areIntegers() const { return _areIntegers; }
    Integers takeIntegers() { return std::move(_integers); }
    Values takeValues() { return std::move(_values); }

private:
    void reserve()
    {
        if (_areIntegers)
            _integers.reserve(_size);
        else
            _values.reserve(_size);
    }

    void becomeMixed()
    {
        _areIntegers = false;
        reserve();
        for (const auto &[isThere, number] : takeIntegers())
            _values.push_back(isThere ? QVariant(number) : QVariant());
    }

    size_t _size;
    bool _areIntegers;
    Integers _integers;
    Values _values;
};

bool isObject(const KeyValueTarget &element)
{
    return element.kind == KeyValueTarget::Kind::Object;
}

bool isOrdinary(const NSSortDescriptor &descriptor)
{
    return descriptor.comparator == NSComparator(NSObject::compare);
}

ReadValues valuesToSort(const std::vector<KeyValueTarget> &elements,
                        const NSSortDescriptor &descriptor)
{
    ReadValues values(elements.size(), isOrdinary(descriptor));
    KeyPath path(descriptor.key);
    // A getter may destroy objects that come later: they have nil.
    std::vector<QPointer<QObject>> objects;
    objects.reserve(elements.size());
    for (const KeyValueTarget &element : elements)
        objects.emplace_back(isObject(element) ? element.object() : nullptr);
    for (size_t index = 0; index < elements.size(); ++index) {
        const bool isGone = isObject(elements[index]) && !objects[index];
        const KeyValueTarget element = isGone ? KeyValueTarget() : elements[index];
        if (descriptor.member)
            values.append(descriptor.member(element));
        else
            values.append(path.read(element));
    }
    return values;
}

std::unique_ptr<SortKeys::Level> textKeys(const Values &values, const NSSortDescriptor &descriptor)
{
    if (descriptor.localized)
        return std::make_unique<KeysOfKind<QByteArray>>(
            values, descriptor.ascending,
            [](const QVariant &value) { return NSString::localizedSortKey(value.toString()); });
    return std::make_unique<KeysOfKind<QString>>(
        values, descriptor.ascending, [](const QVariant &value) { return value.toString(); });
}

std::unique_ptr<SortKeys::Level> madeLevel(Values values, const NSSortDescriptor &descriptor)
{
    const VariantKind kind = commonKind(values);
    if (kind == VariantKind::Text && (isOrdinary(descriptor) || descriptor.localized))
        return textKeys(values, descriptor);
    if (isOrdinary(descriptor) && kind == VariantKind::Date)
        return std::make_unique<KeysOfKind<qint64>>(
            values, descriptor.ascending,
            [instants = LocalInstants()](const QVariant &value) mutable {
                return instants.of(value.toDateTime());
            });
    if (isOrdinary(descriptor) && kind == VariantKind::Signed)
        return std::make_unique<KeysOfKind<qint64>>(values, descriptor.ascending, asInteger);
    if (isOrdinary(descriptor) && kind == VariantKind::Double)
        return std::make_unique<KeysOfKind<double>>(values, descriptor.ascending, asDouble);
    return std::make_unique<KeysOfAnyKind>(std::move(values), descriptor);
}

std::unique_ptr<SortKeys::Level> levelOf(ReadValues values, const NSSortDescriptor &descriptor)
{
    if (values.areIntegers())
        return std::make_unique<KeysOfKind<qint64>>(values.takeIntegers(), descriptor.ascending);
    return madeLevel(values.takeValues(), descriptor);
}
} // namespace

SortKeys::SortKeys(const std::vector<KeyValueTarget> &elements,
                   const QList<NSSortDescriptor> &descriptors)
    : _count(elements.size())
{
    for (const NSSortDescriptor &descriptor : descriptors)
        _levels.push_back(levelOf(valuesToSort(elements, descriptor), descriptor));
}

SortKeys::~SortKeys() = default;

std::weak_ordering SortKeys::compare(size_t left, size_t right) const
{
    for (const std::unique_ptr<Level> &level : _levels) {
        const std::weak_ordering order = level->compare(left, right);
        if (order != 0)
            return order;
    }
    return std::weak_ordering::equivalent;
}

std::vector<qsizetype> SortKeys::order() const
{
    std::vector<qsizetype> positions(_count);
    std::iota(positions.begin(), positions.end(), 0);
    if (_levels.size() != 1 || !_levels.front()->sort(positions))
        std::stable_sort(positions.begin(), positions.end(), [this](auto left, auto right) {
            return compare(size_t(left), size_t(right)) < 0;
        });
    return positions;
}
