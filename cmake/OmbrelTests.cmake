# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# ombrel_add_tests([INTERNAL <tst>...] [PLAIN <tst>...] [OFFSCREEN <tst>...] [ONE_LOOP <tst>...]
#                  [LONG <tst>...] [LIBRARIES <target>...])
#
# Turns every tst_*.cpp and tst_*.qml of the calling folder into tests. Files are found, not
# listed: a test that exists runs. By default a test loads the plugin through an engine, as an
# application does, and runs on an X server of its own, once under each render loop.
#
#   INTERNAL   links the controls' inner library instead of loading the plugin (never both)
#   PLAIN      needs nothing of the controls, and no help of tests/support
#   OFFSCREEN  needs neither pixels nor a window system
#   ONE_LOOP   has a window, but nothing of it depends on the render loop
#   LONG       takes some fifteen seconds or more: it begins first, lest it run alone at the end, and
#              has the label "long"
#   LIBRARIES  further targets that each C++ test of the folder links
#
# A name that no file has stops the configuration; tst_x.qml is called tst_x_qml.

find_package(Qt5 5.15 REQUIRED COMPONENTS Test QuickTest)

set(OMBREL_RUN_TEST "${PROJECT_SOURCE_DIR}/tests/support/run-test")

# Freed memory is overwritten, so that what Qt does with an object that is gone shows, too: the
# address sanitizer does not see Qt's own code, and reads there find the bytes as they were.
set(OMBREL_FREED_MEMORY "max_free_fill_size=65536:free_fill_byte=219")

function(ombrel_test_entry name loop offscreen)
    set(import_path "${PROJECT_BINARY_DIR}/qml")
    if(OmbrelDataCore_QML_IMPORT_PATH)
        # An installed data core has its QML module in a folder of its own.
        string(APPEND import_path ":${OmbrelDataCore_QML_IMPORT_PATH}")
    endif()
    set(environment
        "QML2_IMPORT_PATH=${import_path}"
        "OMBREL_SOURCE_DIR=${PROJECT_SOURCE_DIR}"
        "OMBREL_BUILD_DIR=${PROJECT_BINARY_DIR}"
        "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=0:${OMBREL_FREED_MEMORY}"
        "MALLOC_PERTURB_=36"
        "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
        "UBSAN_OPTIONS=print_stacktrace=1"
        "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp"
        "LC_ALL=C.UTF-8"
        "QSG_RENDER_LOOP=${loop}")
    if(offscreen)
        list(APPEND environment "QT_QPA_PLATFORM=offscreen" "QT_QUICK_BACKEND=software")
        set(runner "${OMBREL_RUN_TEST}" --no-display)
    else()
        list(APPEND environment "QT_QPA_PLATFORM=xcb" "LIBGL_ALWAYS_SOFTWARE=1")
        set(runner "${OMBREL_RUN_TEST}")
    endif()
    add_test(NAME "${name}" COMMAND ${runner} ${ARGN})
    set_tests_properties("${name}" PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 300)
    if(test IN_LIST arg_LONG)
        set_tests_properties("${name}" PROPERTIES COST 1000 LABELS long)
    endif()
endfunction()

function(ombrel_test_entries test)
    set(command ${ARGN})
    if(test IN_LIST arg_OFFSCREEN)
        ombrel_test_entry(${folder}.${test} basic TRUE ${command})
    elseif(test IN_LIST arg_ONE_LOOP)
        ombrel_test_entry(${folder}.${test} basic FALSE ${command})
    else()
        ombrel_test_entry(${folder}.${test}.basic basic FALSE ${command})
        ombrel_test_entry(${folder}.${test}.threaded threaded FALSE ${command})
    endif()
endfunction()

# Without this check a misspelt name in a list would leave the test at its defaults.
function(ombrel_check_test_names)
    set(tests)
    foreach(file IN LISTS sources)
        get_filename_component(test "${file}" NAME_WE)
        list(APPEND tests "${test}")
    endforeach()
    foreach(file IN LISTS documents)
        get_filename_component(test "${file}" NAME_WE)
        list(APPEND tests "${test}_qml")
    endforeach()
    foreach(name IN LISTS arg_UNPARSED_ARGUMENTS arg_INTERNAL arg_PLAIN arg_OFFSCREEN arg_ONE_LOOP
                          arg_LONG)
        if(NOT name IN_LIST tests)
            message(FATAL_ERROR "ombrel_add_tests: ${CMAKE_CURRENT_SOURCE_DIR} has no test ${name}")
        endif()
    endforeach()
endfunction()

function(ombrel_add_tests)
    cmake_parse_arguments(arg "" "" "INTERNAL;PLAIN;OFFSCREEN;ONE_LOOP;LONG;LIBRARIES" ${ARGN})
    get_filename_component(folder "${CMAKE_CURRENT_SOURCE_DIR}" NAME)

    file(GLOB sources CONFIGURE_DEPENDS "tst_*.cpp")
    file(GLOB documents CONFIGURE_DEPENDS "tst_*.qml")
    ombrel_check_test_names()
    foreach(source IN LISTS sources)
        get_filename_component(test "${source}" NAME_WE)
        # Only the file itself is for moc. CMake's own way takes a run of CMake and one of the compiler
        # for each target besides, which here would be half of a build's steps.
        set(moc "${CMAKE_CURRENT_BINARY_DIR}/${test}.moc")
        qt5_generate_moc("${source}" "${moc}" TARGET ${folder}_${test})
        add_executable(${folder}_${test} "${source}" "${moc}")
        target_link_libraries(${folder}_${test} PRIVATE Qt5::Test ${arg_LIBRARIES})
        if(NOT test IN_LIST arg_PLAIN)
            target_link_libraries(${folder}_${test} PRIVATE ombrel_test_support)
            target_precompile_headers(${folder}_${test} REUSE_FROM ombrel_precompiled_tests)
        endif()
        if(test IN_LIST arg_INTERNAL)
            target_link_libraries(${folder}_${test} PRIVATE ombrel_controls ombrel_logging
                                  ombrel_resources)
        elseif(NOT test IN_LIST arg_PLAIN)
            add_dependencies(${folder}_${test} ombrelcontrolsplugin)
        endif()
        target_include_directories(${folder}_${test} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
        set_target_properties(${folder}_${test} PROPERTIES
            AUTOMOC OFF
            RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
        ombrel_test_entries(${test} $<TARGET_FILE:${folder}_${test}>)
    endforeach()

    foreach(document IN LISTS documents)
        get_filename_component(test "${document}" NAME_WE)
        ombrel_test_entries(${test}_qml $<TARGET_FILE:ombrel_qmltest> -input "${document}")
    endforeach()
endfunction()
