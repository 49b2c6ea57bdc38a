// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

attribute lowp vec4 vertex;
attribute lowp vec2 pixelCoord;

uniform lowp mat4 qt_Matrix;

varying lowp vec2 coord;

void main() {
    coord = pixelCoord;
    gl_Position = qt_Matrix * vertex;
}
