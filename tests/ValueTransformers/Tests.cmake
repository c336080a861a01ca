target_sources(KTUtilityTests PRIVATE
    ValueTransformers/KTString_KTDataTransformerTests.cpp
    ValueTransformers/TransformerTests.cpp
)
