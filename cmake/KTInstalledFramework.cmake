# The framework installed at KTUTILITY_INSTALLED in place of one built here, for its tests: library,
# public headers and resources are those of the installation. Private headers are never installed; the
# tests read them from this source tree, which must be of the same version.
file(REAL_PATH "${KTUTILITY_INSTALLED}" installed)
unset(KTUtility_DIR CACHE) # Another prefix may have been asked for before.
find_package(KTUtility "${PROJECT_VERSION}" EXACT CONFIG REQUIRED NO_DEFAULT_PATH
    PATHS "${installed}")
set_target_properties(KTUtility::KTUtility PROPERTIES IMPORTED_GLOBAL TRUE)
set(KTUTILITY_FRAMEWORK_FOLDER "$<TARGET_FILE_DIR:KTUtility::KTUtility>/KTUtility.framework")
get_target_property(KTUTILITY_HEADERS KTUtility::KTUtility INTERFACE_INCLUDE_DIRECTORIES)

# Copied without the public headers that lie beside them. Those are found in the installation also
# where a private header names one of its own room without the room.
add_library(KTUtilityPrivateHeaders INTERFACE)
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" "KTUtility/*_p.h")
foreach(header IN LISTS headers)
    configure_file("${header}" "${PROJECT_BINARY_DIR}/private/${header}" COPYONLY)
endforeach()
target_include_directories(KTUtilityPrivateHeaders INTERFACE "${PROJECT_BINARY_DIR}/private")
kt_rooms(library rooms)
foreach(room IN LISTS rooms)
    target_compile_options(KTUtilityPrivateHeaders INTERFACE
        "SHELL:-iquote \"${KTUTILITY_HEADERS}/KTUtility/${room}\"")
endforeach()

find_library(designer KTUtilityDesigner NO_CACHE NO_DEFAULT_PATH
    PATHS "${installed}" PATH_SUFFIXES "${KTUTILITY_DESIGNER_FOLDER}")
if(designer)
    add_library(KTUtilityDesigner MODULE IMPORTED GLOBAL)
    set_target_properties(KTUtilityDesigner PROPERTIES IMPORTED_LOCATION "${designer}")
endif()
