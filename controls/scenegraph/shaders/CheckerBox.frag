// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

const lowp float ONE = 1.0;
const lowp float TWO = 2.0;

uniform lowp float qt_Opacity;
uniform lowp float size;
uniform lowp vec4  light;
uniform lowp vec4  dark;

varying lowp vec2 coord;

void main() {
    lowp float px = mod(coord.x, size * TWO);
    lowp float sx = step(size, px);
    lowp float py = mod(coord.y, size * TWO);
    lowp float sy = step(size, py);
    gl_FragColor = mix(dark, light, mod(sx + sy, TWO)) *
                   qt_Opacity;
}
