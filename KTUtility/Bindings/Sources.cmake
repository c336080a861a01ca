target_sources(KTUtility PRIVATE
    Bindings/KTPropertyBinder.cpp
)
