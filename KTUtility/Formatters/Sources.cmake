target_sources(KTUtility PRIVATE
    Formatters/KTOptionsKeys.cpp
)
