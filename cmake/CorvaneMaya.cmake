# SPDX-License-Identifier: MIT
# Maya::Sdk: the API that the plug-in is built against. With MAYA_LOCATION (the application) or
# MAYA_DEVKIT_LOCATION (an unpacked devkit; the DEVKIT_LOCATION variable of the environment works
# too) it is a real one; otherwise it is the stand-in of this repository.
#   MAYA_RELEASE        the release as module files write it: 2024
#   CORVANE_DEVKIT_QT   with a devkit, the major version of that release's Qt

set(MAYA_LOCATION "$ENV{MAYA_LOCATION}" CACHE PATH "Installed Maya; empty for the stand-in")
set(MAYA_DEVKIT_LOCATION "$ENV{DEVKIT_LOCATION}" CACHE PATH "Maya devkit (devkitBase), when separate")
set(MAYA_CXX11_ABI "" CACHE STRING
    "String layout of libstdc++ that Maya was built with, 0 or 1; empty for what its release has")

if(MAYA_LOCATION OR MAYA_DEVKIT_LOCATION)
    set(CORVANE_USES_STANDIN OFF)
else()
    set(CORVANE_USES_STANDIN ON)
endif()

# The second extension of 2016 has a half of its own.
function(corvane_maya_release api_version result)
    string(SUBSTRING ${api_version} 0 4 release)
    if(api_version EQUAL 201650)
        set(release 2016.5)
    endif()
    set(${result} ${release} PARENT_SCOPE)
endfunction()

# Headers lie in the devkit, or, up to 2015, in the application or (macOS) beside it; libraries in a
# lib folder of either, or (macOS) in the application's bundle.
set(_corvane_include_folders include devkit/include ../../devkit/include)
set(_corvane_library_folders lib MacOS)

function(_corvane_require path what)
    if(NOT ${path})
        message(FATAL_ERROR "${what} is neither below MAYA_DEVKIT_LOCATION (${MAYA_DEVKIT_LOCATION}) "
                            "nor below MAYA_LOCATION (${MAYA_LOCATION}).")
    endif()
endfunction()

# What is found is not kept from one configuring to the next: another Maya may have been named.
function(_corvane_find_headers)
    unset(MAYA_INCLUDE_DIR CACHE)
    find_path(MAYA_INCLUDE_DIR maya/MTypes.h PATHS ${MAYA_DEVKIT_LOCATION} ${MAYA_LOCATION}
        PATH_SUFFIXES ${_corvane_include_folders} NO_DEFAULT_PATH)
    _corvane_require(MAYA_INCLUDE_DIR maya/MTypes.h)
endfunction()

function(_corvane_find_libraries)
    foreach(name Foundation OpenMaya OpenMayaUI)
        unset(MAYA_${name}_LIBRARY CACHE)
        find_library(MAYA_${name}_LIBRARY ${name} PATHS ${MAYA_DEVKIT_LOCATION} ${MAYA_LOCATION}
            PATH_SUFFIXES ${_corvane_library_folders} NO_DEFAULT_PATH)
        _corvane_require(MAYA_${name}_LIBRARY "library ${name}")
        target_link_libraries(Maya::Sdk INTERFACE ${MAYA_${name}_LIBRARY})
    endforeach()
endfunction()

function(_corvane_read_api_version result)
    file(STRINGS ${MAYA_INCLUDE_DIR}/maya/MTypes.h lines REGEX "#define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+")
    if(NOT lines MATCHES "MAYA_API_VERSION[ \t]+([0-9]+)")
        message(FATAL_ERROR "${MAYA_INCLUDE_DIR}/maya/MTypes.h does not say which release it is of.")
    endif()
    set(${result} ${CMAKE_MATCH_1} PARENT_SCOPE)
endfunction()

# All of the plug-in has to be compiled with the layout of strings that Maya has: the older one up to
# 2023.
function(_corvane_define_abi api_version)
    set(abi "${MAYA_CXX11_ABI}")
    if("${abi}" STREQUAL "" AND CMAKE_SYSTEM_NAME STREQUAL "Linux" AND api_version LESS 20240000)
        set(abi 0)
    endif()
    if(NOT "${abi}" STREQUAL "")
        target_compile_definitions(Maya::Sdk INTERFACE _GLIBCXX_USE_CXX11_ABI=${abi})
    endif()
endfunction()

# What the headers of the older releases expect to find defined.
function(_corvane_define_platform)
    target_compile_definitions(Maya::Sdk INTERFACE _BOOL REQUIRE_IOSTREAM)
    if(WIN32)
        # They include the system's headers, whose macros would stand in the way of std::min.
        target_compile_definitions(Maya::Sdk INTERFACE NT_PLUGIN NOMINMAX)
    elseif(APPLE)
        target_compile_definitions(Maya::Sdk INTERFACE OSMac_ MAC_PLUGIN)
    else()
        target_compile_definitions(Maya::Sdk INTERFACE LINUX)
    endif()
endfunction()

macro(_corvane_import_devkit)
    add_library(Maya::Sdk INTERFACE IMPORTED GLOBAL)
    _corvane_find_headers()
    _corvane_find_libraries()
    _corvane_read_api_version(_corvane_api_version)
    corvane_maya_release(${_corvane_api_version} MAYA_RELEASE)
    message(STATUS "Maya: ${MAYA_RELEASE}, API version ${_corvane_api_version} (${MAYA_INCLUDE_DIR})")
    target_include_directories(Maya::Sdk SYSTEM INTERFACE ${MAYA_INCLUDE_DIR})
    _corvane_define_platform()
    _corvane_define_abi(${_corvane_api_version})
    if(_corvane_api_version LESS 201700)
        set(CORVANE_DEVKIT_QT 4)
    elseif(_corvane_api_version LESS 20250000)
        set(CORVANE_DEVKIT_QT 5)
    else()
        set(CORVANE_DEVKIT_QT 6)
    endif()
    # Where the archive of Qt's headers and build files, which devkits bring, is unpacked.
    list(APPEND CMAKE_PREFIX_PATH ${MAYA_DEVKIT_LOCATION}/Qt ${MAYA_DEVKIT_LOCATION})
endmacro()

if(NOT CORVANE_USES_STANDIN)
    _corvane_import_devkit()
endif()
