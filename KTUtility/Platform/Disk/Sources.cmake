target_sources(KTUtility PRIVATE
    Platform/Disk/FileCopy.cpp
    Platform/Disk/FileRemoval.cpp
    Platform/Disk/FileRename.cpp
    Platform/Disk/FolderNames.cpp
    Platform/Disk/FolderPlace.cpp
    Platform/Disk/KTLockFile.cpp
    Platform/Disk/KTSaveFile.cpp
    Platform/Disk/NSFileHandle.cpp
)
