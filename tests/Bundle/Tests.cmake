target_sources(KTUtilityTests PRIVATE
    Bundle/KTDatabaseBundleTableTests.cpp
    Bundle/KTDatabaseBundleTests.cpp
    Bundle/KTInstanceNumbersTests.cpp
    Bundle/KTMediaFilenameMungerTests.cpp
    Bundle/MediaFolderTests.cpp
)
