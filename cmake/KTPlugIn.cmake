# A plug-in: a module and the bundle folder that KTPlugInManager looks for.
#
#   kt_add_plugin(<Name>
#       IDENTIFIER <CFBundleIdentifier>
#       PRINCIPAL_CLASS <class of KT_PRINCIPAL_CLASS>
#       SOURCES <source>...
#       [RESOURCES <file>...]
#       [OUTPUT_DIRECTORY <folder>])
#
# makes the target <Name> and, in OUTPUT_DIRECTORY (the current binary folder if left out),
#
#   <Name>.bundle/Contents/Info.plist
#                          Linux/lib<Name>.so
#                          Resources/<file>...
#
# Copy or install that folder as a whole. More libraries, definitions and AUTOMOC are set on the
# target as usual. What the module needs must be found without $ORIGIN: it is opened by descriptor.

# The text as it stands in XML.
function(kt_escape_xml text result)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REPLACE ">" "&gt;" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(kt_add_plugin name)
    cmake_parse_arguments(PARSE_ARGV 1 plugin ""
        "IDENTIFIER;PRINCIPAL_CLASS;OUTPUT_DIRECTORY" "SOURCES;RESOURCES")
    foreach(needed IDENTIFIER PRINCIPAL_CLASS SOURCES)
        if(NOT plugin_${needed})
            message(FATAL_ERROR "kt_add_plugin(${name}) needs ${needed}")
        endif()
    endforeach()
    if(plugin_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "kt_add_plugin(${name}) does not know ${plugin_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT plugin_OUTPUT_DIRECTORY)
        set(plugin_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}")
    endif()
    set(contents "${plugin_OUTPUT_DIRECTORY}/${name}.bundle/Contents")

    kt_escape_xml("${name}" executable)
    kt_escape_xml("${plugin_IDENTIFIER}" identifier)
    kt_escape_xml("${plugin_PRINCIPAL_CLASS}" principal_class)
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/KTPlugInInfo.plist.in" "${contents}/Info.plist" @ONLY)

    add_library(${name} MODULE ${plugin_SOURCES})
    target_link_libraries(${name} PRIVATE KTUtility::KTUtility)
    # Two versions of a plug-in live in one process: what they define must not be shared.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
    set_target_properties(${name} PROPERTIES
        PREFIX "lib"
        SUFFIX ".so"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LIBRARY_OUTPUT_DIRECTORY "${contents}/Linux")

    file(MAKE_DIRECTORY "${contents}/Resources")
    foreach(resource IN LISTS plugin_RESOURCES)
        cmake_path(ABSOLUTE_PATH resource BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
            OUTPUT_VARIABLE original)
        cmake_path(GET resource FILENAME file)
        set(copy "${contents}/Resources/${file}")
        add_custom_command(OUTPUT "${copy}"
            COMMAND "${CMAKE_COMMAND}" -E copy "${original}" "${copy}"
            DEPENDS "${original}"
            VERBATIM)
        # Whatever it is, it is not compiled.
        set_source_files_properties("${copy}" PROPERTIES HEADER_FILE_ONLY ON SKIP_AUTOGEN ON)
        target_sources(${name} PRIVATE "${copy}")
    endforeach()
endfunction()
