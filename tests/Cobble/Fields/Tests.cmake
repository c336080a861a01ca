target_sources(CobbleTests PRIVATE
    Cobble/Fields/FieldFormatTests.cpp
    Cobble/Fields/FieldReaderTests.cpp
    Cobble/Fields/FieldTypeTests.cpp
    Cobble/Fields/FieldTypeTitlesTests.cpp
    Cobble/Fields/FieldValueTests.cpp
    Cobble/Fields/PhoneLayoutsTests.cpp
    Cobble/Fields/PlainColumnTests.cpp
    Cobble/Fields/PlainTextTests.cpp
    Cobble/Fields/ZoneDaysTests.cpp
)
