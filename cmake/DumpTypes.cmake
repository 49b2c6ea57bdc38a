# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# Runs Qt's type dumper on the module URI found below IMPORT and writes OUTPUT. Any failure of the
# tool is a failure of the build: a type that cannot be constructed bare is a bug.

set(ENV{QT_QPA_PLATFORM} minimal)
set(ENV{QML2_IMPORT_PATH} "${IMPORT}")
if(PRELOAD)
    set(ENV{LD_PRELOAD} "${PRELOAD}")
    set(ENV{ASAN_OPTIONS} "detect_leaks=0")
endif()
execute_process(
    COMMAND "${TOOL}" -nonrelocatable "${URI}" 1.0 "${IMPORT}"
    OUTPUT_VARIABLE text
    ERROR_VARIABLE errors
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Describing the types of ${URI} failed (${result}):\n${errors}\n${text}")
endif()
# The tool's second line repeats its command line, which names folders of this build.
string(REGEX REPLACE "\n// [^\n]*'qmlplugindump[^\n]*" "\n// 'qmlplugindump ${URI} 1.0'" text "${text}")
file(WRITE "${OUTPUT}" "${text}")
