# SPDX-License-Identifier: MIT
# Installs the module into an empty folder and has a session load the plug-in by its name, once from
# MAYA_MODULE_PATH and once from the user's own folder of modules.
cmake_minimum_required(VERSION 3.16)

function(check)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# The folder that holds the module; what comes after it starts the program.
function(check_loading modules)
    check(${ARGN} --no-plugin --user-dir ${FOLDER}/user --log
        --mel-file ${FOLDER}/load.mel
        --open ${FOLDER}/script.mel --execute --screenshot ${FOLDER}/editor.png --quit)
    foreach(expected "display\t${modules}/corvaneEditor/plug-ins/corvaneEditor." "result\t42")
        string(FIND "${output}" "${expected}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "not seen: ${expected}\n${output}")
        endif()
    endforeach()
    if(NOT EXISTS ${FOLDER}/editor.png)
        message(FATAL_ERROR "the editor has not been shown")
    endif()
    file(REMOVE ${FOLDER}/editor.png)
endfunction()

file(REMOVE_RECURSE ${FOLDER})
file(WRITE ${FOLDER}/load.mel "loadPlugin \"corvaneEditor\"; print(`pluginInfo -q -path corvaneEditor`);\n")
file(WRITE ${FOLDER}/script.mel "6 * 7;\n")
foreach(modules ${FOLDER}/modules ${FOLDER}/user/modules)
    check(${CMAKE_COMMAND} --install ${BUILD} --prefix ${modules})
    file(GLOB_RECURSE files RELATIVE ${modules} ${modules}/*)
    if(NOT files MATCHES "^corvaneEditor.mod;corvaneEditor/plug-ins/corvaneEditor[.][a-z]+$")
        message(FATAL_ERROR "installed: ${files}")
    endif()
endforeach()
check_loading(${FOLDER}/modules ${CMAKE_COMMAND} -E env MAYA_MODULE_PATH=${FOLDER}/modules ${STANDIN})
file(REMOVE_RECURSE ${FOLDER}/modules)
check_loading(${FOLDER}/user/modules ${CMAKE_COMMAND} -E env --unset=MAYA_MODULE_PATH ${STANDIN})
