# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# Runs Qt's type dumper on the module URI found below IMPORT and writes OUTPUT. The build fails with
# the tool: a type that cannot be constructed without window and parent is a bug.
#
# ATTACHED, which may be empty, describes the types that the tool cannot see, since the factories of
# attached objects return QObject: <Type>AttachedObject is what <Type> attaches.

set(ENV{QT_QPA_PLATFORM} minimal)
set(ENV{QML2_IMPORT_PATH} "${IMPORT}")
if(PRELOAD)
    set(ENV{LD_PRELOAD} "${PRELOAD}")
    set(ENV{ASAN_OPTIONS} "detect_leaks=0")
endif()
# Left to itself the tool imports all that the qmldir names, and the module of a data core of the
# system need not be there when the library is built: DumpTypes.json has what it needs.
execute_process(
    COMMAND "${TOOL}" -nonrelocatable -dependencies "${CMAKE_CURRENT_LIST_DIR}/DumpTypes.json" "${URI}" 1.0 "${IMPORT}"
    OUTPUT_VARIABLE text
    ERROR_VARIABLE errors
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Describing the types of ${URI} failed (${result}):\n${errors}\n${text}")
endif()
# The tool's second line repeats its command line, which names folders of this build.
string(REGEX REPLACE "\n// [^\n]*'qmlplugindump[^\n]*" "\n// 'qmlplugindump ${URI} 1.0'" text "${text}")
# Nor are its dependencies what the module needs: it names the versions that this Qt has.
string(REPLACE "." "/" path "${URI}")
file(STRINGS "${IMPORT}/${path}/qmldir" depends REGEX "^depends ")
list(TRANSFORM depends REPLACE "^depends (.*)$" "\"\\1\"")
list(JOIN depends ", " depends)
string(REGEX REPLACE "\n    dependencies: [^\n]*" "\n    dependencies: [${depends}]" text "${text}")

# That the module registers the later revisions of Item makes the tool describe it again.
string(FIND "${text}" "    Component {\n        name: \"QQuickItem\"\n" start)
if(NOT start EQUAL -1)
    string(SUBSTRING "${text}" 0 ${start} before)
    string(SUBSTRING "${text}" ${start} -1 after)
    string(FIND "${after}" "\n    }\n" end)
    math(EXPR end "${end} + 7")
    string(SUBSTRING "${after}" ${end} -1 after)
    set(text "${before}${after}")
endif()

if(ATTACHED)
    file(READ "${ATTACHED}" components)
    string(REGEX REPLACE "//[^\n]*\n" "" components "${components}")
    string(STRIP "${components}" components)
    string(REGEX MATCHALL "[A-Za-z_:]+AttachedObject" names "${components}")
    foreach(name IN LISTS names)
        string(REGEX REPLACE "AttachedObject$" "" owner "${name}")
        set(before "${text}")
        string(REGEX REPLACE "(name: \"${owner}\"\n[^{}]*attachedType: )\"QObject\"" "\\1\"${name}\""
               text "${text}")
        if(text STREQUAL before)
            message(FATAL_ERROR "${ATTACHED} describes ${name}, but ${owner} attaches no QObject")
        endif()
    endforeach()
    if(text MATCHES "name: (\"[^\"]*\")\n[^{}]*attachedType: \"QObject\"")
        message(FATAL_ERROR "${ATTACHED} does not describe what ${CMAKE_MATCH_1} attaches")
    endif()
    string(REGEX REPLACE "}\n$" "    ${components}\n}\n" text "${text}")
endif()
file(WRITE "${OUTPUT}" "${text}")
