# SPDX-License-Identifier: MIT
# Corvane::Options: the language level and the warnings that every target of this project uses.

option(CORVANE_WERROR "Treat warnings as errors" OFF)
option(CORVANE_SANITIZE "Build with the address, leak and undefined behaviour sanitizers" OFF)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(corvane_options INTERFACE)
add_library(Corvane::Options ALIAS corvane_options)
if(MSVC)
    target_compile_options(corvane_options INTERFACE /W4 $<$<BOOL:${CORVANE_WERROR}>:/WX>)
else()
    target_compile_options(corvane_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
        $<$<BOOL:${CORVANE_WERROR}>:-Werror>)
endif()
target_compile_definitions(corvane_options INTERFACE QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING)

if(CORVANE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
