target_sources(DesktopTests PRIVATE
    Desktop/DesktopDialogTests.cpp
    Desktop/DesktopDisplay.cpp
    Desktop/DesktopHostTests.cpp
    Desktop/DesktopHourTests.cpp
    Desktop/DesktopMain.cpp
    Desktop/DesktopUser.cpp
    Desktop/DesktopVisualTests.cpp
    Desktop/StoredCells.cpp
)

# An hour of use runs once in each of these locales, at each of these scales. X servers, window managers
# and programs that all wait for a processor hand the keyboard on in an order that no desktop has, so
# that nothing else runs meanwhile.
foreach(locale en_US de_DE ar_EG)
    foreach(scale 1 2)
        set(name "Hour.${locale}@${scale}")
        add_test(NAME "${name}" COMMAND DesktopTests --gtest_brief=1 --gtest_filter=DesktopHourTests.*)
        set_tests_properties("${name}" PROPERTIES RUN_SERIAL TRUE ENVIRONMENT
            "DESKTOP_TEST_LOCALE=${locale};LC_ALL=${locale}.UTF-8;LANG=${locale}.UTF-8;TZ=America/New_York;QT_SCALE_FACTOR=${scale};${desktop_sanitizing}")
    endforeach()
endforeach()
