#include "NSKeyValueBinding.h"

using namespace Qt::StringLiterals;

NSKeyValueBinding::~NSKeyValueBinding() = default;

const QString NSValueBinding = u"value"_s;
const QString NSValueTransformerBindingOption = u"NSValueTransformer"_s;
const QString NSValueTransformerNameBindingOption = u"NSValueTransformerName"_s;

QVariantMap
NSBindingOptions::withTransformer(const std::shared_ptr<NSValueTransformer> &transformer)
{
    if (!transformer)
        return {};
    return {{NSValueTransformerBindingOption, QVariant::fromValue(transformer)}};
}

std::shared_ptr<NSValueTransformer> NSBindingOptions::transformerIn(const QVariantMap &options)
{
    return options.value(NSValueTransformerBindingOption)
        .value<std::shared_ptr<NSValueTransformer>>();
}
