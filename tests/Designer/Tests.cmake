# Only where Qt Designer's headers are.
if(TARGET KTUtilityDesigner)
    find_package(Qt6 6.4 REQUIRED COMPONENTS UiPlugin)
    target_sources(KTUtilityTests PRIVATE Designer/KTDesignerCollectionTests.cpp)
    target_compile_definitions(KTUtilityTests PRIVATE
        KTUTILITY_DESIGNER_PLUGIN="$<TARGET_FILE:KTUtilityDesigner>")
    target_link_libraries(KTUtilityTests PRIVATE Qt6::UiPlugin Qt6::UiTools)
    add_dependencies(KTUtilityTests KTUtilityDesigner)
endif()
