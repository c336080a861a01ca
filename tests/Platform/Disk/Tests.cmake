target_sources(KTUtilityTests PRIVATE
    Platform/Disk/FileOperationsTests.cpp
    Platform/Disk/FolderNamesTests.cpp
    Platform/Disk/FolderPlaceTests.cpp
    Platform/Disk/KTLockFileTests.cpp
    Platform/Disk/KTSaveFileTests.cpp
    Platform/Disk/NSFileHandleTests.cpp
)
