target_sources(EnvironmentTests PRIVATE
    Environment/EnvironmentDaysTests.cpp
    Environment/EnvironmentFilesTests.cpp
    Environment/EnvironmentHostTests.cpp
    Environment/EnvironmentLocaleTests.cpp
    Environment/EnvironmentMain.cpp
    Environment/EnvironmentReadingTests.cpp
)
target_link_libraries(EnvironmentTests PRIVATE CobbleHost)
# The files that it exports are written by a plug-in.
add_dependencies(EnvironmentTests TextExporter)

# The program runs once in each environment. The calendar is no part of what the environment says
# of a locale; the program chooses it.
function(kt_add_environment_test locale zone)
    string(REGEX REPLACE "@.*" "" variable "${locale}")
    string(REPLACE "/" "-" zone_name "${zone}")
    set(expected "${locale}")
    if(locale STREQUAL "C")
        set(expected en_US)
    else()
        string(APPEND variable ".UTF-8")
    endif()
    set(name "Environment.${locale}@${zone_name}")
    add_test(NAME "${name}" COMMAND EnvironmentTests --gtest_brief=1)
    set_tests_properties("${name}" PROPERTIES ENVIRONMENT
        "LC_ALL=${variable};LANG=${variable};TZ=${zone};KTUTILITY_TEST_LOCALE=${expected}")
endfunction()

foreach(locale C en_US de_DE fr_CH ja_JP@calendar=japanese tr_TR ar_EG hi_IN)
    foreach(zone UTC Asia/Kolkata Australia/Lord_Howe America/Sao_Paulo)
        kt_add_environment_test("${locale}" "${zone}")
    endforeach()
endforeach()
