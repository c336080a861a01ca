// Random lives of field detail binders: in every call the owner may bind, unbind and delete what it
// likes. With KTUTILITY_TEST_STEPS=1000000 there are so many steps.

#include <KTUtility/KTFieldDetailBinder>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QString Fields = u"fields"_s;
const QString Labels = u"labels"_s;
const QString List = u"list"_s;

/// An owner that counts the detail objects that it has not been told the end of.
class CountingForm : public QObject
{
    Q_OBJECT

public:
    explicit CountingForm(std::function<void()> act) : _act(std::move(act)) {}

    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *)
    {
        details.push_back(std::make_unique<BoundView>());
        QObject *const detail = details.back().get();
        _act();
        return detail;
    }
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *detail, QObject *)
    {
        EXPECT_TRUE(has(detail));
        _act();
    }
    Q_INVOKABLE void fieldDetailObjectWillBeDestroyed(QObject *detail)
    {
        EXPECT_TRUE(has(detail));
        std::erase_if(details, [&](const auto &each) { return each.get() == detail; });
        _act();
    }
    Q_INVOKABLE void fieldDetailObjectsFinishedAdding() { _act(); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRemoving() { _act(); }
    Q_INVOKABLE void fieldDetailObjectsFinishedRearrange() { _act(); }
    Q_INVOKABLE void setAutoScrollToInsertedObject(bool) { _act(); }

    bool has(const QObject *detail) const
    {
        return std::any_of(details.begin(), details.end(),
                           [&](const auto &each) { return each.get() == detail; });
    }

    std::vector<std::unique_ptr<BoundView>> details;

private:
    std::function<void()> _act;
};

class World
{
public:
    explicit World(quint32 seed) : _random(seed) {}
    ~World() { _isOver = true; }

    void run(int steps)
    {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(step);
            act();
            check();
        }
    }

private:
    static constexpr size_t Count = 3;

    size_t any() { return size_t(_random.bounded(int(Count))); }

    /// What happens inside of a call, now and then.
    void spring()
    {
        constexpr int Deepest = 3;
        if (_isOver || _depth >= Deepest || _random.bounded(5) != 0)
            return;
        ++_depth;
        act();
        --_depth;
    }

    void act()
    {
        switch (_random.bounded(8)) {
        case 0:
            _binder.reset();
            break;
        case 1:
            if (_binder)
                _binder->unbind(Fields);
            break;
        case 2:
            _models[any()].reset();
            break;
        case 3:
            deleteField();
            break;
        case 4:
        case 5:
            bind();
            break;
        default:
            model()->setList(someFields());
        }
    }

    /// A list holds no field that is gone: whoever deletes one takes it out before.
    void deleteField()
    {
        const std::unique_ptr<ObservedRecord> field = std::move(_fields[any()]);
        const QVariant element = QVariant::fromValue(field.get());
        for (const auto &model : _models) {
            if (!field || !model || !model->list().contains(element))
                continue;
            QVariantList list = model->list();
            list.removeAll(element);
            model->setList(list);
        }
    }

    ObservedRecord *model()
    {
        auto &model = _models[any()];
        if (!model)
            model = std::make_unique<ObservedRecord>();
        return model.get();
    }

    /// With repeats, now and then.
    QVariantList someFields()
    {
        QVariantList list;
        for (int count = _random.bounded(5); count > 0; --count) {
            auto &field = _fields[any()];
            if (!field)
                field = std::make_unique<ObservedRecord>(u"field"_s);
            list += QVariant::fromValue(field.get());
        }
        return list;
    }

    void bind()
    {
        if (!_binder) {
            _binder = std::make_unique<KTFieldDetailBinder>(&_form);
            _binder->setFieldsBindingName(Fields);
            _binder->addFieldDependentBindingName(Labels, BoundView::Label);
        }
        const QPointer<ObservedRecord> object = model();
        object->setList(someFields());
        if (_binder && object)
            _binder->bind(Fields, object, List);
        // Inside of a call, signals may still be connected that nobody listens to.
        if (_depth == 0 && _binder && object && isBoundTo(object))
            _binder->bind(Labels, object, u"list.name"_s);
    }

    bool isBoundTo(const ObservedRecord *model) const
    {
        return model->receivers(SIGNAL(listChanged())) > 0;
    }

    void check()
    {
        int observed = 0;
        for (const auto &model : _models)
            observed += model ? model->receivers(SIGNAL(listChanged())) : 0;
        EXPECT_LE(observed, _binder ? 1 : 0);
        if (!_binder) {
            EXPECT_EQ(_form.details.size(), 0U);
        }
        if (!_form.details.empty())
            return;
        for (const auto &field : _fields)
            EXPECT_EQ(field ? field->receivers(SIGNAL(nameChanged())) : 0, 0);
    }

    QRandomGenerator _random;
    bool _isOver = false;
    int _depth = 0;
    std::array<std::unique_ptr<ObservedRecord>, Count> _fields;
    std::array<std::unique_ptr<ObservedRecord>, Count> _models;
    CountingForm _form{[this] { spring(); }};
    std::unique_ptr<KTFieldDetailBinder> _binder;
};
} // namespace

TEST(KTFieldDetailBinderModel, EveryDetailObjectIsToldOfItsEnd)
{
    const int wanted = qEnvironmentVariableIntValue("KTUTILITY_TEST_STEPS");
    constexpr int StepsOfALife = 200;
    const int lives = std::max(1, (wanted > 0 ? wanted : 6'000) / StepsOfALife);
    for (int life = 0; life < lives && !HasFailure(); ++life) {
        SCOPED_TRACE(life);
        World(quint32(life)).run(StepsOfALife);
    }
}

#include "KTFieldDetailBinderModelTests.moc"
