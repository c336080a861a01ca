target_sources(KTUtilityTests PRIVATE
    ValueTransformers/TransformerTests.cpp
)
