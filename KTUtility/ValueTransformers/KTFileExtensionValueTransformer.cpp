#include "KTFileExtensionValueTransformer.h"

#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/NSUserDefaults.h>

using namespace Qt::StringLiterals;

std::shared_ptr<KTFileExtensionValueTransformer> KTFileExtensionValueTransformer::valueTransformer()
{
    return std::make_shared<KTFileExtensionValueTransformer>();
}

QMetaType KTFileExtensionValueTransformer::transformedValueClass() const
{
    return QMetaType::fromType<QString>();
}

QVariant KTFileExtensionValueTransformer::transformedValue(const QVariant &value) const
{
    const bool showsAll =
        NSUserDefaults::standardUserDefaults()->boolForKey(u"AppleShowAllExtensions"_s);
    if (showsAll || value.typeId() != QMetaType::QString)
        return value;
    return NSString::stringByDeletingPathExtension(value.toString());
}

KT_REGISTER_VALUE_TRANSFORMER(KTFileExtensionValueTransformer)
