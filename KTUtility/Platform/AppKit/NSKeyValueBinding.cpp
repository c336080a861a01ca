#include "NSKeyValueBinding.h"

#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

using namespace Qt::StringLiterals;

NSKeyValueBinding::~NSKeyValueBinding() = default;

const QString NSValueBinding = u"value"_s;
const QString NSValueTransformerBindingOption = u"NSValueTransformer"_s;
const QString NSValueTransformerNameBindingOption = u"NSValueTransformerName"_s;
const QString NSMultipleValuesPlaceholderBindingOption = u"NSMultipleValuesPlaceholder"_s;
const QString NSNoSelectionPlaceholderBindingOption = u"NSNoSelectionPlaceholder"_s;
const QString NSNotApplicablePlaceholderBindingOption = u"NSNotApplicablePlaceholder"_s;

QVariantMap
NSBindingOptions::withTransformer(const std::shared_ptr<NSValueTransformer> &transformer)
{
    if (!transformer)
        return {};
    return {{NSValueTransformerBindingOption, QVariant::fromValue(transformer)}};
}

std::shared_ptr<NSValueTransformer> NSBindingOptions::transformerIn(const QVariantMap &options)
{
    using Transformer = std::shared_ptr<NSValueTransformer>;
    const QVariant option = options.value(NSValueTransformerBindingOption);
    if (!NSObject::isNil(option) && !option.canConvert<Transformer>())
        NSException::raise(NSInvalidArgumentException,
                           NSString::stringWithFormat(
                               u"A value of type %s is no value transformer: hand it over as "
                               u"std::shared_ptr<NSValueTransformer>.",
                               option.typeName()));
    return option.value<Transformer>();
}

std::optional<QVariant> NSBindingOptions::placeholderIn(const QVariantMap &options,
                                                        const QVariant &forMarker)
{
    if (!NSIsControllerMarker(forMarker))
        return {};
    using Kind = NSSelectionMarker::Kind;
    const Kind kind = forMarker.value<NSSelectionMarker>().kind;
    const QString &name = kind == Kind::NoSelection     ? NSNoSelectionPlaceholderBindingOption
                          : kind == Kind::NotApplicable ? NSNotApplicablePlaceholderBindingOption
                                                        : NSMultipleValuesPlaceholderBindingOption;
    const auto option = options.constFind(name);
    return option == options.constEnd() ? std::nullopt : std::optional<QVariant>(*option);
}
