// Random lives of binders: records, views and bindings that end each other inside of everything
// that is called. With KTUTILITY_TEST_STEPS=1000000 there are so many steps.

#include <KTUtility/KTPropertyBinder>

#include <KTUtility/NSKeyValueBinding>
#include <KTUtility/NSValueTransformer>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// The values of each record are of its own range, so that it shows if one gets into another.
constexpr int Range = 100'000'000;
const QString Value = u"value"_s;
const QString Number = u"number"_s;
const QString Extra = u"extra"_s;

int stepsOr(int otherwise)
{
    const int steps = qEnvironmentVariableIntValue("KTUTILITY_TEST_STEPS");
    return steps > 0 ? steps : otherwise;
}

class World;

/// Adds one, and lets the world do something meanwhile.
class TrapTransformer : public NSValueTransformer
{
public:
    explicit TrapTransformer(World &world) : _world(world) {}

    QMetaType transformedValueClass() const override { return {}; }
    bool allowsReverseTransformation() const override { return true; }
    QVariant transformedValue(const QVariant &value) const override;
    QVariant reverseTransformedValue(const QVariant &value) const override;

private:
    World &_world;
    // Whoever uses a transformer that is gone finds this gone, too.
    std::unique_ptr<int> _difference = std::make_unique<int>(1);
};

class TrapView : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ value WRITE setValue)

public:
    explicit TrapView(World &world) : _world(world) {}

    QVariant value() const { return _value; }
    void setValue(const QVariant &value);
    /// What a user does; not while something else is shown, since that does not reach the record.
    void type(int value)
    {
        if (_sets > 0)
            return;
        _value = value;
        binder.ownerKeyPathChanged();
    }

    KTPropertyBinder binder{Value, Value, this};

private:
    World &_world;
    QVariant _value;
    int _sets = 0;
};

class World
{
public:
    explicit World(quint32 seed) : _random(seed) {}

    void run(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            act();
            check(step);
            if (testing::Test::HasFailure())
                return;
        }
    }

    /// What happens inside of a call, now and then.
    void spring()
    {
        constexpr int Deepest = 3;
        if (_depth >= Deepest || _random.bounded(4) != 0)
            return;
        ++_depth;
        act();
        --_depth;
    }

private:
    static constexpr size_t Count = 3;
    using Record = std::unique_ptr<ObservedRecord>;
    using View = std::unique_ptr<TrapView>;

    size_t any() { return size_t(_random.bounded(int(Count))); }
    int nextValueOf(int range) { return range * Range + 10 + 10 * ++_counter; }
    int rangeOf(const ObservedRecord *record) const { return _ranges.value(record, -1); }

    void act()
    {
        switch (_random.bounded(8)) {
        case 0:
        case 1:
            bindSomething();
            break;
        case 2:
            if (const View &view = _views[any()])
                view->binder.unbind(Value);
            break;
        case 3:
        case 4:
            changeSomething();
            break;
        case 5:
            typeSomething();
            break;
        case 6:
            _records[any()].reset();
            break;
        default:
            _views[any()].reset();
        }
    }

    ObservedRecord *record()
    {
        Record &record = _records[any()];
        if (!record) {
            record = std::make_unique<ObservedRecord>();
            _ranges[record.get()] = ++_range % 20;
            record->setNumber(nextValueOf(rangeOf(record.get())));
            record->setProperty("extra", nextValueOf(rangeOf(record.get())));
        }
        return record.get();
    }

    void bindSomething()
    {
        ObservedRecord *const object = record();
        const QString key = _random.bounded(2) == 0 ? Number : Extra;
        View &view = _views[any()];
        if (!view)
            view = std::make_unique<TrapView>(*this);
        // Only the options hold the transformer.
        view->binder.bind(
            Value, object, key,
            NSBindingOptions::withTransformer(std::make_shared<TrapTransformer>(*this)));
    }

    void changeSomething()
    {
        ObservedRecord *const object = record();
        const int value = nextValueOf(rangeOf(object));
        if (_random.bounded(2) == 0)
            object->setNumber(value);
        else
            object->setProperty("extra", value);
    }

    void typeSomething()
    {
        const View &view = _views[any()];
        if (!view || !view->binder.observedObject())
            return;
        auto *const object = static_cast<ObservedRecord *>(view->binder.observedObject());
        view->type(nextValueOf(rangeOf(object)));
    }

    void check(int step)
    {
        SCOPED_TRACE(step);
        for (const Record &record : _records) {
            if (record)
                checkRecord(*record);
        }
        for (const View &view : _views) {
            auto *const object =
                view ? static_cast<ObservedRecord *>(view->binder.observedObject()) : nullptr;
            if (object) {
                EXPECT_EQ(view->value().toInt(),
                          object->property(view->binder.keyPath().toLatin1().constData()).toInt() +
                              1);
            }
        }
    }

    void checkRecord(const ObservedRecord &record) const
    {
        EXPECT_EQ(record.number() / Range, rangeOf(&record));
        EXPECT_EQ(record.property("extra").toInt() / Range, rangeOf(&record));
        const bool isObserved = std::any_of(_views.begin(), _views.end(), [&](const View &view) {
            return view && view->binder.observedObject() == &record &&
                   view->binder.keyPath() == Number;
        });
        EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), isObserved ? 1 : 0);
    }

    QRandomGenerator _random;
    std::array<Record, Count> _records;
    std::array<View, Count> _views;
    QHash<const ObservedRecord *, int> _ranges;
    int _range = 0;
    int _counter = 0;
    int _depth = 0;
};

QVariant TrapTransformer::transformedValue(const QVariant &value) const
{
    _world.spring();
    return value.toInt() + *_difference;
}

QVariant TrapTransformer::reverseTransformedValue(const QVariant &value) const
{
    _world.spring();
    return value.toInt() - *_difference;
}

void TrapView::setValue(const QVariant &value)
{
    const QPointer<TrapView> self = this;
    _value = value;
    ++_sets;
    _world.spring();
    if (self)
        --_sets;
}
} // namespace

TEST(KTPropertyBinderModel, EverythingMayHappenInsideOfEveryCall)
{
    testing_support::needApplication();
    constexpr int StepsOfALife = 500;
    const int lives = std::max(1, stepsOr(10'000) / StepsOfALife);
    for (int life = 0; life < lives && !HasFailure(); ++life) {
        SCOPED_TRACE(life);
        World(quint32(life)).run(StepsOfALife);
    }
}

#include "KTPropertyBinderModelTests.moc"
