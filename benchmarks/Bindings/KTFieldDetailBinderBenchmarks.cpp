#include "BindingRecords.h"
#include "Report.h"

#include <KTUtility/KTFieldDetailBinder>
#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSKeyValueBinding>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// A row of a form: a binding that remembers what it is bound to, as views do.
class Row : public QObject, public NSKeyValueBinding
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant label MEMBER label)

public:
    QStringList exposedBindings() const override { return {u"label"_s}; }
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options) override
    {
        binder.bind(binding, toObject, withKeyPath, options);
    }
    void unbind(const QString &binding) override { binder.unbind(binding); }

    QVariant label;
    KTPropertyBinder binder{u"label"_s, u"label"_s, this};
};

class Form : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QObject *createNewFieldDetailObjectForField(QObject *) { return new Row; }
    Q_INVOKABLE void fieldDetailObjectWasBound(QObject *, QObject *) {}
    Q_INVOKABLE void fieldDetailObjectWillBeDestroyed(QObject *detail) { delete detail; }
};

class Library : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList fields MEMBER fields NOTIFY fieldsChanged)

public:
    void setFields(const QVariantList &list)
    {
        fields = list;
        Q_EMIT fieldsChanged();
    }

    QVariantList fields;

Q_SIGNALS:
    void fieldsChanged();
};

QVariantList boxed(const std::vector<std::unique_ptr<Link>> &links)
{
    QVariantList list;
    for (const auto &link : links)
        list += QVariant::fromValue(link.get());
    return list;
}

std::vector<std::unique_ptr<Link>> someFields(int count)
{
    std::vector<std::unique_ptr<Link>> links;
    for (int index = 0; index < count; ++index)
        links.push_back(std::make_unique<Link>());
    return links;
}

/// All fields of a form give way to others.
template<int Count>
void replaceFields(benchmark::State &state)
{
    const auto one = someFields(Count);
    const auto other = someFields(Count);
    const QVariantList lists[] = {boxed(one), boxed(other)};
    Library library;
    Form form;
    KTFieldDetailBinder binder(&form);
    binder.setFieldsBindingName(u"fields"_s);
    binder.addFieldDependentBindingName(u"labels"_s, u"label"_s);
    binder.bind(u"fields"_s, &library, u"fields"_s);
    binder.bind(u"labels"_s, &library, u"fields.name"_s);
    size_t turn = 0;
    for (auto _ : state)
        library.setFields(lists[++turn % 2]);
}

BENCHMARK(replaceFields<1000>)->Name("Bindings/1,000 fields replaced");
BENCHMARK(replaceFields<10000>)->Name("Bindings/10,000 fields replaced");

const bool isRegistered =
    compareWith("Bindings/10,000 fields replaced", "Bindings/1,000 fields replaced", 13);
} // namespace

#include "KTFieldDetailBinderBenchmarks.moc"
