#include "NSValueTransformer.h"

#include <QHash>
#include <QMap>

namespace {
using Make = std::function<std::shared_ptr<NSValueTransformer>()>;

// Both live as long as the process: classes are registered before main().
QMap<QString, std::shared_ptr<NSValueTransformer>> &transformers()
{
    static auto *const map = new QMap<QString, std::shared_ptr<NSValueTransformer>>;
    return *map;
}

QHash<QString, Make> &classes()
{
    static auto *const map = new QHash<QString, Make>;
    return *map;
}
} // namespace

NSValueTransformer::~NSValueTransformer() = default;

QVariant NSValueTransformer::reverseTransformedValue(const QVariant &) const
{
    return {};
}

void NSValueTransformer::setValueTransformer(const std::shared_ptr<NSValueTransformer> &transformer,
                                             const QString &forName)
{
    if (transformer)
        transformers().insert(forName, transformer);
    else
        transformers().remove(forName);
}

std::shared_ptr<NSValueTransformer> NSValueTransformer::valueTransformerForName(const QString &name)
{
    if (const auto known = transformers().value(name))
        return known;
    const Make make = classes().value(name);
    if (!make)
        return nullptr;
    const std::shared_ptr<NSValueTransformer> made = make();
    transformers().insert(name, made);
    return made;
}

QStringList NSValueTransformer::valueTransformerNames()
{
    return transformers().keys();
}

void NSValueTransformer::registerClass(const QString &name, const Make &make)
{
    classes().insert(name, make);
}
