target_sources(KTUtilityTests PRIVATE
    PlugIns/KTPlugInLoadingTests.cpp
    PlugIns/PlugInSupport.cpp
)

# The plug-ins that the tests load.
set(test_plugins "${CMAKE_CURRENT_BINARY_DIR}/plugins")
target_compile_definitions(KTUtilityTests PRIVATE KTUTILITY_TEST_PLUGINS="${test_plugins}")

function(kt_add_test_plugin name principal_class identifier source)
    kt_add_plugin(${name}
        IDENTIFIER ${identifier}
        PRINCIPAL_CLASS ${principal_class}
        SOURCES ${source}
        RESOURCES PlugIns/Modules/Hello.txt
        OUTPUT_DIRECTORY "${test_plugins}")
    kt_configure_target(${name})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    add_dependencies(KTUtilityTests ${name})
endfunction()

foreach(version 1 2)
    kt_add_test_plugin(GoodPlugIn${version} GoodExporter org.example.good
        PlugIns/Modules/GoodPlugIn.cpp)
    target_compile_definitions(GoodPlugIn${version} PRIVATE KT_TEST_VERSION="${version}")
endforeach()
kt_add_test_plugin(OddPlugIns QuietExporter org.example.odd PlugIns/Modules/OddPlugIns.cpp)
