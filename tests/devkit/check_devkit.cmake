# SPDX-License-Identifier: MIT
# Lays the stand-in's headers and libraries out as a release of Maya has its own. Against them the plug-in
# is built as its users do and loaded where there is a session of that release (STANDIN); otherwise the
# compiler only reads the sources that see the headers.
#   LAYOUT   application: headers and libraries in the application, as up to 2015
#            separate: headers in a devkit, libraries in the application
#            devkit: both in the devkit
cmake_minimum_required(VERSION 3.19) # reads JSON

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${output}")
    endif()
endfunction()

# Copies keep their times, so that a second run compiles nothing anew.
function(lay_out)
    set(sdk ${FOLDER}/sdk)
    run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${sdk} --component sdk)
    set(headers ${FOLDER}/devkitBase)
    set(libraries ${FOLDER}/devkitBase)
    if(NOT LAYOUT STREQUAL "devkit")
        set(libraries ${FOLDER}/maya)
        set(maya -DMAYA_LOCATION=${FOLDER}/maya)
    endif()
    if(LAYOUT STREQUAL "application")
        set(headers ${FOLDER}/maya)
    else()
        set(devkit -DMAYA_DEVKIT_LOCATION=${FOLDER}/devkitBase)
    endif()
    file(COPY ${sdk}/include DESTINATION ${headers} PATTERN MTypes.h EXCLUDE)
    file(COPY ${sdk}/lib DESTINATION ${libraries})
    file(READ ${sdk}/include/maya/MTypes.h text)
    string(REGEX REPLACE "MAYA_API_VERSION [0-9]+" "MAYA_API_VERSION ${API_VERSION}" text "${text}")
    file(CONFIGURE OUTPUT ${headers}/include/maya/MTypes.h CONTENT "${text}" @ONLY)
    set(locations ${maya} ${devkit} PARENT_SCOPE)
endfunction()

function(configure)
    # Given, so that none of the environment's counts.
    set(none -DMAYA_LOCATION= -DMAYA_DEVKIT_LOCATION=)
    run(${CMAKE_COMMAND} -S ${SOURCE} -B ${FOLDER}/build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O0 -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCORVANE_WERROR=ON -DCORVANE_QT=${QT}
        -DMAYA_CXX11_ABI=${ABI} ${none} ${locations})
    file(READ ${FOLDER}/build/plugin/corvaneEditor.mod module)
    string(FIND "${module}" "+ MAYAVERSION:${RELEASE} " place)
    if(NOT place EQUAL 0)
        message(FATAL_ERROR "the module is for another release: ${module}")
    endif()
endfunction()

# By the very commands that the build would use, for the objects themselves are of no use.
function(check_sources_with_headers)
    file(READ ${FOLDER}/build/compile_commands.json commands)
    string(JSON count LENGTH "${commands}")
    math(EXPR last "${count} - 1")
    foreach(index RANGE ${last})
        string(JSON file GET "${commands}" ${index} file)
        string(JSON command GET "${commands}" ${index} command)
        set(lines)
        if(file MATCHES "/(bridge|plugin)/[a-z]+[.]cpp$")
            file(STRINGS ${file} lines REGEX "^#include <maya/")
        endif()
        if(lines)
            run(sh -c "cd '${FOLDER}/build' && ${command} -fsyntax-only")
            list(APPEND checked ${file})
        endif()
    endforeach()
    if(NOT checked MATCHES "/bridge/.*/plugin/entry.cpp")
        message(FATAL_ERROR "checked only: ${checked}")
    endif()
endfunction()

lay_out()
configure()
if(STANDIN)
    run(${CMAKE_COMMAND} --build ${FOLDER}/build --target corvaneEditor)
    run(${CMAKE_COMMAND} -DBUILD=${FOLDER}/build -DFOLDER=${FOLDER}/module -DSTANDIN=${STANDIN}
        -P ${SOURCE}/tests/plugin/check_module.cmake)
else()
    check_sources_with_headers()
endif()
