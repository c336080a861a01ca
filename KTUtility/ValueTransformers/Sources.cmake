target_sources(KTUtility PRIVATE
    ValueTransformers/KTBaseValueTransformer.cpp
    ValueTransformers/KTBoolImageTransformer.cpp
    ValueTransformers/KTFileExtensionValueTransformer.cpp
    ValueTransformers/KTNewlineTabCharTransformer.cpp
    ValueTransformers/KTSingleObjectFilter.cpp
    ValueTransformers/KTSingleObjectFilterNegated.cpp
    ValueTransformers/KTStringColorTransformer.cpp
    ValueTransformers/KTString_KTDataTransformer.cpp
)
