target_sources(CobbleHost PRIVATE
    Sources/Fields/FieldFormat.cpp
    Sources/Fields/FieldReader.cpp
    Sources/Fields/FieldType.cpp
    Sources/Fields/FieldTypeTitles.cpp
    Sources/Fields/FieldValue.cpp
    Sources/Fields/PhoneLayouts.cpp
)
