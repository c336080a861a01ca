# The rooms of the source tree, as scripts/rooms.txt orders them:
#
#   kt_rooms(<name of a tree> <variable>)
#
# sets the variable to the rooms of that tree, from the ground up.
function(kt_rooms tree result)
    set(file "${PROJECT_SOURCE_DIR}/scripts/rooms.txt")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(STRINGS "${file}" lines)
    set(rooms)
    set(reading FALSE)
    foreach(line IN LISTS lines)
        if(line MATCHES "^([a-z]+) ")
            string(COMPARE EQUAL "${CMAKE_MATCH_1}" "${tree}" reading)
        elseif(reading AND line MATCHES "^    ")
            separate_arguments(floor UNIX_COMMAND "${line}")
            list(APPEND rooms ${floor})
        endif()
    endforeach()
    list(REMOVE_ITEM rooms ".")
    set(${result} "${rooms}" PARENT_SCOPE)
endfunction()
