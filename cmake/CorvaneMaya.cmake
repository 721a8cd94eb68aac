# SPDX-License-Identifier: MIT
# Maya::Sdk: the API that the plug-in is built against. With MAYA_LOCATION (the application) or
# MAYA_DEVKIT_LOCATION (an unpacked devkit; the DEVKIT_LOCATION variable of the environment works
# too) it is a real one; otherwise it is the stand-in of this repository.

set(MAYA_LOCATION "$ENV{MAYA_LOCATION}" CACHE PATH "Installed Maya; empty for the stand-in")
set(MAYA_DEVKIT_LOCATION "$ENV{DEVKIT_LOCATION}" CACHE PATH "Maya devkit (devkitBase), when separate")

if(MAYA_LOCATION OR MAYA_DEVKIT_LOCATION)
    set(CORVANE_USES_STANDIN OFF)
else()
    set(CORVANE_USES_STANDIN ON)
endif()

# The release as module files write it. The second extension of 2016 has a half of its own.
function(corvane_maya_release api_version result)
    string(SUBSTRING ${api_version} 0 4 release)
    if(api_version EQUAL 201650)
        set(release 2016.5)
    endif()
    set(${result} ${release} PARENT_SCOPE)
endfunction()

function(_corvane_import_devkit)
    set(roots ${MAYA_DEVKIT_LOCATION} ${MAYA_LOCATION})
    find_path(MAYA_INCLUDE_DIR maya/MTypes.h HINTS ${roots} PATH_SUFFIXES include devkit/include
        NO_DEFAULT_PATH REQUIRED)
    file(STRINGS ${MAYA_INCLUDE_DIR}/maya/MTypes.h line REGEX "#define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+")
    string(REGEX MATCH "[0-9]+$" version "${line}")
    corvane_maya_release(${version} MAYA_RELEASE)
    set(MAYA_RELEASE ${MAYA_RELEASE} PARENT_SCOPE)
    message(STATUS "Maya API version: ${version} of Maya ${MAYA_RELEASE} (${MAYA_INCLUDE_DIR})")

    add_library(Maya::Sdk INTERFACE IMPORTED GLOBAL)
    target_include_directories(Maya::Sdk SYSTEM INTERFACE ${MAYA_INCLUDE_DIR})
    foreach(name Foundation OpenMaya OpenMayaUI)
        find_library(MAYA_${name}_LIBRARY ${name} HINTS ${roots} PATH_SUFFIXES lib MacOS NO_DEFAULT_PATH REQUIRED)
        target_link_libraries(Maya::Sdk INTERFACE ${MAYA_${name}_LIBRARY})
    endforeach()
    # What the headers of the older releases expect to find defined, per platform.
    target_compile_definitions(Maya::Sdk INTERFACE _BOOL REQUIRE_IOSTREAM
        $<$<PLATFORM_ID:Linux>:LINUX> $<$<PLATFORM_ID:Windows>:NT_PLUGIN> $<$<PLATFORM_ID:Darwin>:OSMac_ MAC_PLUGIN>)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND version LESS 20240000)
        # Releases up to 2023 were built with the older string layout of libstdc++.
        target_compile_definitions(Maya::Sdk INTERFACE _GLIBCXX_USE_CXX11_ABI=0)
    endif()
endfunction()

if(NOT CORVANE_USES_STANDIN)
    _corvane_import_devkit()
endif()
