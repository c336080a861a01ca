target_sources(KTUtility PRIVATE
    International/KTInternational.cpp
)
