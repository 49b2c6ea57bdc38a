// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

attribute lowp vec4 vertex;
uniform lowp mat4 qt_Matrix;
void main() {
    gl_Position = qt_Matrix * vertex;
}
