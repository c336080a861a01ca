kt_rooms(host rooms)
foreach(room IN LISTS rooms ITEMS PlugIns)
    include("Cobble/${room}/Tests.cmake" OPTIONAL)
endforeach()
target_link_libraries(CobbleTests PRIVATE CobbleHost)
target_compile_definitions(CobbleTests PRIVATE
    COBBLE_BUNDLE_CONTENTS="${KTUTILITY_BUNDLE_CONTENTS}"
    COBBLE_EXECUTABLE="$<TARGET_FILE:cobble>"
    COBBLE_VERSION="${PROJECT_VERSION}"
    COBBLE_SAMPLES="${PROJECT_SOURCE_DIR}/examples/Cobble/Samples")

# They start it.
add_dependencies(CobbleTests cobble CobbleResources TextExporter VCardImporter)
