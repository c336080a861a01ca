# One header per public class, so that a program includes <KTUtility/KTLogger> and not the room that
# the class stands in:
#
#   kt_add_forwarding_headers(<target> <source folder> <folder>)
#
# writes them below <folder>/KTUtility, for every public header by its own name and for what other
# classes it declares, and adds <folder> to what users of <target> include from.
set(KTUTILITY_FORWARDING_HEADERS "${PROJECT_BINARY_DIR}/include")

# The classes and structs of the framework that a header defines, besides the one of its name.
function(kt_classes_of_header header result)
    set(classes)
    file(STRINGS "${header}" lines REGEX "^(class|struct) [^;]*$")
    foreach(line IN LISTS lines)
        if(line MATCHES "^(class|struct) (KTUTILITY_EXPORT )?((NS|KT|CI)[A-Za-z_]+)( final)?( : .*)?$")
            list(APPEND classes "${CMAKE_MATCH_3}")
        endif()
    endforeach()
    set(${result} "${classes}" PARENT_SCOPE)
endfunction()

function(kt_add_forwarding_headers target source_folder folder)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${source_folder}" "${source_folder}/*.h")
    list(FILTER headers EXCLUDE REGEX "_p\\.h$|^Designer/|^Resources/")
    list(SORT headers)
    file(GLOB stale "${folder}/KTUtility/*")
    foreach(header IN LISTS headers)
        cmake_path(GET header STEM name)
        kt_classes_of_header("${source_folder}/${header}" classes)
        # What a header declares may change without a file being added.
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source_folder}/${header}")
        list(APPEND classes "${name}")
        list(REMOVE_DUPLICATES classes)
        foreach(class IN LISTS classes)
            if(DEFINED owner_${class})
                message(FATAL_ERROR "${class} stands in ${owner_${class}} and in ${header}")
            endif()
            set(owner_${class} "${header}")
            file(CONFIGURE OUTPUT "${folder}/KTUtility/${class}" CONTENT "#include <KTUtility/${header}>\n")
            list(REMOVE_ITEM stale "${folder}/KTUtility/${class}")
        endforeach()
    endforeach()
    if(stale)
        file(REMOVE ${stale})
    endif()
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${folder}>")
endfunction()
