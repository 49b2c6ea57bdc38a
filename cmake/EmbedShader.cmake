# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# Writes HEADER, a header with the text of INPUT as the constant NAME, and CORE, the same shader for
# core profiles, which the constant holds as well. Called by ombrel_embed_shaders(). The comments at
# the head of INPUT (licence, purpose) are left out: drivers would compile them at run
# time.

file(READ "${INPUT}" text)
string(REGEX REPLACE "(^|\n)//[^\n]*" "\\1" text "${text}")
string(REGEX REPLACE "^\n+" "" text "${text}")

# GLSL 1.50 renames the storage qualifiers and the texture function; the statements stay.
set(core "${text}")
if(INPUT MATCHES "\\.vert$")
    string(REGEX REPLACE "(^|\n)attribute " "\\1in " core "${core}")
    string(REGEX REPLACE "(^|\n)varying " "\\1out " core "${core}")
    set(core "#version 150\n${core}")
else()
    string(REGEX REPLACE "(^|\n)varying " "\\1in " core "${core}")
    string(REPLACE "texture2D(" "texture(" core "${core}")
    string(REPLACE "gl_FragColor" "om_FragColor" core "${core}")
    set(core "#version 150\nout vec4 om_FragColor;\n${core}")
endif()
file(WRITE "${CORE}" "${core}")

file(WRITE "${HEADER}"
"// Generated from a GLSL file; edit that one.
#pragma once

#include \"controls/scenegraph/GlslProfile.h\"

namespace om::controls::shaders {

inline constexpr GlslTwins ${NAME} = {R\"glsl(${text})glsl\", R\"glsl(${core})glsl\"};

} // namespace om::controls::shaders
")
