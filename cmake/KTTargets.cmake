# One place for the flags that every target of this project is built with.
#
#   kt_configure_target(<target>)
#
# C++20 without extensions, hidden visibility, warnings (errors where CMAKE_COMPILE_WARNING_AS_ERROR
# says so, as in the presets of developers), the sanitizers asked for, and source paths relative to
# the project (so that __FILE__ is the same on every machine).
file(RELATIVE_PATH kt_source_from_build "${CMAKE_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")

function(kt_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        # CMake drops "X.framework" from the paths that it finds by itself.
        BUILD_RPATH "${KTUTILITY_FRAMEWORK_FOLDER}")
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
        QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic
        -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
        -Wcast-qual -Wformat=2 -Wimplicit-fallthrough -Wundef
        # ccache makes paths relative before the compiler sees them.
        "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=" "-ffile-prefix-map=${kt_source_from_build}=")
    if(KTUTILITY_SANITIZE)
        target_compile_options(${target} PRIVATE
            "-fsanitize=${KTUTILITY_SANITIZE}" -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE "-fsanitize=${KTUTILITY_SANITIZE}")
    endif()
endfunction()
