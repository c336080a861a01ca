target_sources(KTUtilityTests PRIVATE
    Additions/CollectionRows.cpp
    Additions/CollectionTableTests.cpp
    Additions/CollectionTests.cpp
    Additions/DateTests.cpp
    Additions/EncodingTests.cpp
    Additions/NamingTests.cpp
    Additions/TextTests.cpp
    support/TestField.cpp
)
