#include "SortKeys_p.h"

#include "LocalInstants_p.h"

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
    template<typename Conversion>
    KeysOfKind(const Values &values, bool ascending, Conversion converted) : Level(ascending)
    {
        _keys.reserve(values.size());
        for (const QVariant &value : values) {
            const bool isThere = mayBeNil(value) ? !NSObject::isNil(value) : true;
            _keys.emplace_back(isThere, isThere ? converted(value) : T());
        }
    }

    /// Numbers are sorted themselves, with their positions beside them, and not looked up.
    bool sort(std::vector<qsizetype> &positions) const override
    {
        if constexpr (std::is_arithmetic_v<T>) {
            std::vector<Placed> there;
            std::vector<qsizetype> nil;
            for (const qsizetype position : positions) {
                if (const auto &[isThere, key] = _keys[size_t(position)]; isThere)
                    there.push_back({key, position});
                else
                    nil.push_back(position);
            }
            sortPlaced(there);
            auto at = positions.begin();
            if (this->isAscending())
                at = std::copy(nil.begin(), nil.end(), at);
            for (const Placed &each : there)
                *at++ = each.position;
            if (!this->isAscending())
                std::copy(nil.begin(), nil.end(), at);
        }
        return std::is_arithmetic_v<T>;
    }

private:
    struct Placed
    {
        T key;
        qsizetype position;
    };

    void sortPlaced(std::vector<Placed> &placed) const
    {
        if (this->isAscending())
            std::stable_sort(placed.begin(), placed.end(),
                             [](const Placed &left, const Placed &right) {
                                 return orderOfKeys(left.key, right.key) < 0;
                             });
        else
            std::stable_sort(placed.begin(), placed.end(),
                             [](const Placed &left, const Placed &right) {
                                 return orderOfKeys(left.key, right.key) > 0;
                             });
    }

    std::weak_ordering compareAscending(size_t left, size_t right) const override
    {
        const auto &[isLeftThere, leftKey] = _keys[left];
        const auto &[isRightThere, rightKey] = _keys[right];
        return isLeftThere && isRightThere ? orderOfKeys(leftKey, rightKey)
                                           : isLeftThere <=> isRightThere;
    }

    std::vector<std::pair<bool, T>> _keys;
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

bool isObject(const KeyValueTarget &element)
{
    return element.kind == KeyValueTarget::Kind::Object;
}

Values valuesToSort(const std::vector<KeyValueTarget> &elements, const NSSortDescriptor &descriptor)
{
    Values values;
    values.reserve(elements.size());
    KeyPath path(descriptor.key);
    // A getter may destroy objects that come later: they have nil.
    std::vector<QPointer<QObject>> objects;
    objects.reserve(elements.size());
    for (const KeyValueTarget &element : elements)
        objects.emplace_back(isObject(element) ? element.object() : nullptr);
    for (size_t index = 0; index < elements.size(); ++index) {
        const bool isGone = isObject(elements[index]) && !objects[index];
        const KeyValueTarget element = isGone ? KeyValueTarget() : elements[index];
        values.push_back(descriptor.member ? descriptor.member(element) : path.read(element));
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
    const bool isOrdinary = descriptor.comparator == NSComparator(NSObject::compare);
    const VariantKind kind = commonKind(values);
    if (kind == VariantKind::Text && (isOrdinary || descriptor.localized))
        return textKeys(values, descriptor);
    if (isOrdinary && kind == VariantKind::Date)
        return std::make_unique<KeysOfKind<qint64>>(
            values, descriptor.ascending,
            [instants = LocalInstants()](const QVariant &value) mutable {
                return instants.of(value.toDateTime());
            });
    if (isOrdinary && kind == VariantKind::Signed)
        return std::make_unique<KeysOfKind<qint64>>(
            values, descriptor.ascending, [](const QVariant &value) { return value.toLongLong(); });
    if (isOrdinary && kind == VariantKind::Double)
        return std::make_unique<KeysOfKind<double>>(values, descriptor.ascending, asDouble);
    return std::make_unique<KeysOfAnyKind>(std::move(values), descriptor);
}
} // namespace

SortKeys::SortKeys(const std::vector<KeyValueTarget> &elements,
                   const QList<NSSortDescriptor> &descriptors)
    : _count(elements.size())
{
    for (const NSSortDescriptor &descriptor : descriptors)
        _levels.push_back(madeLevel(valuesToSort(elements, descriptor), descriptor));
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
