target_sources(KTUtility PRIVATE
    Bundle/KTDatabaseBundle.cpp
    Bundle/KTInstanceNumbers.cpp
    Bundle/KTMediaFilenameMunger.cpp
    Bundle/KTMediaNames.cpp
    Bundle/KTStagedFile.cpp
    Bundle/MediaFolder.cpp
)
