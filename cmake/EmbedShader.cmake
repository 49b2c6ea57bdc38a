# SPDX-FileCopyrightText: 2026 The Ombrel developers
# SPDX-License-Identifier: MIT
#
# Writes OUTPUT, a header with the text of INPUT as the constant NAME. Called by
# ombrel_embed_shaders(). The lines that head the file (licence, comment) are GLSL comments and
# stay out of the program that is compiled at run time.

file(READ "${INPUT}" text)
string(REGEX REPLACE "(^|\n)//[^\n]*" "\\1" text "${text}")
string(REGEX REPLACE "^\n+" "" text "${text}")
file(WRITE "${OUTPUT}"
"// Generated from a GLSL file; edit that one.
#pragma once

namespace om::controls::shaders {

inline constexpr const char ${NAME}[] = R\"glsl(${text})glsl\";

} // namespace om::controls::shaders
")
