target_sources(KTUtilityTests PRIVATE
    PlugIns/KTPlugInClassTests.cpp
    PlugIns/KTPlugInManagerCrashTests.cpp
    PlugIns/KTPlugInManagerDefaultsTests.cpp
    PlugIns/KTPlugInManagerLoadingTests.cpp
    PlugIns/KTPlugInManagerModelTests.cpp
    PlugIns/KTPlugInManagerRoundsTests.cpp
    PlugIns/KTPlugInManagerTests.cpp
    PlugIns/PlugInCodeTests.cpp
    PlugIns/PlugInDefaultsTests.cpp
    PlugIns/PlugInNoteTests.cpp
    PlugIns/PlugInSupport.cpp
)

# The plug-ins that the tests load.
set(test_plugins "${CMAKE_CURRENT_BINARY_DIR}/plugins")
kt_tell_sources(KTUTILITY_TEST_PLUGINS="${test_plugins}" PlugIns/PlugInSupport.cpp)

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
kt_add_test_plugin(EmptyPlugIn Nothing org.example.empty PlugIns/Modules/EmptyPlugIn.cpp)

# Classes that must not compile, and the one that must, so that the others fail for their reason.
function(kt_add_compile_test class expected)
    set(includes "$<TARGET_PROPERTY:KTUtility::KTUtility,INTERFACE_INCLUDE_DIRECTORIES>"
        "$<TARGET_PROPERTY:Qt6::Core,INTERFACE_INCLUDE_DIRECTORIES>")
    add_test(NAME KTPlugInClass.Compiling${class}
        COMMAND "${CMAKE_CXX_COMPILER}" -std=c++20 -fsyntax-only -fPIC
            "-I$<JOIN:${includes},;-I>" -DPRINCIPAL_CLASS=${class}
            "${CMAKE_CURRENT_SOURCE_DIR}/PlugIns/Compiling/PrincipalClasses.cpp"
        COMMAND_EXPAND_LISTS)
    if(expected)
        set_tests_properties(KTPlugInClass.Compiling${class} PROPERTIES
            PASS_REGULAR_EXPRESSION "${expected}")
    endif()
endfunction()

# The compiler refuses the same with sanitizers and without.
if(NOT KTUTILITY_SANITIZE)
    kt_add_compile_test(Complete "")
    kt_add_compile_test(WithoutDidLoad "")
    kt_add_compile_test(FinalWithoutDidLoad "")
    kt_add_compile_test(WithoutWillUnload "error: .*needs a public: static void pluginWillUnload")
    kt_add_compile_test(PrivateDidUnload "error: .*needs a public: static void pluginDidUnload")
    kt_add_compile_test(OtherDidLoad "error: .*pluginDidLoadBundle must be public")
    kt_add_compile_test(PrivateDidLoad "error: .*pluginDidLoadBundle must be public")
    kt_add_compile_test(MemberDidLoad "error: .*pluginDidLoadBundle must be public")
    kt_add_compile_test(FinalOtherDidLoad "error: .*pluginDidLoadBundle must be public")
endif()
