#include "NSKeyValueBinding.h"

NSKeyValueBinding::~NSKeyValueBinding() = default;

const QString NSValueBinding = QStringLiteral("value");
const QString NSValueTransformerBindingOption = QStringLiteral("NSValueTransformer");
const QString NSValueTransformerNameBindingOption = QStringLiteral("NSValueTransformerName");

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
