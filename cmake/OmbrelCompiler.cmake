# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# The compiler settings that every target of the project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

find_program(OMBREL_CCACHE ccache)
if(OMBREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${OMBREL_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Qt 5.15 deprecates its simple materials, and their macro stands in our headers, where clang, but
    # not GCC, warns of what it expands to. What Qt 5.12 deprecates is not even declared, see below.
    add_compile_options(-Wno-deprecated-declarations)
    # Qt's QSKIP() takes arguments that nobody gives it: clang 19 counts that as C++20, of which
    # older ones and GCC still warn.
    if(CMAKE_CXX_COMPILER_VERSION VERSION_LESS 19)
        add_compile_options(-Wno-gnu-zero-variadic-macro-arguments)
    else()
        add_compile_options(-Wno-c++20-extensions)
    endif()
endif()
if(OMBREL_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
if(OMBREL_SANITIZE)
    # "undefined" leaves out numbers too large for the integer they are turned into.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow
                        -fno-sanitize-recover=undefined,float-cast-overflow
                        -fno-omit-frame-pointer -O1 -g1)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()
if(OMBREL_SANITIZE_THREADS)
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer -O1 -g1)
    add_link_options(-fsanitize=thread)
endif()
if(OMBREL_BUILD_FUZZERS)
    # Tells the fuzzer which branches an input has taken.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Hides the API that was deprecated by Qt 5.12 and warns of none that was deprecated later: its
# replacement need not be in 5.12. Nothing here hides API that came after 5.12.
add_compile_definitions(
    QT_NO_KEYWORDS
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_DEPRECATED_WARNINGS_SINCE=0x050c00
    QT_DISABLE_DEPRECATED_BEFORE=0x050c00)
