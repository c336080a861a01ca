# Builds the example Expenses against an installed framework, as somebody else would, and runs its tests:
#   cmake -DBUILD=<build tree> -DSOURCE=<folder of the example> -DGENERATOR=<generator> -DWORK=<folder> -P …
include("${CMAKE_CURRENT_LIST_DIR}/Run.cmake")

file(REMOVE_RECURSE "${WORK}")
find_program(ccache ccache)
if(NOT ccache)
    set(ccache "")
endif()
run("${CMAKE_COMMAND}" --install "${BUILD}" --component KTUtility --prefix "${WORK}/prefix")
run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${WORK}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix" -DCMAKE_BUILD_TYPE=Debug
    "-DCMAKE_CXX_COMPILER_LAUNCHER=${ccache}")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${CMAKE_CTEST_COMMAND}" --test-dir "${WORK}/build" --output-on-failure --no-tests=error)

# It stays shorter than what it takes without the framework: lines that are neither empty nor comments.
file(GLOB_RECURSE sources "${SOURCE}/Sources/*" "${SOURCE}/PlugIns/*")
set(lines 0)
foreach(source IN LISTS sources)
    file(STRINGS "${source}" code ENCODING UTF-8 REGEX "^ *([^ /]|/[^/])")
    list(LENGTH code count)
    math(EXPR lines "${lines} + ${count}")
endforeach()
if(lines GREATER 400)
    message(FATAL_ERROR "Expenses has ${lines} lines.")
endif()
