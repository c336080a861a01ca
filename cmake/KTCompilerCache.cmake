# Uses ccache where it is installed and nothing else was asked for.
find_program(KTUTILITY_CCACHE ccache)
mark_as_advanced(KTUTILITY_CCACHE)
if(PROJECT_IS_TOP_LEVEL AND KTUTILITY_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # base_dir lets clones in other folders share results.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env
        "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime
        "${KTUTILITY_CCACHE}")
endif()
