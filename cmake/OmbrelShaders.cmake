# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# ombrel_embed_shaders(<target> <file.vert|file.frag>...)
#
# Puts GLSL files into <target> as pairs of string constants, for compatibility and for core
# profiles. "CheckerBox.vert" becomes om::controls::shaders::CheckerBoxVert in the generated header
# "shaders/CheckerBoxVert.h"; its twin for core profiles is also written to
# "shaders/core/CheckerBox.vert", for tests to check. Files stay the single source: editing one
# rebuilds its header.

set(OMBREL_EMBED_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/EmbedShader.cmake")

function(ombrel_embed_shaders target)
    set(dir "${CMAKE_CURRENT_BINARY_DIR}/generated")
    foreach(source IN LISTS ARGN)
        get_filename_component(stem "${source}" NAME_WE)
        get_filename_component(ext "${source}" LAST_EXT)
        if(ext STREQUAL ".vert")
            set(name "${stem}Vert")
        elseif(ext STREQUAL ".frag")
            set(name "${stem}Frag")
        else()
            message(FATAL_ERROR "${source} is neither a .vert nor a .frag file")
        endif()
        get_filename_component(input "${source}" ABSOLUTE)
        set(output "${dir}/shaders/${name}.h")
        set(core "${dir}/shaders/core/${stem}${ext}")
        add_custom_command(
            OUTPUT "${output}" "${core}"
            COMMAND "${CMAKE_COMMAND}" "-DINPUT=${input}" "-DHEADER=${output}" "-DCORE=${core}"
                    "-DNAME=${name}" -P "${OMBREL_EMBED_SCRIPT}"
            DEPENDS "${input}" "${OMBREL_EMBED_SCRIPT}"
            COMMENT "Embedding ${stem}${ext}"
            VERBATIM)
        target_sources(${target} PRIVATE "${output}")
        set_property(SOURCE "${output}" PROPERTY SKIP_AUTOGEN ON)
    endforeach()
    target_include_directories(${target} PRIVATE "${dir}")
endfunction()
