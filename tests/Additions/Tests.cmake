target_sources(KTUtilityTests PRIVATE
    Additions/BezierPathTests.cpp
    Additions/CollectionModelTests.cpp
    Additions/CollectionRows.cpp
    Additions/CollectionTableTests.cpp
    Additions/CollectionTests.cpp
    Additions/DateTests.cpp
    Additions/EncodingTests.cpp
    Additions/ImageTests.cpp
    Additions/MenuAndIndexPathTests.cpp
    Additions/NamingTests.cpp
    Additions/TextTests.cpp
    support/TestField.cpp
)
