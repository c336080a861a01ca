# Only where Qt Designer's headers are.
if(TARGET KTUtilityDesigner)
    find_package(Qt6 6.4 REQUIRED COMPONENTS UiPlugin)
    target_sources(KTUtilityTests PRIVATE Designer/KTDesignerCollectionTests.cpp)
    kt_tell_sources(KTUTILITY_DESIGNER_PLUGIN="$<TARGET_FILE:KTUtilityDesigner>"
        Designer/KTDesignerCollectionTests.cpp)
    kt_tell_sources(KTUTILITY_HEADERS="${KTUTILITY_HEADERS}" Designer/KTDesignerCollectionTests.cpp)
    target_link_libraries(KTUtilityTests PRIVATE Qt6::UiPlugin Qt6::UiTools)
    add_dependencies(KTUtilityTests KTUtilityDesigner)
endif()
