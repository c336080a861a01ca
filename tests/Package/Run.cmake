# run(<program> <argument>...) ends with what the program wrote if it fails; else "output" is what it
# wrote to its standard output.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE errors OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}\n${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()
