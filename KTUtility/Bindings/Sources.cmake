target_sources(KTUtility PRIVATE
    Bindings/KTFieldDetailBinder.cpp
    Bindings/KTPropertyBinder.cpp
)
