# SPDX-License-Identifier: MIT
# corvane_add_test(NAME [SOURCES file...] [LIBRARIES target...] [LABELS label...] [TIMEOUT seconds])
#
# A QtTest program run without a display; NAME.cpp is the source when none is named.
# Qt 4 has no display-less platform, so its tests run under xvfb-run where that is installed.

find_program(XVFB_RUN_PROGRAM xvfb-run)

function(corvane_add_test name)
    cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    if(NOT arg_SOURCES)
        set(arg_SOURCES ${name}.cpp)
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} corvane_test_support Corvane::QtTest Corvane::Options)
    set(launcher)
    if(CORVANE_QT_MAJOR EQUAL 4 AND XVFB_RUN_PROGRAM)
        set(launcher ${XVFB_RUN_PROGRAM} -a)
    endif()
    add_test(NAME ${name} COMMAND ${launcher} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}")
    corvane_test_environment(${name})
endfunction()

# The environment every test runs in; exported Qt settings of the user never reach it.
function(corvane_test_environment name)
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT
        "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8" "PYTHONDONTWRITEBYTECODE=1"
        "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0")
endfunction()
