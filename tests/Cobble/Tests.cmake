kt_rooms(host rooms)
foreach(room IN LISTS rooms)
    include("Cobble/${room}/Tests.cmake" OPTIONAL)
endforeach()
target_link_libraries(CobbleTests PRIVATE CobbleHost)
kt_tell_sources(COBBLE_BUNDLE_CONTENTS="${KTUTILITY_BUNDLE_CONTENTS}"
    Cobble/Commands/ExecutableTests.cpp Cobble/Text/CSVSeparatorTests.cpp)
kt_tell_sources(COBBLE_EXECUTABLE="$<TARGET_FILE:cobble>"
    Cobble/Commands/ExecutableTests.cpp Cobble/Commands/GalleryCommandTests.cpp
    Cobble/Import/ImportMemoryTests.cpp)
kt_tell_sources(COBBLE_VERSION="${PROJECT_VERSION}"
    Cobble/Program/CobbleTests.cpp Cobble/Commands/ExecutableTests.cpp
    Cobble/Window/MainWindowControllerTests.cpp)
kt_tell_sources(COBBLE_SAMPLES="${PROJECT_SOURCE_DIR}/examples/Cobble/Samples"
    Cobble/Commands/ExecutableTests.cpp Cobble/Commands/ImportCommandTests.cpp
    Cobble/Import/LibraryImportTests.cpp Cobble/Window/TourPictureTests.cpp)
kt_tell_sources(COBBLE_SOURCES="${PROJECT_SOURCE_DIR}/examples/Cobble"
    Cobble/Program/CommandDocumentsTests.cpp)

# They start it.
add_dependencies(CobbleTests cobble CobbleResources TextExporter VCardImporter)
