# Installs the host into a new folder, moves it, and uses it through its link in bin: what belongs to
# the program and what belongs to the framework in its bundle is found where it is now.
#   cmake -DBUILD=<build tree> -DCOBBLE=<the program built> -DWORK=<folder> -DLIBDIR=… -P …
include("${CMAKE_CURRENT_LIST_DIR}/Run.cmake")

file(REMOVE_RECURSE "${WORK}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --component Cobble --prefix "${WORK}/first")
file(RENAME "${WORK}/first" "${WORK}/moved")
file(MAKE_DIRECTORY "${WORK}/home")
foreach(variable XDG_DATA_HOME XDG_CONFIG_HOME LC_ALL LD_LIBRARY_PATH)
    unset(ENV{${variable}})
endforeach()
set(ENV{HOME} "${WORK}/home")
set(ENV{LANG} C.UTF-8)
set(cobble "${WORK}/moved/bin/cobble")
set(bundle "${WORK}/moved/${LIBDIR}/Cobble.app")

function(expect text)
    string(FIND "${output}" "${text}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "Missing: ${text}\nin: ${output}")
    endif()
endfunction()

# Nothing of the build tree or of the first folder is in it.
file(GLOB_RECURSE files "${bundle}/*")
foreach(file IN LISTS files)
    file(STRINGS "${file}" places REGEX "${BUILD}|${WORK}")
    if(places)
        message(FATAL_ERROR "${file} knows where it was: ${places}")
    endif()
endforeach()

# The plug-ins (their list loads none of them), the samples, the texts of another language.
run("${cobble}" plugins)
expect("ready  ${bundle}/Contents/PlugIns/Exporters/TextExporter.bundle")
expect("ready  ${bundle}/Contents/PlugIns/Importers/VCardImporter.bundle")
run("${cobble}" import "${bundle}/Contents/Resources/Samples/contacts.csv")
expect("Rows read:       302")
run("${cobble}" export contacts --to "${WORK}/contacts.json")
run("${cobble}" format duration 93784 --locale fr_FR --option useAbbreviations=no)
expect("jour")

# The patterns of the framework, and all of its pictures: they are those of the build tree.
run("${cobble}" format phone 2125550106 --locale en_US)
expect("(212) 555-0106")
run("${cobble}" gallery --screenshot "${WORK}/here")
run("${COBBLE}" gallery --screenshot "${WORK}/there")
file(GLOB pictures RELATIVE "${WORK}/there" "${WORK}/there/*.png")
list(LENGTH pictures count)
if(count LESS 5)
    message(FATAL_ERROR "The gallery has ${count} pictures.")
endif()
foreach(picture IN LISTS pictures)
    run("${CMAKE_COMMAND}" -E compare_files "${WORK}/here/${picture}" "${WORK}/there/${picture}")
endforeach()
