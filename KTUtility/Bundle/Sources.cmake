target_sources(KTUtility PRIVATE
    Bundle/KTDatabaseBundle.cpp
    Bundle/KTDatabaseBundleStoring.cpp
    Bundle/KTInstanceNumbers.cpp
    Bundle/KTMediaFilenameMunger.cpp
    Bundle/KTMediaNames.cpp
    Bundle/KTStagedFile.cpp
)
