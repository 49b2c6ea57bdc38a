# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# ombrel_qml_module(<plugin target> URI <uri> QMLDIR <file> DESIGNER <folder> [ATTACHED <file>])
#
# Places a plugin target, its qmldir and its type descriptions where a QML engine looks for them:
# below <build>/qml while building, below OMBREL_QML_DIR when installed. The type descriptions
# come from Qt's own tool, which loads the plugin, constructs each type and reads each property;
# ATTACHED adds what the tool cannot see (see DumpTypes.cmake). The tool cannot load what was built
# for another processor: OMBREL_TYPES=shipped takes the files of types/ instead. DESIGNER has what
# Qt Creator's designer shows of the types.

if(OMBREL_TYPES STREQUAL "dumped")
    find_program(OMBREL_QMLPLUGINDUMP NAMES qmlplugindump HINTS /usr/lib/qt5/bin)
    if(NOT OMBREL_QMLPLUGINDUMP)
        message(FATAL_ERROR "qmlplugindump is missing; "
                            "Debian has it in the package qtdeclarative5-dev-tools. "
                            "-DOMBREL_TYPES=shipped does without it.")
    endif()

    # The tool's own document imports QtQuick; without it the build would end with "Component is not
    # ready".
    get_target_property(qmake Qt5::qmake LOCATION)
    execute_process(COMMAND "${qmake}" -query QT_INSTALL_QML
                    OUTPUT_VARIABLE qml_dir OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(OMBREL_QT_QML_DIR "${qml_dir}" CACHE PATH "Where Qt's own QML modules are")
    if(NOT EXISTS "${OMBREL_QT_QML_DIR}/QtQuick.2/qmldir")
        message(FATAL_ERROR "Qt's QML module QtQuick is not in ${OMBREL_QT_QML_DIR}; "
                            "Debian has it in the package qml-module-qtquick2. "
                            "-DOMBREL_TYPES=shipped builds without it.")
    endif()
elseif(NOT OMBREL_TYPES STREQUAL "shipped")
    message(FATAL_ERROR "OMBREL_TYPES is '${OMBREL_TYPES}'; it is either dumped or shipped")
endif()

# A module in an absolute folder stays there whatever the prefix, and its run path leads to the
# libraries of the prefix that was configured. Before anything is installed:
if(IS_ABSOLUTE "${OMBREL_QML_DIR}" AND OMBREL_DATACORE STREQUAL "bundled")
    install(CODE "
        get_filename_component(prefix \"\${CMAKE_INSTALL_PREFIX}\" ABSOLUTE)
        if(NOT prefix STREQUAL \"${CMAKE_INSTALL_PREFIX}\")
            message(FATAL_ERROR \"OMBREL_QML_DIR is the absolute folder ${OMBREL_QML_DIR}, from where \"
                \"the modules look for the data core in ${CMAKE_INSTALL_PREFIX}, not in \${prefix}. \"
                \"Configure with -DCMAKE_INSTALL_PREFIX=\${prefix} and install without --prefix.\")
        endif()")
endif()

set(OMBREL_BUILD_QML_DIR "${PROJECT_BINARY_DIR}/qml")
set(OMBREL_DUMP_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/DumpTypes.cmake")
set(OMBREL_DUMP_PRELOAD "")
if(OMBREL_SANITIZE)
    # The tool itself is not instrumented, so the sanitizer's library has to come first.
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libasan.so
                    OUTPUT_VARIABLE OMBREL_DUMP_PRELOAD OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()

function(ombrel_qml_module target)
    cmake_parse_arguments(arg "" "URI;QMLDIR;ATTACHED;DESIGNER" "" ${ARGN})
    string(REPLACE "." "/" path "${arg_URI}")
    set(dir "${OMBREL_BUILD_QML_DIR}/${path}")
    set_target_properties(${target} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY "${dir}"
        PREFIX "lib")
    configure_file("${arg_QMLDIR}" "${dir}/qmldir" COPYONLY)

    set(types "${dir}/plugins.qmltypes")
    set(shipped "${PROJECT_SOURCE_DIR}/types/${arg_URI}.qmltypes")
    if(OMBREL_TYPES STREQUAL "shipped")
        configure_file("${shipped}" "${types}" COPYONLY)
    else()
        set(attached "")
        if(arg_ATTACHED)
            get_filename_component(attached "${arg_ATTACHED}" ABSOLUTE)
        endif()
        add_custom_command(
            OUTPUT "${types}"
            COMMAND "${CMAKE_COMMAND}" "-DTOOL=${OMBREL_QMLPLUGINDUMP}" "-DURI=${arg_URI}"
                    "-DIMPORT=${OMBREL_BUILD_QML_DIR}" "-DOUTPUT=${types}"
                    "-DPRELOAD=${OMBREL_DUMP_PRELOAD}" "-DATTACHED=${attached}"
                    -P "${OMBREL_DUMP_SCRIPT}"
            DEPENDS ${target} "${dir}/qmldir" "${OMBREL_DUMP_SCRIPT}" ${attached}
            COMMENT "Describing the types of ${arg_URI}"
            VERBATIM)
        add_custom_target(${target}_types ALL DEPENDS "${types}")
        add_custom_target(${target}_ship_types
            COMMAND "${CMAKE_COMMAND}" -E copy "${types}" "${shipped}"
            DEPENDS "${types}"
            COMMENT "Writing types/${arg_URI}.qmltypes")
        if(NOT TARGET ship_types)
            add_custom_target(ship_types)
        endif()
        add_dependencies(ship_types ${target}_ship_types)
    endif()

    # The run path of the installed plugin leads from its folder to the libraries of the prefix, so
    # it finds the data core that is installed beside it, and the prefix can be moved. From an
    # absolute folder it names them as they are: such a folder may be reached by a link. A data core
    # of the system that lies elsewhere is found where it was when this was configured.
    if(IS_ABSOLUTE "${OMBREL_QML_DIR}")
        set(run_path "${CMAKE_INSTALL_FULL_LIBDIR}")
    else()
        file(RELATIVE_PATH to_libraries "${CMAKE_INSTALL_PREFIX}/${OMBREL_QML_DIR}/${path}"
             "${CMAKE_INSTALL_FULL_LIBDIR}")
        set(run_path "$ORIGIN/${to_libraries}")
    endif()
    set_target_properties(${target} PROPERTIES
        INSTALL_RPATH "${run_path}"
        INSTALL_RPATH_USE_LINK_PATH ON)

    install(TARGETS ${target} LIBRARY DESTINATION "${OMBREL_QML_DIR}/${path}")
    install(FILES "${dir}/qmldir" "${types}" DESTINATION "${OMBREL_QML_DIR}/${path}")
    install(DIRECTORY "${arg_DESIGNER}/" DESTINATION "${OMBREL_QML_DIR}/${path}/designer"
            FILES_MATCHING PATTERN "*.metainfo" PATTERN "*.png" PATTERN drawings EXCLUDE)
endfunction()

# ombrel_qml_submodule(URI <uri> QMLDIR <file>)
#
# A module whose types another module's plugin registers: it has a qmldir, but neither a library nor
# type descriptions of its own.
function(ombrel_qml_submodule)
    cmake_parse_arguments(arg "" "URI;QMLDIR" "" ${ARGN})
    string(REPLACE "." "/" path "${arg_URI}")
    set(dir "${OMBREL_BUILD_QML_DIR}/${path}")
    configure_file("${arg_QMLDIR}" "${dir}/qmldir" COPYONLY)
    install(FILES "${dir}/qmldir" DESTINATION "${OMBREL_QML_DIR}/${path}")
endfunction()
