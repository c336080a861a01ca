# Installs the framework into a new folder, moves it, builds a small program against it, and runs
# that program:
#   cmake -DBUILD=<build tree> -DSOURCE=<this folder> -DGENERATOR=<generator> -DWORK=<folder> -P …
include("${CMAKE_CURRENT_LIST_DIR}/Run.cmake")

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --component KTUtility --prefix "${WORK}/first")
file(RENAME "${WORK}/first" "${WORK}/moved")

run("${CMAKE_COMMAND}" -S "${SOURCE}/consumer" -B "${WORK}/build" -G "${GENERATOR}"
    "-DCMAKE_PREFIX_PATH=${WORK}/moved" -DCMAKE_BUILD_TYPE=Debug)
run("${CMAKE_COMMAND}" --build "${WORK}/build")

file(MAKE_DIRECTORY "${WORK}/home")
run("${CMAKE_COMMAND}" -E env "HOME=${WORK}/home" --unset=XDG_DATA_HOME QT_QPA_PLATFORM=offscreen
    "${WORK}/build/consumer")
# Names and a plug-in, a formatter and a setting, and the resources that lie beside the library.
if(NOT output STREQUAL
        "Field 1 kt_field1 greetings\n(212) 555-0106 blue\nbadge knob display")
    message(FATAL_ERROR "The consumer printed: ${output}")
endif()

file(GLOB_RECURSE private RELATIVE "${WORK}/moved" "${WORK}/moved/*_p.h")
if(private)
    message(FATAL_ERROR "Private headers were installed: ${private}")
endif()
file(READ "${WORK}/home/.local/share/Cobble/Logs/cobble.log" log)
if(NOT log MATCHES "\\[Schema Manager\\] made Field 1\n$")
    message(FATAL_ERROR "The log holds: ${log}")
endif()

# What pkg-config says is where things are, and a program that knows nothing else is built with it.
set(ENV{PKG_CONFIG_PATH} "${WORK}/moved/${LIBDIR}/pkgconfig")
run(pkg-config --modversion KTUtility)
if(NOT output STREQUAL VERSION)
    message(FATAL_ERROR "pkg-config knows the version ${output}, not ${VERSION}")
endif()
run(pkg-config --cflags --libs KTUtility)
separate_arguments(flags UNIX_COMMAND "${output}")
run("${COMPILER}" -std=c++20 -fPIC "${SOURCE}/consumer/named.cpp" ${flags}
    "-Wl,-rpath,${WORK}/moved/${LIBDIR}" -o "${WORK}/named")
run("${WORK}/named" "Date of birth")
if(NOT output STREQUAL "kt_dateOfBirth")
    message(FATAL_ERROR "The program built with pkg-config printed: ${output}")
endif()
