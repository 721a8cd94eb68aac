# SPDX-License-Identifier: MIT
# One Qt for the whole build, whatever its major version:
#   Corvane::Qt       core, gui and widgets
#   Corvane::QtTest   the same and the test library
# CORVANE_QT chooses the version; AUTO takes that of the devkit's release, or without a devkit the
# first of 5, 6, 4 that is installed.

set(CORVANE_QT "AUTO" CACHE STRING "Qt major version: 4, 5, 6 or AUTO")
set_property(CACHE CORVANE_QT PROPERTY STRINGS AUTO 4 5 6)

add_library(corvane_qt INTERFACE)
add_library(Corvane::Qt ALIAS corvane_qt)
add_library(corvane_qt_test INTERFACE)
add_library(Corvane::QtTest ALIAS corvane_qt_test)

macro(_corvane_find_modern_qt major requirement)
    # A devkit need not have what only tests want.
    find_package(Qt${major} ${requirement} COMPONENTS Core Gui Widgets OPTIONAL_COMPONENTS Test)
    if(Qt${major}_FOUND)
        set(CORVANE_QT_MAJOR ${major})
        target_link_libraries(corvane_qt INTERFACE Qt${major}::Core Qt${major}::Gui Qt${major}::Widgets)
        if(TARGET Qt${major}::Test)
            target_link_libraries(corvane_qt_test INTERFACE corvane_qt Qt${major}::Test)
        endif()
    endif()
endmacro()

macro(_corvane_find_qt4 requirement)
    find_package(Qt4 4.8 ${requirement} COMPONENTS QtCore QtGui QtTest)
    if(Qt4_FOUND OR QT4_FOUND)
        set(CORVANE_QT_MAJOR 4)
        target_link_libraries(corvane_qt INTERFACE Qt4::QtCore Qt4::QtGui)
        target_link_libraries(corvane_qt_test INTERFACE corvane_qt Qt4::QtTest)
    endif()
endmacro()

unset(CORVANE_QT_MAJOR)
set(_corvane_wanted_qt ${CORVANE_QT})
if(CORVANE_QT STREQUAL "AUTO" AND CORVANE_DEVKIT_QT)
    set(_corvane_wanted_qt ${CORVANE_DEVKIT_QT})
endif()
if(_corvane_wanted_qt STREQUAL "AUTO")
    _corvane_find_modern_qt(5 QUIET)
    if(NOT CORVANE_QT_MAJOR)
        _corvane_find_modern_qt(6 QUIET)
    endif()
    if(NOT CORVANE_QT_MAJOR)
        _corvane_find_qt4(REQUIRED)
    endif()
elseif(_corvane_wanted_qt EQUAL 4)
    _corvane_find_qt4(REQUIRED)
else()
    _corvane_find_modern_qt(${_corvane_wanted_qt} REQUIRED)
endif()
message(STATUS "Qt major version: ${CORVANE_QT_MAJOR}")

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
# Pictures are packed already, or stored so that they are read at once.
set(CMAKE_AUTORCC_OPTIONS -no-compress)
