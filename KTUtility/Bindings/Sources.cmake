target_sources(KTUtility PRIVATE
    Bindings/FieldDetailOwner.cpp
    Bindings/KTFieldDetailBinder.cpp
    Bindings/KTPropertyBinder.cpp
    Bindings/KeySetter.cpp
)
