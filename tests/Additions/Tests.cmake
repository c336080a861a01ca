target_sources(KTUtilityTests PRIVATE
    Additions/CollectionRows.cpp
    Additions/CollectionTableTests.cpp
    support/TestField.cpp
)
